#pragma once

#include <string>

#include "batch/BatchForm.h"
#include "batch/SolveRequest.h"
#include "files/ModelFormat.h"

namespace quarnel02 {

/// Refuses options by which the solve would write over its own model, or over a link to it,
/// directories that cannot be any, and one for run files that is not empty. Throws FileAccess
/// naming the option; nothing is touched.
void RequireModelSpared(const SolveRequest& request);

/// Makes the directory in which run files are to be kept, if that was asked for. Throws FileAccess.
void MakeRunFileDirectory(const SolveRequest& request);

/// What a solve has come to, from its messages and the report file `report` in the application
/// directory: a report with messages is one of a line that is not whole. Leaves report, pictures
/// and PDF document of any line, and the solved model of a whole one, where they were asked for;
/// that in `format`, the model's own, unless another was asked for. Throws FileAccess.
SolveOutcome TakeOutcome(BatchForm& form, const SolveRequest& request, const std::string& report,
                         ModelFormat format);

}  // namespace quarnel02
