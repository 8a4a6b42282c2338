#pragma once

#include <cstdint>

#include "line/LineModel.h"

namespace quarnel02::bench {

/// The model that the generator of large examples writes for the same arguments, in memory: every
/// resource can do every task.
LineModel GeneratedLine(int tasks, int resources, std::uint32_t seed);

}  // namespace quarnel02::bench
