#include "stoch/ProductionFigures.h"

#include <algorithm>

#include "fixed/ToolsText.h"
#include "stoch/AddExpectedPenalties.h"
#include "stoch/ArcCost.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"

namespace quarnel02 {

namespace {

WorkContent ContentOfEntry(const StochRun& run, const SolutionEntry& entry) {
    return ContentOfArc(run, entry.ArcResource, entry.StartTask, entry.EndTask).value();
}

ProductionStation StationOf(const StochRun& run, const SolutionEntry& entry, int number) {
    const Resource& resource = run.ResourceOf(entry.ArcResource);
    return {number,
            entry.ArcResource,
            resource.ShortName,
            resource.Type,
            entry.ArcInfo,
            static_cast<double>(entry.Cost),
            StationTime(ContentOfEntry(run, entry), entry.ArcInfo),
            entry.StartTask,
            entry.EndTask,
            ToolsText(run.Form.Model, entry.ArcResource, entry.StartTask, entry.EndTask)};
}

/// Annual parts of the whole line for a production and a number of shifts.
AnnualParts PartsOfLine(const StochRun& run, double production, double shifts) {
    AnnualParts line{0, 0, 0};
    for (const SolutionEntry& entry : run.Solution) {
        const AnnualParts arc = AnnualPartsOfArc(run, entry.ArcResource, ContentOfEntry(run, entry),
                                                 entry.ArcInfo, production, shifts);
        line.Capital += arc.Capital;
        line.Machine += arc.Machine;
        line.Labour += arc.Labour;
    }
    return line;
}

DemandOutcome OutcomeAt(const StochRun& run, int point, double penaltyPerUnit) {
    const float volume = run.Volume.at(static_cast<std::size_t>(point));
    const auto demand = static_cast<double>(volume);
    const auto capacity = static_cast<double>(run.Capacity);
    const int shifts = ShiftsAt(volume, run.Capacity);
    const double penalty = std::max(0.0, demand - capacity) * penaltyPerUnit;
    const AnnualParts parts = PartsOfLine(run, std::min(demand, capacity), shifts);
    return {volume, run.Prob.at(static_cast<std::size_t>(point)), shifts,
            parts.Capital + parts.Machine + parts.Labour + penalty, penalty};
}

}  // namespace

ProductionFigures FiguresOf(const StochRun& run) {
    ProductionFigures figures;
    figures.Capacity = run.Capacity;
    figures.MaximumCycleTime = CycleTimeAt(run.Parameters, run.Capacity);
    for (auto entry = run.Solution.rbegin(); entry != run.Solution.rend(); ++entry) {
        const auto number = static_cast<int>(figures.Stations.size()) + 1;
        figures.Stations.push_back(StationOf(run, *entry, number));
        figures.CycleTime = std::max(figures.CycleTime, figures.Stations.back().Time);
    }
    const auto penalty = static_cast<double>(PenaltyPerUnit(run.Form));
    figures.ExpectedPenalty = ExpectedProduction(run.Files).ShortfallAt(run.Capacity) * penalty;
    figures.SystemCosts = static_cast<double>(run.ExpectedCost);
    figures.FixedCosts = PartsOfLine(run, 0, 0).Capital;
    for (int point = 1; point <= run.DemandPoints; ++point) {
        figures.Outcomes.push_back(OutcomeAt(run, point, penalty));
    }
    return figures;
}

}  // namespace quarnel02
