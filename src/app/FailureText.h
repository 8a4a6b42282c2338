#pragma once

#include <exception>
#include <string>

namespace quarnel02 {

/// What an exception says to the user; a lack of memory is said in words.
std::string FailureText(const std::exception& error);

}  // namespace quarnel02
