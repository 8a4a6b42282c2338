#pragma once

#include <string_view>

namespace quarnel02::jet {

/// True for the first bytes of an Access database (Jet or ACE); 20 of them are enough. What follows
/// may still be damaged, protected or of an unknown version: Reader says so.
bool IsAccessHead(std::string_view head);

}  // namespace quarnel02::jet
