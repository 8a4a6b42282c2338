#include "basic/FailureText.h"

#include <new>

namespace quarnel02 {

std::string FailureText(const std::exception& failure) {
    if (dynamic_cast<const std::bad_alloc*>(&failure) != nullptr) {
        return "Not enough memory for this. Close other programs and try again.";
    }
    return failure.what();
}

}  // namespace quarnel02
