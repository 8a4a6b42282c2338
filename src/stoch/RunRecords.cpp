#include "stoch/RunRecords.h"

#include <bit>
#include <cstring>
#include <span>

namespace quarnel02 {

namespace {

static_assert(std::endian::native == std::endian::little,
              "Run files are written in the machine's layout, which must be little-endian");

/// The end of the last piece of a curve over capacity that has no end.
constexpr float kEndMarker = -1;

/// Records of a fixed size, one behind the other.
template <std::size_t Size>
class Records {
  public:
    explicit Records(std::size_t count) { m_bytes.reserve(count * Size); }

    template <class... Fields>
    void Add(const Fields&... fields) {
        static_assert((sizeof(Fields) + ...) == Size);
        std::size_t at = m_bytes.size();
        m_bytes.resize(at + Size);
        ((std::memcpy(m_bytes.data() + at, &fields, sizeof(Fields)), at += sizeof(Fields)), ...);
    }
    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }

  private:
    std::string m_bytes;
};

float EndOrMarker(float high) {
    return high == kNoUpperEnd ? kEndMarker : high;
}

float Choice(const CurveTag& tag) {
    constexpr int most_stations_and_one = 4096;
    return static_cast<float>(tag.Resource * most_stations_and_one + tag.Stations);
}

}  // namespace

std::string ProductionRecords(const ProductionCurve& production) {
    Records<kProductionRecord> records(production.Pieces().size());
    for (const ProductionPiece& piece : production.Pieces()) {
        records.Add(piece.Low, EndOrMarker(piece.High), piece.ProductionLow, piece.ProductionHigh);
    }
    return records.Bytes();
}

std::string ShiftRecords(const ShiftCurve& shifts) {
    Records<kShiftRecord> records(shifts.Steps().size());
    for (const ShiftStep& step : shifts.Steps()) {
        records.Add(step.Low, EndOrMarker(step.High), step.Shifts);
    }
    return records.Bytes();
}

std::string ArcRecords(const CostCurve& curve) {
    Records<kArcRecord> records(curve.Segments().size());
    for (const CurveSegment& segment : curve.Segments()) {
        records.Add(segment.Start, segment.End, segment.CostStart, segment.CostEnd,
                    Choice(segment.Tag));
    }
    return records.Bytes();
}

std::string DesignRecords(const CostCurve& curve) {
    Records<kDesignRecord> records(curve.Segments().size());
    for (const CurveSegment& segment : curve.Segments()) {
        records.Add(segment.Start, segment.End, segment.CostStart, segment.CostEnd,
                    segment.Tag.Resource, segment.Tag.PreviousTask, segment.Tag.Stations);
    }
    return records.Bytes();
}

}  // namespace quarnel02
