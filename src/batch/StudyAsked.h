#pragma once

#include "batch/BatchForm.h"
#include "batch/SolveRequest.h"
#include "line/FixedDemand.h"
#include "line/LineModel.h"
#include "study/VolumeRanges.h"

namespace quarnel02 {

// What the command line asks of a study. All throw a RunTimeError that names the option.

/// Demand, shifts and station limit, with the form asked for what the command line leaves open. The
/// studies themselves refuse volumes for which nothing can be designed.
FixedDemandRequest FixedRequestOf(BatchForm& form, const SolveRequest& request);

/// The volumes to look at: up to twice the largest one of the demand rows unless it is said.
VolumeSpan SpanOf(const SolveRequest& request, const LineModel& model);

/// By how much figures are varied, above 0 and below 1.
double ShareOf(const SolveRequest& request);

}  // namespace quarnel02
