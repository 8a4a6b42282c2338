#pragma once

#include <filesystem>
#include <string>

#include "line/LineModel.h"
#include "line/StochasticLine.h"
#include "model/Database.h"
#include "shell/PictureBoxes.h"

namespace quarnel02 {

/// Capacity of a line as the report prints it: "84,000".
std::string CapacityText(const StochasticLine& line);

/// Expected cost of a year as the report prints it: "$256,403".
std::string ExpectedCostText(const StochasticLine& line);

/// Writes "ProdRpt.txt" in the application directory, marks the line in Pathways with state 4 (all
/// other rows get 1), shows its summary on picGraph 0 and draws it on picGraph 2. Returns the
/// summary's lines as text. Throws what the store reports, FileAccess.
std::string WriteProductionReport(const StochasticLine& line, const LineModel& model,
                                  const Database& database,
                                  const std::filesystem::path& applicationDirectory,
                                  PictureBoxes& pictures);

}  // namespace quarnel02
