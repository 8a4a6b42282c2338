#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/ModelFigures.h"

namespace quarnel02 {

/// What a difference of a scenario is about.
enum class ScenarioTarget : std::int8_t {
    Figure,       ///< of the model
    Demand,       ///< the annual volume; of a distribution all volumes, by a share
    Shifts,       ///< per day, of a fixed design
    StationLimit  ///< of a fixed design
};

/// One thing that is otherwise in a scenario than in the base.
struct Difference {
    ScenarioTarget Target = ScenarioTarget::Figure;
    ModelFigure Figure;           ///< of the target Figure
    bool ByShare = false;         ///< `Value` is a change in percent of the base, else a new value
    std::optional<double> Value;  ///< none: no station limit

    bool operator==(const Difference&) const = default;
};

/// The differences that a text says, in its order: "Demand = 80000; Bench.FixedCost = 120000;
/// LaborCost +10%". Differences are separated by semicolons or ends of line; each is a name and
/// either "=" and a number or a signed number with "%". Names are those of the model's fields, in
/// any letter case: Days, ACF, LaborCost, TransportTime, Penalty, and FixedCost, VarCost, UpTime,
/// ICF, ToolChange, StatPerWrk or TaskTimes behind the short name of a resource, or "#" and its
/// number, and a point; TaskTimes takes only a share. Demand, Shifts and StationLimit are what a
/// design is asked for; the limit may be "none". Thousands may be separated by commas.
/// Throws TypeMismatch with one line that quotes the difference and says what is wrong with it:
/// also for a resource that the model does not have, or has twice under that name, for a figure
/// that is named twice, and for a value that cannot be.
std::vector<Difference> DifferencesOf(const LineModel& model, std::string_view text);

/// "Demand = 80000", "Bench.FixedCost = 120000", "LaborCost +10%"; reads back to the same. A
/// resource whose name would not read back is called by its number: "#3.FixedCost".
std::string DifferenceText(const LineModel& model, const Difference& difference);
/// All of them, with "; " between them.
std::string DifferencesText(const LineModel& model, const std::vector<Difference>& differences);

}  // namespace quarnel02
