#include "stoch/BuildShiftTable.h"

#include <vector>

#include "picture/Chart.h"
#include "picture/Inks.h"
#include "stoch/RunRecords.h"

namespace quarnel02 {

namespace {

/// The capacities that a chart shows.
struct DemandRange {
    double First;
    double Last;
};

void DrawSteps(Picture& picture, const std::vector<ShiftStep>& steps, const DemandRange& range) {
    const auto most = static_cast<double>(steps.front().Shifts);
    Chart chart(picture, {"Expected Shifts",
                          {range.First, range.Last, "Capacity (units/year)", true, false},
                          {0, most, "Shifts per day", false, false},
                          {},
                          {}});
    double before = most;
    for (const ShiftStep& step : steps) {
        const auto low = static_cast<double>(step.Low);
        const double high = step.High == kNoUpperEnd ? range.Last : static_cast<double>(step.High);
        const auto level = static_cast<double>(step.Shifts);
        chart.Line(low, before, low, level, kBlueInk, 2);
        chart.Line(low, level, high, level, kBlueInk, 2);
        before = level;
    }
}

void DrawShifts(const DemandDistribution& demand, Picture& picture) {
    const auto steps = demand.Shifts().Steps();
    const DemandRange range{static_cast<double>(demand.FirstVolume()),
                            static_cast<double>(demand.LastVolume())};
    picture.Compose([all = std::vector<ShiftStep>(steps.begin(), steps.end()),
                     range](Picture& each) { DrawSteps(each, all, range); });
}

}  // namespace

void BuildShiftTable(const DemandDistribution& demand, const RunFiles& files, Picture& picture) {
    files.Write(kShiftTable, ShiftRecords(demand.Shifts()));
    DrawShifts(demand, picture);
}

}  // namespace quarnel02
