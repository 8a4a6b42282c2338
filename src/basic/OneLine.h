#pragma once

#include <string>
#include <string_view>

namespace quarnel02 {

/// The UTF-8 text as one line without control characters. A run of blanks that holds a line
/// break, a tab, a no-break blank or another control character is one blank inside the text and
/// nothing at its ends; runs of plain blanks stay as they are.
std::string OneLine(std::string_view text);

}  // namespace quarnel02
