#pragma once

#include <filesystem>

#include "fixed/FixedDemandOrder.h"
#include "line/LineModel.h"
#include "model/Database.h"
#include "shell/PictureBoxes.h"

namespace quarnel02 {

/// Reports the line whose pathways are in state 4: shows the summary on picGraph 0 and the line on
/// picGraph 2, clears the others, and writes the report file. Returns the total cost of a year as
/// the report says it: "$202,004". `model` is that of the database. Throws what the store reports,
/// and FileAccess when the report cannot be written.
std::string WriteSolutionSummary(const Database& database, const LineModel& model,
                                 const FixedDemandOrder& order, PictureBoxes& boxes,
                                 const std::filesystem::path& report);

}  // namespace quarnel02
