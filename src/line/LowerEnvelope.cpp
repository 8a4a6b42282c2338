#include "line/LowerEnvelope.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace quarnel02 {

namespace {

double Plain(double cost) {
    return cost;
}

double TenThousandForZero(double cost) {
    constexpr double stands_for_zero = 10000;
    return cost == 0 ? stands_for_zero : cost;
}

/// Walks a curve, one segment and its line in hand.
class Walker {
  public:
    explicit Walker(const CostCurve& curve) : m_segments(curve.Segments()) { Take(); }

    [[nodiscard]] bool AtEnd() const { return m_at == m_segments.size(); }
    [[nodiscard]] const CurveSegment& Current() const { return m_segments[m_at]; }
    [[nodiscard]] double CostAt(float volume) const { return m_line.At(volume); }

    void Advance() {
        ++m_at;
        Take();
    }
    /// Steps over the segment in hand when it ends at or before `volume`.
    void AdvancePast(float volume) {
        if (Current().End <= volume) {
            Advance();
        }
    }

  private:
    void Take() {
        if (!AtEnd()) {
            m_line = Current().Line();
        }
    }

    std::span<const CurveSegment> m_segments;
    std::size_t m_at = 0;
    StraightLine m_line{0, 0, 0, 0};
};

/// Appends pieces of source segments; neighbouring pieces of one segment go out as one.
class PieceAppender {
  public:
    explicit PieceAppender(CostCurve& output) : m_output(output) {}

    void Append(const CurveSegment& source, float from, float to) {
        if (m_source != &source) {
            Flush();
            m_source = &source;
            m_from = from;
        }
        m_to = to;
    }

    void Flush() {
        if (m_source != nullptr) {
            const StraightLine line = m_source->Line();
            m_output.Append({m_from, m_to, static_cast<float>(line.At(m_from)),
                             static_cast<float>(line.At(m_to)), m_source->Tag});
        }
        m_source = nullptr;
    }

  private:
    CostCurve& m_output;
    const CurveSegment* m_source = nullptr;
    float m_from = 0;
    float m_to = 0;
};

template <auto Key>
class Merge {
  public:
    Merge(const CostCurve& first, const CostCurve& second, CostCurve& output)
        : m_first(first), m_second(second), m_pieces(output) {}

    void Run() {
        float from = (m_first.AtEnd() ? m_second : m_first).Current().Start;
        while (!m_first.AtEnd() && !m_second.AtEnd()) {
            const float to = std::min(m_first.Current().End, m_second.Current().End);
            AppendLower(from, to);
            m_first.AdvancePast(to);
            m_second.AdvancePast(to);
            from = NextSingle(to);
        }
        AppendRest(m_first, from);
        AppendRest(m_second, from);
        m_pieces.Flush();
    }

  private:
    [[nodiscard]] bool FirstIsLower(float volume) const {
        return Key(m_first.CostAt(volume)) <= Key(m_second.CostAt(volume));
    }

    void AppendLower(float from, float to) {
        const bool first = FirstIsLower(from);
        const CurveSegment& before = (first ? m_first : m_second).Current();
        if (FirstIsLower(to) == first) {
            m_pieces.Append(before, from, to);
            return;
        }
        const float last = LastBeforeCrossing(from, to, first);
        m_pieces.Append(before, from, last);
        m_pieces.Append((first ? m_second : m_first).Current(), NextSingle(last), to);
    }

    /// The last volume at which the curve that is lower at `from` is still so.
    [[nodiscard]] float LastBeforeCrossing(float from, float to, bool first) const {
        float low = from;
        float high = to;
        const float guess = CrossingGuess(from, to);
        for (const float probe : {guess, NextSingle(guess), PreviousSingle(guess)}) {
            Narrow(low, high, probe, first);
        }
        while (NextSingle(low) < high) {
            Narrow(low, high, MiddleSingle(low, high), first);
        }
        return low;
    }

    void Narrow(float& low, float& high, float probe, bool first) const {
        if (probe > low && probe < high) {
            (FirstIsLower(probe) == first ? low : high) = probe;
        }
    }

    /// Where the lines cross: the difference of the values over the difference of the slopes.
    [[nodiscard]] float CrossingGuess(float from, float to) const {
        const double gap_from = m_first.CostAt(from) - m_second.CostAt(from);
        const double gap_to = m_first.CostAt(to) - m_second.CostAt(to);
        const auto start = static_cast<double>(from);
        const double width = static_cast<double>(to) - start;
        const double crossing =
            gap_from == gap_to ? start : start + width * gap_from / (gap_from - gap_to);
        return static_cast<float>(std::clamp(crossing, start, start + width));
    }

    void AppendRest(Walker& curve, float from) {
        for (; !curve.AtEnd(); curve.Advance()) {
            m_pieces.Append(curve.Current(), from, curve.Current().End);
            from = NextSingle(curve.Current().End);
        }
    }

    Walker m_first;
    Walker m_second;
    PieceAppender m_pieces;
};

}  // namespace

CostCurve LowerEnvelope(const CostCurve& first, const CostCurve& second, ZeroCost zero) {
    CostCurve envelope;
    if (first.IsEmpty() && second.IsEmpty()) {
        return envelope;
    }
    envelope.Reserve(std::min(first.Segments().size() + second.Segments().size(), kMostSegments));
    if (zero == ZeroCost::AsItIs) {
        Merge<Plain>(first, second, envelope).Run();
    } else {
        Merge<TenThousandForZero>(first, second, envelope).Run();
    }
    return envelope;
}

}  // namespace quarnel02
