#include "shell/Figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "basic/Numbers.h"
#include "model/Schema.h"

namespace quarnel02 {

namespace {

constexpr double kNoLimit = std::numeric_limits<double>::infinity();

constexpr std::array kFigures = {
    Figure{"Gen", "Days", "working days per year", "", 0, 366, true, false},
    Figure{"Gen", "ACF", "annual capital factor (ACF)", "", 0, kNoLimit, false, false},
    Figure{"Gen", "LaborCost", "labour cost", " $/h", 0, kNoLimit, false, false},
    Figure{"Gen", "TransportTime", "transport time", " s", 0, kNoLimit, false, false},
    Figure{"Gen", "Penalty", "penalty", " $/unit", 0, kNoLimit, false, false},
    Figure{"Resources", "FixedCost", "fixed cost", " $", 0, kNoLimit, false, false},
    Figure{"Resources", "VarCost", "variable cost", " $/h", 0, kNoLimit, false, false},
    Figure{"Resources", "UpTime", "uptime", " %", 0, 100, true, false},
    Figure{"Resources", "ICF", "investment factor (ICF)", "", 0, kNoLimit, false, false},
    Figure{"Resources", "ToolChange", "tool change time", " s", 0, kNoLimit, false, false},
    Figure{"Resources", "StatPerWrk", "stations per worker", "", 0, kNoLimit, true, false},
    Figure{"Matrix", "TaskTime", "task time", " s", 0, kNoLimit, false, false},
    Figure{"Matrix", "ToolNum", "tool number", "", -kNoLimit, kNoLimit, false, true},
    Figure{"Matrix", "ToolCost", "tool cost", " $", 0, kNoLimit, false, false},
    Figure{"Demand", "Volume", "volume", "", 0, kNoLimit, false, false},
    Figure{"Demand", "Prob", "probability", " %", 0, 100, false, false}};

/// "must be above 0 and at most 100", "must be at least 0", "must be a whole number".
std::string Rule(const Figure& figure) {
    if (figure.Whole) {
        return "must be a whole number";
    }
    std::string rule =
        (figure.AboveLow ? "must be above " : "must be at least ") + NumberText(figure.Low);
    if (std::isfinite(figure.High)) {
        rule += " and at most " + NumberText(figure.High);
    }
    return rule;
}

bool IsAllowed(const Figure& figure, double value) {
    if (!std::isfinite(value) || (figure.Whole && value != std::floor(value))) {
        return false;
    }
    return (figure.AboveLow ? value > figure.Low : value >= figure.Low) && value <= figure.High;
}

std::string Refusal(const Figure& figure, const std::string& what) {
    return std::string(figure.Caption) + " is " + what + "; it " + Rule(figure) + ".";
}

}  // namespace

const Figure* FindFigure(std::string_view table, std::string_view field) {
    const auto* const found =
        std::find_if(kFigures.begin(), kFigures.end(), [&](const Figure& figure) {
            return SameName(figure.Table, table) && SameName(figure.Field, field);
        });
    return found == kFigures.end() ? nullptr : &*found;
}

std::string Objection(const Figure& figure, double value) {
    if (IsAllowed(figure, value)) {
        return {};
    }
    return Refusal(figure, NumberText(value) + std::string(figure.Unit));
}

std::string ObjectionToNothing(const Figure& figure) {
    return Refusal(figure, "empty");
}

}  // namespace quarnel02
