#include "stoch/ArcCost.h"

#include <algorithm>
#include <span>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

constexpr double kHoursPerShift = 8;

}  // namespace

std::optional<WorkContent> ContentOfArc(const StochRun& run, int resource, int startTask,
                                        int endTask) {
    const std::span by_task(&run.Pair(resource, startTask),
                            static_cast<std::size_t>(endTask - startTask + 1));
    if (std::any_of(by_task.begin(), by_task.end(),
                    [](const MatrixEntry& entry) { return !entry.CanDo(); })) {
        return std::nullopt;
    }
    return ContentOf(by_task, run.ResourceOf(resource), run.Parameters.TransportTime);
}

double SecondsOfYear(const Production& production) {
    constexpr double shifts = 3;
    constexpr double seconds_per_hour = 3600;
    return production.Days * shifts * kHoursPerShift * seconds_per_hour;
}

float CycleTimeAt(const Production& production, float capacity) {
    return ToSingle(SecondsOfYear(production) / static_cast<double>(capacity), "Capacity");
}

float StationTime(const WorkContent& content, int stations) {
    return SharedTime(content.WorkTime, stations);
}

double InvestmentOfArc(const StochRun& run, int resource, const WorkContent& content,
                       int stations) {
    return static_cast<double>(Investment(static_cast<std::int16_t>(stations), content.ToolCostSum,
                                          run.ResourceOf(resource)));
}

AnnualParts AnnualPartsOfArc(const StochRun& run, int resource, const WorkContent& content,
                             int stations, double production, double shifts) {
    const Resource& costs = run.ResourceOf(resource);
    return {InvestmentOfArc(run, resource, content, stations) * run.Parameters.ACF,
            MachineCost(production, StationTime(content, stations), costs),
            LabourCost(static_cast<std::int16_t>(stations), shifts * kHoursPerShift, run.Parameters,
                       costs)};
}

float AnnualCost(const AnnualParts& parts) {
    const float running = ToSingle(parts.Machine + parts.Labour, "AnnualLabor");
    return ToSingle(static_cast<double>(running) + parts.Capital, "Cost");
}

}  // namespace quarnel02
