#pragma once

#include "batch/BatchForm.h"
#include "batch/SolveRequest.h"
#include "commands/SolveFixedDemand.h"

namespace quarnel02 {

/// Refuses an empty station limit, which is no answer. Throws TypeMismatch.
void RequireStationLimit(const SolveRequest& request);

/// What the command line answers to a fixed design; a demand that is left out is the only row's,
/// as the demand list of the form shows it. Throws TypeMismatch when there is not one row.
FixedDemandAnswers AnswersOf(BatchForm& form, const SolveRequest& request);

/// The station limit as typed; none where it is left out or below 1. Throws as SolveFixedDemand.
std::optional<std::int16_t> StationLimitOf(const SolveRequest& request);

}  // namespace quarnel02
