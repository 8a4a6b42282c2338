#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "line/Singles.h"

namespace quarnel02 {

/// The most segments that a curve may have.
inline constexpr std::size_t kMostSegments = 10000;

/// What a segment of a cost curve is the cost of.
struct CurveTag {
    std::int16_t Resource = 0;      ///< of the last station group
    std::int16_t Stations = 0;      ///< its parallel stations
    std::int16_t PreviousTask = 0;  ///< last task before that group; 0 when it starts the line

    bool operator==(const CurveTag&) const = default;
};

/// A straight piece of a cost curve over capacity. Belongs to every single-precision volume from
/// Start to End, both included.
struct CurveSegment {
    float Start = 0;      ///< units per year
    float End = 0;        ///< units per year
    float CostStart = 0;  ///< dollars per year at Start
    float CostEnd = 0;    ///< dollars per year at End
    CurveTag Tag;

    [[nodiscard]] StraightLine Line() const { return {Start, CostStart, End, CostEnd}; }
    /// Dollars per year.
    [[nodiscard]] double CostAt(float volume) const { return Line().At(volume); }

    bool operator==(const CurveSegment&) const = default;
};

/// Why a curve has no cost for volumes that it should reach.
enum class CurveEnd : std::int8_t {
    None,            ///< it reaches as far as what it was made from
    TooLong,         ///< more than kMostSegments segments would be needed
    TooManyStations  ///< more parallel stations than a segment can hold would be needed
};

/// A cost over volume as straight segments, of which every single-precision volume from the first
/// to the last one has exactly one. Between segments the cost may jump.
class CostCurve {
  public:
    /// Adds a segment that starts at the next single behind the last one. Where it continues the
    /// straight line of that one with the same tag, the two become one segment. A curve of
    /// kMostSegments segments takes no more and says so, TooLong.
    void Append(const CurveSegment& segment);
    void Reserve(std::size_t segments) { m_segments.reserve(segments); }
    void SetEnding(CurveEnd ending) { m_ending = ending; }

    [[nodiscard]] bool IsEmpty() const { return m_segments.empty(); }
    [[nodiscard]] std::span<const CurveSegment> Segments() const { return m_segments; }
    [[nodiscard]] CurveEnd Ending() const { return m_ending; }
    /// First and last volume; of a curve that is not empty.
    [[nodiscard]] float Start() const { return m_segments.front().Start; }
    [[nodiscard]] float End() const { return m_segments.back().End; }

    /// The segment of a volume; nullptr outside the curve.
    [[nodiscard]] const CurveSegment* At(float volume) const;

  private:
    std::vector<CurveSegment> m_segments;
    CurveEnd m_ending = CurveEnd::None;
};

/// A curve with another previous task in every tag.
CostCurve WithPreviousTask(const CostCurve& curve, int previousTask);

/// The sum of two curves that start at the same volume, as far as both reach. Segments carry the
/// tags of `last` with `previousTask`; their ends are singles, rounded from the sums.
CostCurve Sum(const CostCurve& last, const CostCurve& before, int previousTask);

}  // namespace quarnel02
