#include "stoch/BuildShiftTable.h"

#include "picture/Chart.h"
#include "stoch/RunRecords.h"

namespace quarnel02 {

namespace {

constexpr Colour kStep{21, 101, 192};

void DrawShifts(const DemandDistribution& demand, Picture& picture) {
    constexpr int most_ticks = 8;
    const auto steps = demand.Shifts().Steps();
    const auto last = static_cast<double>(demand.LastVolume());
    const auto most = static_cast<double>(steps.front().Shifts);
    Chart chart(picture, "Expected Shifts",
                {RoundScale(static_cast<double>(demand.FirstVolume()), last, most_ticks),
                 "Capacity", true, false},
                {RoundScale(0, most, 6), "Shifts per day", false, false});
    double before = most;
    for (const ShiftStep& step : steps) {
        const auto low = static_cast<double>(step.Low);
        const double high = step.High == kNoUpperEnd ? last : static_cast<double>(step.High);
        const auto level = static_cast<double>(step.Shifts);
        chart.Line(low, before, low, level, kStep, 2);
        chart.Line(low, level, high, level, kStep, 2);
        before = level;
    }
}

}  // namespace

void BuildShiftTable(const DemandDistribution& demand, const RunFiles& files, Picture& picture) {
    files.Write(kShiftTable, ShiftRecords(demand.Shifts()));
    DrawShifts(demand, picture);
}

}  // namespace quarnel02
