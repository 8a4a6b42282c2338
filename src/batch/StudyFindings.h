#pragma once

#include <string>

#include "batch/BatchForm.h"
#include "batch/Json.h"
#include "batch/SolveRequest.h"
#include "line/LineModel.h"
#include "study/StudyTable.h"

namespace quarnel02 {

/// What a study has found.
struct StudyFindings {
    StudyTable Table;
    Json Details;        ///< further keys of the JSON, an object
    std::string Notes;   ///< lines below the table for reading
    bool Found = true;   ///< whether there is any line
    std::string WhyNot;  ///< why there is none
};

/// Runs the study that is asked for of the model that the form shows. Throws a RunTimeError that
/// names the option, and as the studies do.
StudyFindings FindingsOf(BatchForm& form, const SolveRequest& request, LineModel model);

}  // namespace quarnel02
