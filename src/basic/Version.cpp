#include "basic/Version.h"

namespace quarnel02 {

const char* Version() noexcept {
    return QUARNEL02_VERSION;
}

}  // namespace quarnel02
