#include "stoch/BuildShiftTable.h"

#include <algorithm>
#include <vector>

#include "basic/Numbers.h"
#include "stoch/Curves.h"
#include "stoch/DemandChart.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/RecordFile.h"

namespace quarnel02 {

namespace {

/// From capacity Volume on, demand point Point needs one shift less.
struct ShiftEntry {
    int Point;
    float Volume;
};

std::vector<ShiftEntry> ShiftEntries(const StochRun& run) {
    constexpr double two_shifts_from = 1.5;
    constexpr double one_shift_from = 3;
    std::vector<ShiftEntry> entries;
    for (int point = 1; point <= run.DemandPoints; ++point) {
        const auto volume = static_cast<double>(run.Volume.at(static_cast<std::size_t>(point)));
        entries.push_back({point, CeilingSingle(two_shifts_from * volume)});
        entries.push_back({point, CeilingSingle(one_shift_from * volume)});
    }
    std::stable_sort(entries.begin(), entries.end(),
                     [](const ShiftEntry& a, const ShiftEntry& b) { return a.Volume < b.Volume; });
    return entries;
}

}  // namespace

void BuildShiftTable(StochRun& run) {
    RecordWriter<ExpectedShiftRecord> file(run.Files.ExpectedShifts());
    std::vector<int> shifts(static_cast<std::size_t>(run.DemandPoints) + 1, 3);
    float low = run.FirstVolume;
    for (const auto& [point, volume] : ShiftEntries(run)) {
        if (volume > low) {
            file.Write({low, volume, ExpectedShiftCount(run, shifts)});
            low = volume;
        }
        --shifts[static_cast<std::size_t>(point)];
    }
    file.Write({low, kNoUpperEnd, ExpectedShiftCount(run, shifts)});
    file.Close();
    DrawShiftTable(run);
}

}  // namespace quarnel02
