#pragma once

#include "batch/SolveRequest.h"

namespace quarnel02 {

/// Designs the line of a model file for a fixed demand or for its demand distribution, on a
/// private working copy; the model is not changed, by no option. Report and pictures are written
/// only when a line was designed, and the solved model only when nothing was said against the line.
/// Printed as JSON, the report is one line, also where there is no line.
/// Throws RunTimeError with one line that names the file or field and the remedy.
SolveOutcome SolveFile(const SolveRequest& request);

}  // namespace quarnel02
