#pragma once

#include <cstdint>

#include "shell/MainForm.h"

namespace quarnel02 {

/// Click of a shift button, "1 Shift" to "3 Shifts": clears the results of an earlier design, asks
/// for the annual demand and an optional limit on parallel stations, and solves
/// (SolveFixedDemand). A cancelled or empty answer ends the command.
void cmdContinuous_Click(MainForm& form, std::int16_t index);

}  // namespace quarnel02
