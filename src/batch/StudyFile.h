#pragma once

#include "batch/SolveRequest.h"

namespace quarnel02 {

/// The study of a model file that `request.Study` orders, printed in the format of the request; the
/// model is not changed. Without a line a table has no rows, and messages say so. Throws as
/// SolveFile does, and TypeMismatch or Overflow for volumes and shares that cannot be.
SolveOutcome StudyFile(const SolveRequest& request);

}  // namespace quarnel02
