#include "line/FixedDemand.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "line/WorkTime.h"

namespace quarnel02 {

Workload WorkloadOf(const FixedDemandRequest& request, const Production& production) {
    if (request.Volume == 0) {
        throw RunTimeError(ErrorKind::DivisionByZero,
                           "Fixed Demand is 0. Enter an annual volume above 0.");
    }
    if (request.Volume < 0) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Fixed Demand: " + NumberText(request.Volume) +
                               " is negative. Enter an annual volume above 0.");
    }
    return {request.Volume, request.Shifts,
            production.Days * request.Shifts * kHoursPerShift * kSecondsPerHour / request.Volume};
}

bool IsOverLimit(const PathwayCost& cost, std::optional<std::int16_t> stationLimit) {
    return cost.OverEveryLimit || (stationLimit && cost.Stations > *stationLimit);
}

}  // namespace quarnel02
