#include "stoch/ArcCost.h"

#include <algorithm>
#include <span>
#include <vector>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

constexpr double kHoursPerShift = 8;

}  // namespace

std::optional<ArcLoad> LoadOfArc(const StochRun& run, int resource, int startTask, int endTask) {
    const std::span by_task(&run.Pair(resource, startTask),
                            static_cast<std::size_t>(endTask - startTask + 1));
    if (std::any_of(by_task.begin(), by_task.end(),
                    [](const MatrixEntry& entry) { return !(entry.TaskTime > 0); })) {
        return std::nullopt;
    }
    std::vector<MatrixEntry> by_tool(by_task.begin(), by_task.end());
    std::stable_sort(
        by_tool.begin(), by_tool.end(),
        [](const MatrixEntry& a, const MatrixEntry& b) { return a.ToolNum < b.ToolNum; });
    return ArcLoad{WorkTime(by_task, run.ResourceOf(resource).Costs, run.Parameters.TransportTime),
                   ToolCostSum(by_tool)};
}

double SecondsOfYear(const Production& production) {
    constexpr double shifts = 3;
    constexpr double seconds_per_hour = 3600;
    return production.Days * shifts * kHoursPerShift * seconds_per_hour;
}

float CycleTimeAt(const Production& production, float capacity) {
    return ToSingle(SecondsOfYear(production) / static_cast<double>(capacity), "Capacity");
}

float StationTime(const ArcLoad& load, int stations) {
    return static_cast<float>(static_cast<double>(load.WorkTime) / stations);
}

double InvestmentOfArc(const StochRun& run, int resource, const ArcLoad& load, int stations) {
    return static_cast<double>(Investment(static_cast<std::int16_t>(stations), load.ToolCostSum,
                                          run.ResourceOf(resource).Costs));
}

AnnualParts AnnualPartsOfArc(const StochRun& run, int resource, const ArcLoad& load, int stations,
                             double production, double shifts) {
    const ResourceCosts& costs = run.ResourceOf(resource).Costs;
    return {InvestmentOfArc(run, resource, load, stations) * run.Parameters.ACF,
            MachineCost(production, StationTime(load, stations), costs),
            LabourCost(static_cast<std::int16_t>(stations), shifts * kHoursPerShift, run.Parameters,
                       costs)};
}

float AnnualCost(const AnnualParts& parts) {
    const float running = ToSingle(parts.Machine + parts.Labour, "AnnualLabor");
    return ToSingle(static_cast<double>(running) + parts.Capital, "Cost");
}

}  // namespace quarnel02
