#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quarnel02 {

static_assert(std::endian::native == std::endian::little,
              "Run files are written in the machine's layout, which must be little-endian");

/// A record of fixed length as its bytes stand in a run file, without padding.
template <std::size_t Size>
using RecordBytes = std::array<std::byte, Size>;

/// Copies fields one behind the other into a record.
template <std::size_t Size, class... Fields>
RecordBytes<Size> Packed(const Fields&... fields) {
    static_assert((sizeof(Fields) + ...) == Size);
    RecordBytes<Size> bytes{};
    std::size_t at = 0;
    ((std::memcpy(bytes.data() + at, &fields, sizeof(Fields)), at += sizeof(Fields)), ...);
    return bytes;
}

/// Copies a record's bytes into fields, one behind the other.
template <std::size_t Size, class... Fields>
void Unpack(const RecordBytes<Size>& bytes, Fields&... fields) {
    static_assert((sizeof(Fields) + ...) == Size);
    std::size_t at = 0;
    ((std::memcpy(&fields, bytes.data() + at, sizeof(Fields)), at += sizeof(Fields)), ...);
}

/// Marks the last record of "EProd" and "EShift" in VolHigh: no upper end.
inline constexpr float kNoUpperEnd = -1;

/// "EProd": expected production between two neighbouring demand points, units per year.
struct ExpectedProductionRecord {
    static constexpr std::size_t kSize = 16;
    float VolLow = 0;
    float VolHigh = 0;
    float EProdLow = 0;   ///< expected production at capacity VolLow
    float EProdHigh = 0;  ///< at VolHigh

    [[nodiscard]] RecordBytes<kSize> Pack() const {
        return Packed<kSize>(VolLow, VolHigh, EProdLow, EProdHigh);
    }
    void Read(const RecordBytes<kSize>& bytes) {
        Unpack(bytes, VolLow, VolHigh, EProdLow, EProdHigh);
    }
};

/// "EShift": expected shifts worked per day at capacities from VolLow up to, not including,
/// VolHigh.
struct ExpectedShiftRecord {
    static constexpr std::size_t kSize = 12;
    float VolLow = 0;
    float VolHigh = 0;
    float Shifts = 0;

    [[nodiscard]] RecordBytes<kSize> Pack() const { return Packed<kSize>(VolLow, VolHigh, Shifts); }
    void Read(const RecordBytes<kSize>& bytes) { Unpack(bytes, VolLow, VolHigh, Shifts); }
};

/// A straight piece of an arc's cost curve over capacity ("F", "IT", "TempA", "TempC"). Belongs to
/// every single-precision volume from SegStart to SegEnd, both included.
struct ArcSegment {
    static constexpr std::size_t kSize = 20;
    float SegStart = 0;   ///< units per year
    float SegEnd = 0;     ///< units per year
    float CostStart = 0;  ///< dollars per year at SegStart
    float CostEnd = 0;    ///< dollars per year at SegEnd
    float Choice = 0;     ///< resource number x 4096 + parallel stations

    [[nodiscard]] RecordBytes<kSize> Pack() const {
        return Packed<kSize>(SegStart, SegEnd, CostStart, CostEnd, Choice);
    }
    void Read(const RecordBytes<kSize>& bytes) {
        Unpack(bytes, SegStart, SegEnd, CostStart, CostEnd, Choice);
    }
    [[nodiscard]] bool SameChoice(const ArcSegment& other) const { return Choice == other.Choice; }
};

/// A straight piece of the cost curve of the best designs of a task prefix ("Temp", "Final").
struct DesignSegment {
    static constexpr std::size_t kSize = 22;
    float SegStart = 0;
    float SegEnd = 0;
    float CostStart = 0;
    float CostEnd = 0;
    std::int16_t ArcResource = 0;  ///< resource of the last arc
    std::int16_t PrevTask = 0;     ///< last task before the last arc; 0 when it starts the line
    std::int16_t ArcInfo = 0;      ///< parallel stations of the last arc

    [[nodiscard]] RecordBytes<kSize> Pack() const {
        return Packed<kSize>(SegStart, SegEnd, CostStart, CostEnd, ArcResource, PrevTask, ArcInfo);
    }
    void Read(const RecordBytes<kSize>& bytes) {
        Unpack(bytes, SegStart, SegEnd, CostStart, CostEnd, ArcResource, PrevTask, ArcInfo);
    }
    [[nodiscard]] bool SameChoice(const DesignSegment& other) const {
        return ArcResource == other.ArcResource && PrevTask == other.PrevTask &&
               ArcInfo == other.ArcInfo;
    }
};

/// Largest resource number and station count that a Choice can hold.
inline constexpr int kMostInChoice = 4095;

constexpr float ToChoice(int resource, int stations) {
    return static_cast<float>(resource * (kMostInChoice + 1) + stations);
}
constexpr int ResourceOf(float choice) {
    return static_cast<int>(choice) / (kMostInChoice + 1);
}
constexpr int StationsOf(float choice) {
    return static_cast<int>(choice) % (kMostInChoice + 1);
}

}  // namespace quarnel02
