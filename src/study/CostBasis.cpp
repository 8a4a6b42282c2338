#include "study/CostBasis.h"

#include "line/AnnualCost.h"

namespace quarnel02 {

CostBasis BasisOf(const FixedDemandRequest& request, const Production& production) {
    const Workload workload = WorkloadOf(request, production);
    const auto shifts = static_cast<double>(request.Shifts);
    return {false, request.Volume, shifts, request.Volume, shifts, workload.AvailableCycleTime};
}

CostBasis BasisOf(const DemandDistribution& demand, float capacity, const Production& production) {
    constexpr double all_shifts = 3;
    return {true,
            static_cast<double>(capacity),
            all_shifts,
            demand.Production().At(capacity),
            demand.Shifts().At(capacity),
            static_cast<double>(CycleTimeAt(production, capacity))};
}

}  // namespace quarnel02
