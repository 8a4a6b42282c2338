#pragma once

#include <cstdint>
#include <string>

namespace quarnel02 {

/// Rows of a made-up model as an SQL script to run after the schema: every resource can do every
/// task, times and costs are random but the same for the same seed.
/// `tasks` from 1 to 255, `resources` from 1, so many that tasks x (tasks + 1) / 2 x resources is
/// at most 32,767 if the model is to be solved.
std::string GeneratedModelScript(int tasks, int resources, std::uint32_t seed);

}  // namespace quarnel02
