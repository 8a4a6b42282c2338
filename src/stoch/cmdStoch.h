#pragma once

#include "shell/MainForm.h"
#include "stoch/RunStochastic.h"

namespace quarnel02 {

/// Click of the stochastic button: clears the result pictures and designs the line for the demand
/// distribution, which must have at least two points. Before anything else is touched it says what
/// is not complete, throws what RequireUsableModel, RequireUsableDemand and PenaltyPerUnit do, and
/// asks whether to go on with probabilities that are off 100 by more than 0.05. Throws what
/// RunStochastic throws.
void cmdStoch_Click(MainForm& form, const RunListener& listener = {});

}  // namespace quarnel02
