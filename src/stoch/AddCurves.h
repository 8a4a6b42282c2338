#pragma once

#include <algorithm>
#include <cstdint>

#include "stoch/Curves.h"
#include "stoch/Records.h"

namespace quarnel02 {

/// The segment of a design whose last arc is `arc`.
inline DesignSegment WithArc(const ArcSegment& arc, int previousTask) {
    DesignSegment design;
    design.SegStart = arc.SegStart;
    design.SegEnd = arc.SegEnd;
    design.CostStart = arc.CostStart;
    design.CostEnd = arc.CostEnd;
    design.ArcResource = static_cast<std::int16_t>(ResourceOf(arc.Choice));
    design.PrevTask = static_cast<std::int16_t>(previousTask);
    design.ArcInfo = static_cast<std::int16_t>(StationsOf(arc.Choice));
    return design;
}

inline float SumAt(const ArcSegment& arc, const DesignSegment& prefix, float volume) {
    return static_cast<float>(CostAt(arc, volume) + CostAt(prefix, volume));
}

/// Adds the curve of an arc to that of the designs of the tasks before it, as far as both reach.
template <class ArcReader, class DesignReader, class Writer>
void AddCurves(ArcReader& arc, DesignReader& prefix, int previousTask, Writer& output) {
    while (!arc.AtEnd() && !prefix.AtEnd()) {
        const float from = std::max(arc.Current().SegStart, prefix.Current().SegStart);
        const float to = std::min(arc.Current().SegEnd, prefix.Current().SegEnd);
        DesignSegment sum = WithArc(arc.Current(), previousTask);
        sum.SegStart = from;
        sum.SegEnd = to;
        sum.CostStart = SumAt(arc.Current(), prefix.Current(), from);
        sum.CostEnd = SumAt(arc.Current(), prefix.Current(), to);
        output.Write(sum);
        arc.AdvancePast(to);
        prefix.AdvancePast(to);
    }
}

}  // namespace quarnel02
