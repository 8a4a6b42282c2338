#include "stoch/ExpectedProduction.h"

#include <algorithm>

#include "stoch/Curves.h"
#include "stoch/RecordFile.h"

namespace quarnel02 {

ExpectedProduction::ExpectedProduction(const RunFiles& files) {
    RecordReader<ExpectedProductionRecord> file(files.ExpectedProduction());
    do {
        if (!file.Read(m_segments.emplace_back())) {
            ThrowRunFileError(files.ExpectedProduction(), "read to its end");
        }
    } while (m_segments.back().VolHigh != kNoUpperEnd);
}

const ExpectedProductionRecord& ExpectedProduction::SegmentAt(float capacity) const {
    return *std::find_if(
        m_segments.begin(), m_segments.end() - 1,
        [&](const ExpectedProductionRecord& segment) { return capacity <= segment.VolHigh; });
}

double ExpectedProduction::At(float capacity) const {
    const ExpectedProductionRecord& segment = SegmentAt(capacity);
    return LineAt(static_cast<double>(capacity), static_cast<double>(segment.VolLow),
                  static_cast<double>(segment.EProdLow), static_cast<double>(segment.VolHigh),
                  static_cast<double>(segment.EProdHigh));
}

double ExpectedProduction::ShortfallAt(float capacity) const {
    const auto mean = static_cast<double>(m_segments.back().EProdHigh);
    return std::max(0.0, mean - At(capacity));
}

}  // namespace quarnel02
