#pragma once

#include "shell/MainForm.h"
#include "stoch/RunStochastic.h"

namespace quarnel02 {

/// Click of the stochastic button: clears the result pictures and designs the line for the demand
/// distribution, which must have at least two points. Throws what RunStochastic throws.
void cmdStoch_Click(MainForm& form, const RunListener& listener = {});

}  // namespace quarnel02
