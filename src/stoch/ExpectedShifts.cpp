#include "stoch/ExpectedShifts.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "stoch/Curves.h"
#include "stoch/RecordFile.h"

namespace quarnel02 {

float ExpectedShiftCount(const StochRun& run, const std::vector<int>& shifts) {
    constexpr double percent = 100;
    double expected = 0;
    for (int point = 1; point <= run.DemandPoints; ++point) {
        const auto index = static_cast<std::size_t>(point);
        expected += static_cast<double>(run.Prob.at(index)) / percent * shifts.at(index);
    }
    return ToSingle(expected, "Expected shifts");
}

int ShiftsAt(float demand, float capacity) {
    const auto volume = static_cast<double>(demand);
    const auto most = static_cast<double>(capacity);
    if (most >= 3 * volume) {
        return 1;
    }
    return most >= 1.5 * volume ? 2 : 3;
}

ExpectedShifts::ExpectedShifts(const RunFiles& files) {
    RecordReader<ExpectedShiftRecord> file(files.ExpectedShifts());
    do {
        if (!file.Read(m_steps.emplace_back())) {
            ThrowRunFileError(files.ExpectedShifts(), "read to its end");
        }
    } while (m_steps.back().VolHigh != kNoUpperEnd);
}

const ExpectedShiftRecord& ExpectedShifts::StepAt(float capacity) const {
    return *std::find_if(m_steps.begin(), m_steps.end() - 1,
                         [&](const ExpectedShiftRecord& step) { return capacity < step.VolHigh; });
}

float ExpectedShifts::StepEnd(float capacity) const {
    const float high = StepAt(capacity).VolHigh;
    return high == kNoUpperEnd ? kNoUpperEnd : PreviousSingle(high);
}

}  // namespace quarnel02
