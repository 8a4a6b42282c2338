#include "line/CostCurve.h"

#include <algorithm>
#include <cstddef>

namespace quarnel02 {

namespace {

/// Whether the line over both goes through the ends that the two share now.
bool Continues(const CurveSegment& first, const CurveSegment& second) {
    if (first.Tag != second.Tag || second.Start != NextSingle(first.End)) {
        return false;
    }
    const StraightLine both(first.Start, first.CostStart, second.End, second.CostEnd);
    return static_cast<float>(both.At(first.End)) == first.CostEnd &&
           static_cast<float>(both.At(second.Start)) == second.CostStart;
}

CurveTag TagAfter(CurveTag tag, int previousTask) {
    tag.PreviousTask = static_cast<std::int16_t>(previousTask);
    return tag;
}

}  // namespace

void CostCurve::Append(const CurveSegment& segment) {
    if (m_ending == CurveEnd::TooLong) {
        return;
    }
    if (!m_segments.empty() && Continues(m_segments.back(), segment)) {
        m_segments.back().End = segment.End;
        m_segments.back().CostEnd = segment.CostEnd;
        return;
    }
    if (m_segments.size() == kMostSegments) {
        m_ending = CurveEnd::TooLong;
        return;
    }
    m_segments.push_back(segment);
}

const CurveSegment* CostCurve::At(float volume) const {
    const auto segment =
        std::lower_bound(m_segments.begin(), m_segments.end(), volume,
                         [](const CurveSegment& each, float wanted) { return each.End < wanted; });
    return segment == m_segments.end() || volume < segment->Start ? nullptr : &*segment;
}

CostCurve WithPreviousTask(const CostCurve& curve, int previousTask) {
    CostCurve copy;
    copy.Reserve(curve.Segments().size());
    for (CurveSegment segment : curve.Segments()) {
        segment.Tag = TagAfter(segment.Tag, previousTask);
        copy.Append(segment);
    }
    return copy;
}

CostCurve Sum(const CostCurve& last, const CostCurve& before, int previousTask) {
    const auto lasts = last.Segments();
    const auto befores = before.Segments();
    CostCurve sum;
    sum.Reserve(std::min(lasts.size() + befores.size(), kMostSegments));
    for (std::size_t i = 0, k = 0; i < lasts.size() && k < befores.size();) {
        const float from = std::max(lasts[i].Start, befores[k].Start);
        const float to = std::min(lasts[i].End, befores[k].End);
        const StraightLine one = lasts[i].Line();
        const StraightLine other = befores[k].Line();
        sum.Append({from, to, static_cast<float>(one.At(from) + other.At(from)),
                    static_cast<float>(one.At(to) + other.At(to)),
                    TagAfter(lasts[i].Tag, previousTask)});
        i += lasts[i].End <= to ? 1U : 0U;
        k += befores[k].End <= to ? 1U : 0U;
    }
    return sum;
}

}  // namespace quarnel02
