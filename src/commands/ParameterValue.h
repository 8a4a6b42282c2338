#pragma once

#include <string>
#include <string_view>

#include "model/Value.h"

namespace quarnel02 {

/// The text of a box as a field of Gen stores it. Throws, with the caption of the box, TypeMismatch
/// for a text that is no number and Overflow for a number that is out of range or that the figure
/// cannot be.
Value ParameterValue(std::string_view field, const std::string& caption, const std::string& text);

}  // namespace quarnel02
