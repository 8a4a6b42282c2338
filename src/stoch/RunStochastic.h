#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "line/StochasticLine.h"
#include "model/Database.h"
#include "shell/Dialogs.h"
#include "shell/PictureBoxes.h"
#include "shell/SolveStatus.h"

namespace quarnel02 {

/// What a stochastic solve is asked for, the model aside.
struct StochasticRequest {
    std::filesystem::path ApplicationDirectory;  ///< of run files and report
    float PenaltyPerUnit = 0;                    ///< dollars per unit of unmet demand
    /// An empty directory in which every run file is kept, scratch tables as they were last.
    std::optional<std::filesystem::path> KeepRunFiles;
};

/// How a solve ended.
enum class StochasticEnd : std::int8_t {
    NotStarted,      ///< something is missing, or the planner did not want it
    Cancelled,       ///< by the planner; nothing is left of it
    ImpossibleTask,  ///< a task that no resource can do, which ends the program
    Designed
};

struct StochasticOutcome {
    StochasticEnd End = StochasticEnd::NotStarted;
    std::string Summary;       ///< lines of the summary
    std::string CapacityText;  ///< of the line: "84,000"
    std::string CostText;      ///< expected cost of a year, as in the summary: "$256,403"
    std::optional<StochasticLine> Line = {};
    std::chrono::system_clock::duration Took = {};  ///< the whole run
};

/// Whether each resource that Gen counts has a row.
[[nodiscard]] bool HasEveryResource(const Database& database);

/// Designs the line for the demand distribution of the database: writes the tables of the stages as
/// run files, takes the capacity of lowest expected cost, reports and draws it. Run files of an
/// earlier run are deleted first, its own at the end, also when it fails. The status window is
/// shown meanwhile.
/// Says so, and stops, when a resource has no row. Where no resource can do a task, it says so and
/// leaves run files and status window as they are: the program is to end at once. Cancelled, it
/// leaves model and report of an earlier run as they are; pictures are the caller's.
/// Throws what the stages throw; the model is then unchanged, and the report of an earlier run
/// gone.
StochasticOutcome RunStochastic(const Database& database, const StochasticRequest& request,
                                SolveStatus& status, Dialogs& dialogs, PictureBoxes& pictures);

}  // namespace quarnel02
