#pragma once

#include <filesystem>
#include <optional>

#include "shell/MainForm.h"
#include "stoch/RunStochastic.h"

namespace quarnel02 {

/// Click of the stochastic button: clears the result pictures and designs the line for the demand
/// distribution, which must have at least two points; then redraws the network, which shows it, and
/// opens the report. Before anything else is touched it says what is not complete, throws what
/// RequireUsableModel and RequireUsableDemand do, TypeMismatch or Overflow for a penalty that is no
/// number or negative, and asks whether to go on with probabilities that are off 100 by more than
/// 0.05. A task that no resource can do ends the program. A run that the planner cancels leaves
/// everything as it was before the click. Throws what RunStochastic throws.
/// Run files are kept in the empty directory `keepRunFiles`, if there is one.
StochasticOutcome cmdStoch_Click(MainForm& form,
                                 const std::optional<std::filesystem::path>& keepRunFiles = {});

}  // namespace quarnel02
