#pragma once

#include <cmath>
#include <limits>

#include "line/CostModel.h"
#include "line/FixedDemand.h"

namespace quarnel02::test {

/// The cost of a station group with stations counted one by one; costs stay 0 beyond 32,767.
inline PathwayCost CostTwin(const WorkContent& content, const Resource& resource,
                            const Production& production, const FixedDemandRequest& request) {
    constexpr double tolerance = 1e-6;
    constexpr double seconds_per_shift = 8.0 * 3600;
    const auto available = static_cast<double>(
        static_cast<float>(production.Days * request.Shifts * seconds_per_shift / request.Volume));
    int stations = 1;
    float time = content.WorkTime;
    while (static_cast<double>(time) > available + std::abs(available) * tolerance) {
        if (stations == std::numeric_limits<std::int16_t>::max()) {
            return {static_cast<std::int16_t>(stations), time, 0, 0, 0, true};
        }
        ++stations;
        time = static_cast<float>(static_cast<double>(content.WorkTime) / stations);
    }
    const auto investment = static_cast<float>(
        stations * (static_cast<double>(content.ToolCostSum) + resource.FixedCost) * resource.ICF);
    const double machine = (resource.VarCost / 3600) * request.Volume * static_cast<double>(time) *
                           resource.UpTime * 0.01;
    const double labour = stations * (request.Shifts * 8) * production.Days * production.LaborCost /
                          resource.StatPerWrk;
    const auto running = static_cast<float>(machine + labour);
    const auto cost = static_cast<float>(static_cast<double>(running) +
                                         static_cast<double>(investment) * production.ACF);
    return {static_cast<std::int16_t>(stations), time, investment, running, cost, false};
}

}  // namespace quarnel02::test
