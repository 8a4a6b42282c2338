#pragma once

#include <vector>

#include "batch/Options.h"
#include "batch/SolveRequest.h"

namespace quarnel02 {

/// A request for every model of the command line, whose options go together. Throws TypeMismatch
/// for formats that do not.
std::vector<SolveRequest> RequestsOf(const Options& options);

}  // namespace quarnel02
