#pragma once

#include <vector>

#include "stoch/Records.h"
#include "stoch/RunFiles.h"

namespace quarnel02 {

/// Expected production over capacity, units per year, as "EProd" holds it: a chain of straight
/// segments, of which the first one that holds a capacity counts.
class ExpectedProduction {
  public:
    /// Reads the file. Throws FileAccess.
    explicit ExpectedProduction(const RunFiles& files);

    [[nodiscard]] double At(float capacity) const;
    /// Expected demand that a capacity does not meet: mean demand less expected production, units
    /// per year; never negative.
    [[nodiscard]] double ShortfallAt(float capacity) const;
    /// The last volume, from `capacity` on, up to which the production is one straight line;
    /// kNoUpperEnd beyond the largest demand point.
    [[nodiscard]] float LineEnd(float capacity) const { return SegmentAt(capacity).VolHigh; }

  private:
    [[nodiscard]] const ExpectedProductionRecord& SegmentAt(float capacity) const;

    std::vector<ExpectedProductionRecord> m_segments;
};

}  // namespace quarnel02
