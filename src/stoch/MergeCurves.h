#pragma once

#include <algorithm>

#include "stoch/CurveFile.h"

namespace quarnel02 {

/// Writes pieces of source segments; neighbouring pieces of one segment go out as one, so that a
/// segment is cut only where another curve takes over.
template <class Reader, class Writer>
class PieceWriter {
  public:
    explicit PieceWriter(Writer& output) : m_output(output) {}

    /// The piece from `from` to `to` of the segment that `source` has in hand.
    void Write(const Reader& source, float from, float to) {
        if (m_source == &source && m_number == source.Number()) {
            m_to = to;
            return;
        }
        Flush();
        m_source = &source;
        m_number = source.Number();
        m_segment = source.Current();
        m_from = from;
        m_to = to;
    }

    void Flush() {
        if (m_source != nullptr) {
            m_output.Write(Cut(m_segment, m_from, m_to));
        }
        m_source = nullptr;
    }

  private:
    Writer& m_output;
    const Reader* m_source = nullptr;
    int m_number = 0;
    typename Reader::SegmentType m_segment{};
    float m_from = 0;
    float m_to = 0;
};

/// Merges two curves that start at the same volume into their lower envelope; where they are
/// equal the first one stands. Where one of them has ended the other one goes on alone.
/// `key` gives the value by which a cost is compared. Readers and writers are those of files or
/// anything that walks and takes segments alike.
template <class Reader, class Writer, class Key>
class CurveMerge {
  public:
    CurveMerge(Reader& first, Reader& second, Writer& output, Key key)
        : m_first(first), m_second(second), m_pieces(output), m_key(key) {}

    void Run() {
        if (m_first.AtEnd() && m_second.AtEnd()) {
            return;
        }
        float from = (m_first.AtEnd() ? m_second : m_first).Current().SegStart;
        while (!m_first.AtEnd() && !m_second.AtEnd()) {
            const float to = std::min(m_first.Current().SegEnd, m_second.Current().SegEnd);
            WriteLower(from, to);
            m_first.AdvancePast(to);
            m_second.AdvancePast(to);
            from = NextSingle(to);
        }
        WriteRest(m_first, from);
        WriteRest(m_second, from);
        m_pieces.Flush();
    }

  private:
    [[nodiscard]] bool FirstIsLower(float volume) const {
        return m_key(CostAt(m_first.Current(), volume)) <=
               m_key(CostAt(m_second.Current(), volume));
    }

    void WriteLower(float from, float to) {
        const bool first = FirstIsLower(from);
        const Reader& before = first ? m_first : m_second;
        if (FirstIsLower(to) == first) {
            m_pieces.Write(before, from, to);
            return;
        }
        const float last = LastBeforeCrossing(from, to, first);
        m_pieces.Write(before, from, last);
        m_pieces.Write(first ? m_second : m_first, NextSingle(last), to);
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
        const double gap_from = CostAt(m_first.Current(), from) - CostAt(m_second.Current(), from);
        const double gap_to = CostAt(m_first.Current(), to) - CostAt(m_second.Current(), to);
        const auto start = static_cast<double>(from);
        const double width = static_cast<double>(to) - start;
        const double crossing =
            gap_from == gap_to ? start : start + width * gap_from / (gap_from - gap_to);
        return static_cast<float>(std::clamp(crossing, start, start + width));
    }

    void WriteRest(Reader& curve, float from) {
        for (; !curve.AtEnd(); curve.Advance()) {
            m_pieces.Write(curve, from, curve.Current().SegEnd);
            from = NextSingle(curve.Current().SegEnd);
        }
    }

    Reader& m_first;
    Reader& m_second;
    PieceWriter<Reader, Writer> m_pieces;
    Key m_key;
};

/// Merges the curves of two files into a third. The volume at which the result had to end early,
/// if it had to.
template <class Segment, class Key>
std::optional<float> MergeCurves(const std::filesystem::path& first,
                                 const std::filesystem::path& second,
                                 const std::filesystem::path& output, Key key) {
    CurveReader<Segment> first_curve(first);
    CurveReader<Segment> second_curve(second);
    CurveWriter<Segment> writer(output);
    CurveMerge(first_curve, second_curve, writer, key).Run();
    return writer.Close();
}

}  // namespace quarnel02
