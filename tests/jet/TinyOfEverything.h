#pragma once

#include <string>

#include "jet/TinyFile.h"

namespace quarnel02::jet {

/// A file with a table "Everything" of a column of every type and of rows that are whole, Null,
/// moved, deleted and older than some columns; with long texts of all three kinds, a table "Wide"
/// whose definition fills several pages, a query, a form and a link.
TinyFile EverythingFile(unsigned version);
/// The same without "Wide".
TinyFile SmallEverythingFile(unsigned version);

/// A text of so many digits: 0123456789012...
std::string DigitText(std::size_t length);

}  // namespace quarnel02::jet
