#include "line/ExpectedPenalties.h"

#include <algorithm>

namespace quarnel02 {

CostCurve WithExpectedPenalties(const CostCurve& curve, const ProductionCurve& production,
                                float penaltyPerUnit) {
    const auto cost_at = [&](const CurveSegment& segment, float volume) {
        return static_cast<float>(segment.CostAt(volume) + production.ShortfallAt(volume) *
                                                               static_cast<double>(penaltyPerUnit));
    };
    CostCurve sum;
    for (const CurveSegment& segment : curve.Segments()) {
        for (float from = segment.Start; from <= segment.End;) {
            const float to = std::min(segment.End, production.LineEnd(from));
            sum.Append({from, to, cost_at(segment, from), cost_at(segment, to), segment.Tag});
            from = NextSingle(to);
        }
    }
    return sum;
}

}  // namespace quarnel02
