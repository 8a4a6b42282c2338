#include "shell/DesignMade.h"

#include <array>
#include <ctime>

#include "model/InputDigest.h"

namespace quarnel02 {

std::string TimeText(std::chrono::system_clock::time_point time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
    localtime_r(&seconds, &local);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local)};
}

DesignMade NewDesign(const Database& database, const std::string& caption,
                     const std::string& product, const std::optional<FixedDemandRequest>& request) {
    return {caption, product, std::chrono::system_clock::now(), DesignDigest(database), request};
}

}  // namespace quarnel02
