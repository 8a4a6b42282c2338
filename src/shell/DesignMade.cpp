#include "shell/DesignMade.h"

#include "model/InputDigest.h"

namespace quarnel02 {

DesignMade NewDesign(const Database& database, const std::string& caption,
                     const std::string& product, const std::optional<FixedDemandRequest>& request) {
    return {caption, product, std::chrono::system_clock::now(), InputDigest(database), request};
}

}  // namespace quarnel02
