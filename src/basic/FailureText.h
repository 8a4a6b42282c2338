#pragma once

#include <exception>
#include <string>

namespace quarnel02 {

/// What the user is told of a failure that ends a command: the words of the error, and in place of
/// the system's word for it that memory is short.
std::string FailureText(const std::exception& failure);

}  // namespace quarnel02
