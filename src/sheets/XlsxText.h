#pragma once

// Internal to sheets/: texts in .xlsx files.

#include <pugixml.hpp>
#include <string>

namespace quarnel02 {

/// The text of a shared or inline string, its runs joined, without phonetic readings.
std::string XlsxText(const pugi::xml_node& item);

/// Characters that XML cannot hold are written "_x0001_", and what looks like that is escaped.
std::string WithEscapes(const std::string& text);
std::string WithoutEscapes(const std::string& text);

}  // namespace quarnel02
