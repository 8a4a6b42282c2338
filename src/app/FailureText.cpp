#include "app/FailureText.h"

#include <new>

namespace quarnel02 {

std::string FailureText(const std::exception& error) {
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
        return "There is not enough memory. Close other programs and try again.";
    }
    return error.what();
}

}  // namespace quarnel02
