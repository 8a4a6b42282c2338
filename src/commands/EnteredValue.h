#pragma once

#include <string>

#include "model/Value.h"

namespace quarnel02 {

/// What a column of the model takes of an entered text: names as one line (OneLine), figures
/// within their limits (FindFigure), record numbers as whole numbers from 1 to 32767. Throws
/// TypeMismatch for a text that is no number and Overflow for a figure that cannot be ("Uptime is
/// 0 %; it must be above 0 and at most 100."), naming it by `caption`, as the user sees it.
Value EnteredValue(const std::string& table, const std::string& column, const std::string& text,
                   const std::string& caption);

}  // namespace quarnel02
