#pragma once

#include <vector>

#include "stoch/Records.h"
#include "stoch/RunFiles.h"
#include "stoch/StochRun.h"

namespace quarnel02 {

/// Expected shifts per day when demand point k works shifts[k] of them, k from 1.
float ExpectedShiftCount(const StochRun& run, const std::vector<int>& shifts);

/// Shifts worked per day at a demand (units per year) with a capacity: 1 to 3.
int ShiftsAt(float demand, float capacity);

/// Expected shifts over capacity as "EShift" holds them: a step on each [VolLow, VolHigh).
class ExpectedShifts {
  public:
    /// Reads the file. Throws FileAccess.
    explicit ExpectedShifts(const RunFiles& files);

    [[nodiscard]] double At(float capacity) const {
        return static_cast<double>(StepAt(capacity).Shifts);
    }
    /// The last volume of the step that `capacity` is on; kNoUpperEnd on the last one.
    [[nodiscard]] float StepEnd(float capacity) const;
    [[nodiscard]] const std::vector<ExpectedShiftRecord>& Steps() const { return m_steps; }

  private:
    [[nodiscard]] const ExpectedShiftRecord& StepAt(float capacity) const;

    std::vector<ExpectedShiftRecord> m_steps;
};

}  // namespace quarnel02
