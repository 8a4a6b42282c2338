#include "line/AnnualCost.h"

#include "basic/Numbers.h"
#include "line/CostModel.h"
#include "line/WorkTime.h"

namespace quarnel02 {

AnnualParts AnnualPartsOf(const WorkContent& content, int stations, const Resource& resource,
                          const Production& production, double units, double shifts) {
    const auto count = static_cast<std::int16_t>(stations);
    const auto investment = static_cast<double>(Investment(count, content.ToolCostSum, resource));
    return {investment * production.ACF,
            MachineCost(units, SharedTime(content.WorkTime, stations), resource),
            LabourCost(count, shifts * kHoursPerShift, production, resource)};
}

float AnnualCost(const AnnualParts& parts) {
    const float running = ToSingle(parts.Machine + parts.Labour, "AnnualLabor");
    return ToSingle(static_cast<double>(running) + parts.Capital, "Cost");
}

double SecondsOfYear(const Production& production) {
    constexpr double shifts = 3;
    return production.Days * shifts * kHoursPerShift * kSecondsPerHour;
}

float CycleTimeAt(const Production& production, float capacity) {
    return ToSingle(SecondsOfYear(production) / static_cast<double>(capacity), "Capacity");
}

}  // namespace quarnel02
