#pragma once

#include <span>

#include "jet/TinyFile.h"
#include "jet/Writer.h"

namespace quarnel02::jet {

/// A file of any version with those tables, of Long Integers, Doubles, Singles and texts in ASCII.
TinyFile TinyFileOf(unsigned version, std::span<const NewTable> tables);

}  // namespace quarnel02::jet
