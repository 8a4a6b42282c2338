#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quarnel02 {

/// The neighbours of a volume in single precision. Curves belong to every single exactly once, so
/// a segment that ends at x is followed by one that starts at NextSingle(x).
inline float NextSingle(float value) {
    constexpr float infinity = std::numeric_limits<float>::infinity();
    if (value > 0 && value < infinity) {
        // Every step along a curve takes this; a sixth of a design's time went into the library's.
        return std::bit_cast<float>(std::bit_cast<std::uint32_t>(value) + 1);
    }
    return std::nextafter(value, infinity);
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

/// The straight line through two points. Both are met exactly, whatever the rounding between them;
/// where the points have one x, the line is level at the first of them.
class StraightLine {
  public:
    StraightLine(float x1, float y1, float x2, float y2)
        : m_x1(static_cast<double>(x1)),
          m_y1(static_cast<double>(y1)),
          m_x2(static_cast<double>(x2)),
          m_y2(static_cast<double>(y2)),
          m_slope(x1 == x2 ? 0 : (m_y2 - m_y1) / (m_x2 - m_x1)) {}

    [[nodiscard]] double At(float volume) const {
        const auto x = static_cast<double>(volume);
        return x == m_x2 && m_x1 != m_x2 ? m_y2 : m_y1 + (x - m_x1) * m_slope;
    }

  private:
    double m_x1;
    double m_y1;
    double m_x2;
    double m_y2;
    double m_slope;
};

}  // namespace quarnel02
