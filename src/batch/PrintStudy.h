#pragma once

#include <string>

#include "batch/SolveRequest.h"
#include "batch/StudyFindings.h"

namespace quarnel02 {

/// A study in the format that is asked for, ends of lines included.
std::string PrintStudy(const SolveRequest& request, const StudyFindings& findings);

}  // namespace quarnel02
