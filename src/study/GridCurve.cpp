#include "study/GridCurve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quarnel02 {

namespace {

/// Sums of doubles that should be equal differ by less than this share.
constexpr double kRounding = 1e-12;

bool IsCheaper(const GridSegment& candidate, const GridSegment& other, int step) {
    const double cost = candidate.CostAt(step);
    const double limit = other.CostAt(step);
    return cost < limit - std::fabs(limit) * kRounding;
}

/// Appends pieces of segments; neighbouring pieces of one segment become one.
class Pieces {
  public:
    explicit Pieces(GridCurve& curve) : m_curve(curve) {}

    void Append(const GridSegment& source, int from, int to) {
        if (m_source == &source) {
            m_curve.back().To = to;
            return;
        }
        m_source = &source;
        m_curve.push_back({from, to, source.Base, source.Slope, source.Tag});
    }

  private:
    GridCurve& m_curve;
    const GridSegment* m_source = nullptr;
};

/// The first step behind `from` and up to `to` at which the comparison is what it is at `to`.
int FirstOfEnd(const GridSegment& first, const GridSegment& second, int from, int to) {
    const bool at_end = IsCheaper(second, first, to);
    const double slope = second.Slope - first.Slope;
    const double crossing = slope == 0 ? to : (first.Base - second.Base) / slope;
    int step = static_cast<int>(std::clamp(crossing, double(from) + 1, double(to)));
    while (step > from + 1 && IsCheaper(second, first, step - 1) == at_end) {
        --step;
    }
    while (step < to && IsCheaper(second, first, step) != at_end) {
        ++step;
    }
    return step;
}

void AppendCheaper(Pieces& pieces, const GridSegment& first, const GridSegment& second, int from,
                   int to) {
    const bool second_from = IsCheaper(second, first, from);
    const GridSegment& start = second_from ? second : first;
    if (IsCheaper(second, first, to) == second_from) {
        pieces.Append(start, from, to);
        return;
    }
    const int change = FirstOfEnd(first, second, from, to);
    pieces.Append(start, from, change - 1);
    pieces.Append(second_from ? first : second, change, to);
}

void AppendRest(Pieces& pieces, const GridCurve& curve, std::size_t place, int from) {
    for (; place < curve.size(); ++place) {
        pieces.Append(curve[place], std::max(from, curve[place].From), curve[place].To);
    }
}

}  // namespace

const GridSegment* SegmentAt(std::span<const GridSegment> curve, int step) {
    const auto segment =
        std::lower_bound(curve.begin(), curve.end(), step,
                         [](const GridSegment& each, int wanted) { return each.To < wanted; });
    return segment == curve.end() || step < segment->From ? nullptr : &*segment;
}

GridCurve Cheaper(const GridCurve& first, const GridCurve& second) {
    GridCurve cheaper;
    cheaper.reserve(first.size() + second.size());
    Pieces pieces(cheaper);
    std::size_t i = 0;
    std::size_t k = 0;
    int from = first.empty() ? 0 : first.front().From;
    while (i < first.size() && k < second.size()) {
        const int to = std::min(first[i].To, second[k].To);
        AppendCheaper(pieces, first[i], second[k], from, to);
        i += first[i].To == to ? 1U : 0U;
        k += second[k].To == to ? 1U : 0U;
        from = to + 1;
    }
    AppendRest(pieces, first, i, from);
    AppendRest(pieces, second, k, from);
    return cheaper;
}

GridCurve Behind(const GridCurve& last, const GridCurve& before, int previousTask) {
    GridCurve sum;
    sum.reserve(last.size() + before.size());
    for (std::size_t i = 0, k = 0; i < last.size() && k < before.size();) {
        const int to = std::min(last[i].To, before[k].To);
        GroupTag tag = last[i].Tag;
        tag.PreviousTask = static_cast<std::int16_t>(previousTask);
        sum.push_back({std::max(last[i].From, before[k].From), to, last[i].Base + before[k].Base,
                       last[i].Slope + before[k].Slope, tag});
        i += last[i].To == to ? 1U : 0U;
        k += before[k].To == to ? 1U : 0U;
    }
    return sum;
}

}  // namespace quarnel02
