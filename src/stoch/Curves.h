#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quarnel02 {

/// The neighbours of a volume in single precision. Curves belong to every single exactly once, so
/// a segment that ends at x is followed by one that starts at NextSingle(x).
inline float NextSingle(float value) {
    return std::nextafter(value, std::numeric_limits<float>::infinity());
}
inline float PreviousSingle(float value) {
    return std::nextafter(value, -std::numeric_limits<float>::infinity());
}

/// The smallest single that is not below `value`.
inline float CeilingSingle(double value) {
    const auto rounded = static_cast<float>(value);
    return static_cast<double>(rounded) < value ? NextSingle(rounded) : rounded;
}

/// The single in the middle, by count of singles, between two volumes of 0 or above.
inline float MiddleSingle(float low, float high) {
    const auto low_bits = std::bit_cast<std::uint32_t>(low);
    const auto high_bits = std::bit_cast<std::uint32_t>(high);
    return std::bit_cast<float>(low_bits + (high_bits - low_bits) / 2);
}

/// Value at `x` of the straight line from (x1, y1) to (x2, y2); y1 where the ends coincide.
inline double LineAt(double x, double x1, double y1, double x2, double y2) {
    if (x == x2 && x1 != x2) {
        return y2;
    }
    const double slope = x1 == x2 ? 0 : (y2 - y1) / (x2 - x1);
    return y1 + (x - x1) * slope;
}

/// Cost of a segment at one of its volumes.
template <class Segment>
double CostAt(const Segment& segment, float volume) {
    return LineAt(static_cast<double>(volume), static_cast<double>(segment.SegStart),
                  static_cast<double>(segment.CostStart), static_cast<double>(segment.SegEnd),
                  static_cast<double>(segment.CostEnd));
}

/// The part of a segment from volume `from` to volume `to`.
template <class Segment>
Segment Cut(const Segment& segment, float from, float to) {
    Segment part = segment;
    part.SegStart = from;
    part.SegEnd = to;
    part.CostStart = static_cast<float>(CostAt(segment, from));
    part.CostEnd = static_cast<float>(CostAt(segment, to));
    return part;
}

}  // namespace quarnel02
