#include "study/ScenarioCells.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "study/FigureText.h"
#include "study/ScenarioFields.h"

namespace quarnel02 {

namespace {

std::string RequestText(const FixedDemandRequest& request, ScenarioTarget target) {
    switch (target) {
        case ScenarioTarget::Demand:
            return FigureText(request.Volume);
        case ScenarioTarget::Shifts:
            return NumberText(request.Shifts);
        case ScenarioTarget::StationLimit:
            return request.StationLimit ? NumberText(*request.StationLimit) : "none";
        case ScenarioTarget::Figure:
            break;
    }
    return {};
}

}  // namespace

std::vector<Difference> PossibleDifferences(const LineModel& model) {
    std::vector<Difference> differences = {{ScenarioTarget::Demand, {}, false, {}},
                                           {ScenarioTarget::Shifts, {}, false, {}},
                                           {ScenarioTarget::StationLimit, {}, false, {}}};
    for (const ModelFigure& figure : ExpectedFiguresOf(model)) {
        differences.push_back({ScenarioTarget::Figure, figure, false, {}});
    }
    return differences;
}

std::string DifferenceName(const LineModel& model, const Difference& difference) {
    switch (difference.Target) {
        case ScenarioTarget::Demand:
            return "Annual demand";
        case ScenarioTarget::Shifts:
            return "Shifts per day";
        case ScenarioTarget::StationLimit:
            return "Station limit";
        case ScenarioTarget::Figure:
            break;
    }
    return FigureName(model, difference.Figure);
}

std::string BaseText(const DesignOrder& base, const Difference& difference) {
    if (difference.Target == ScenarioTarget::Figure) {
        const std::string value = FigureText(ValueOf(base.Model, difference.Figure));
        return difference.Figure.Kind == FigureKind::TaskTimes ? value + "%" : value;
    }
    return base.Fixed ? RequestText(*base.Fixed, difference.Target) : "--";
}

std::string CellText(const Difference& difference) {
    if (!difference.Value) {
        return "none";
    }
    const std::string number = NumberText(*difference.Value);
    return difference.ByShare ? (number.starts_with('-') ? "" : "+") + number + "%" : number;
}

std::optional<Difference> DifferenceOfCell(const LineModel& model, const Difference& target,
                                           std::string_view text) {
    const std::string_view typed = Trimmed(text);
    if (typed.empty()) {
        return {};
    }
    const ScenarioValueReader value(FieldOf(target),
                                    {DifferenceName(model, target), "it", "the new value"});
    Difference difference{
        target.Target, target.Figure, typed.front() == '+' || typed.front() == '-', {}};
    difference.Value = difference.ByShare ? value.Share(typed) : value.Value(typed);
    return difference;
}

std::vector<Difference> WithDifference(std::vector<Difference> differences,
                                       const Difference& target,
                                       const std::optional<Difference>& difference) {
    const auto place =
        std::find_if(differences.begin(), differences.end(),
                     [&](const Difference& each) { return SameTarget(each, target); });
    if (place == differences.end()) {
        if (difference) {
            differences.push_back(*difference);
        }
    } else if (difference) {
        *place = *difference;
    } else {
        differences.erase(place);
    }
    return differences;
}

bool SameTarget(const Difference& a, const Difference& b) {
    return a.Target == b.Target && a.Figure == b.Figure;
}

}  // namespace quarnel02
