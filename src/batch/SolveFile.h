#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "files/ModelFormat.h"

namespace quarnel02 {

/// One run of the batch program.
struct SolveRequest {
    std::filesystem::path Model;
    bool Stochastic = false;                  ///< design for the model's demand distribution
    std::int16_t Shifts = 1;                  ///< else for a fixed demand: shifts per day, 1 to 3
    std::optional<std::string> Demand;        ///< units per year, as typed; else the only row's
    std::optional<std::string> StationLimit;  ///< most parallel stations, as typed; else no limit
    bool Progress = false;                    ///< status texts go to standard error
    std::optional<std::filesystem::path> OutDirectory;  ///< where the report is left too
    bool Pictures = false;                              ///< leave the pictures there as well
    std::optional<std::filesystem::path> KeepRunFiles;  ///< where run files are kept
    std::optional<std::filesystem::path> SaveAs;        ///< where the solved model is written
    std::optional<ModelFormat> SaveFormat;              ///< in which format; else the model's own
};

struct SolveOutcome {
    std::string Report;                 ///< empty when no line was designed
    std::vector<std::string> Messages;  ///< what the system said: why there is no line, or what the
                                        ///< line in the report lacks; empty for a whole line
};

/// Designs the line of a model file for a fixed demand or for its demand distribution, on a
/// private working copy; the model is not changed, by no option. Report and pictures are written
/// only when a line was designed, and the solved model only when nothing was said against the line.
/// Throws RunTimeError with one line that names the file or field and the remedy.
SolveOutcome SolveFile(const SolveRequest& request);

}  // namespace quarnel02
