#pragma once

#include <filesystem>
#include <optional>

#include "stoch/Curves.h"
#include "stoch/RecordFile.h"

namespace quarnel02 {

/// The most records that a curve's file may hold.
inline constexpr int kMostRecords = 10000;

/// Writes a curve segment by segment, in ascending volume without gaps. Neighbours that continue
/// one straight line with the same choice become one record. A curve of more than kMostRecords
/// records ends there.
template <class Segment>
class CurveWriter {
  public:
    explicit CurveWriter(const std::filesystem::path& path) : m_file(path) {}

    void Write(const Segment& segment) {
        if (m_truncated) {
            return;
        }
        if (m_pending && Continues(*m_pending, segment)) {
            m_pending->SegEnd = segment.SegEnd;
            m_pending->CostEnd = segment.CostEnd;
            return;
        }
        Flush();
        if (m_records == kMostRecords) {
            m_truncated = true;
            return;
        }
        m_pending = segment;
    }

    /// Ends the file. The volume at which the curve had to end early, if it had to.
    std::optional<float> Close() {
        Flush();
        m_file.Close();
        return m_truncated ? std::optional(m_end) : std::nullopt;
    }

  private:
    /// Whether the line over both goes through the ends that the two share now.
    static bool Continues(const Segment& first, const Segment& second) {
        if (!first.SameChoice(second) || second.SegStart != NextSingle(first.SegEnd)) {
            return false;
        }
        Segment both = first;
        both.SegEnd = second.SegEnd;
        both.CostEnd = second.CostEnd;
        return static_cast<float>(CostAt(both, first.SegEnd)) == first.CostEnd &&
               static_cast<float>(CostAt(both, second.SegStart)) == second.CostStart;
    }

    void Flush() {
        if (!m_pending) {
            return;
        }
        m_file.Write(*m_pending);
        m_end = m_pending->SegEnd;
        ++m_records;
        m_pending.reset();
    }

    RecordWriter<Segment> m_file;
    std::optional<Segment> m_pending;
    int m_records = 0;
    float m_end = 0;
    bool m_truncated = false;
};

/// Walks a curve's file, one segment in hand.
template <class Segment>
class CurveReader {
  public:
    using SegmentType = Segment;

    explicit CurveReader(const std::filesystem::path& path) : m_file(path) { Advance(); }

    [[nodiscard]] bool AtEnd() const { return m_atEnd; }
    [[nodiscard]] const Segment& Current() const { return m_segment; }
    /// Number of the segment in hand, from 1.
    [[nodiscard]] int Number() const { return m_number; }

    void Advance() {
        m_atEnd = !m_file.Read(m_segment);
        ++m_number;
    }

    /// Steps over the segment in hand when it ends at or before `volume`.
    void AdvancePast(float volume) {
        if (m_segment.SegEnd <= volume) {
            Advance();
        }
    }

  private:
    RecordReader<Segment> m_file;
    Segment m_segment{};
    bool m_atEnd = false;
    int m_number = 0;
};

}  // namespace quarnel02
