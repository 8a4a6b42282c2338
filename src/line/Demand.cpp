#include "line/Demand.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "line/Singles.h"

namespace quarnel02 {

namespace {

constexpr double kPercent = 100;
constexpr double kTwoShiftsFrom = 1.5;
constexpr double kOneShiftFrom = 3;

double Share(const DemandPoint& point) {
    return static_cast<double>(point.Probability) / kPercent;
}

/// Expected smaller one of demand and a capacity.
float ExpectedAt(std::span<const DemandPoint> points, float capacity) {
    double production = 0;
    for (const DemandPoint& point : points) {
        production += Share(point) * static_cast<double>(std::min(point.Volume, capacity));
    }
    return ToSingle(production, "Expected production");
}

/// Whether the probabilities add up to 100, to two decimals.
bool IsComplete(std::span<const DemandPoint> points) {
    constexpr double half_a_hundredth = 0.005;
    double sum = 0;
    for (const DemandPoint& point : points) {
        sum += static_cast<double>(point.Probability);
    }
    return std::fabs(sum - kPercent) < half_a_hundredth;
}

ProductionCurve ProductionOf(std::span<const DemandPoint> points) {
    std::vector<float> production;
    for (const DemandPoint& point : points) {
        production.push_back(ExpectedAt(points, point.Volume));
    }
    if (IsComplete(points)) {
        // The lowest volume is certain; no point falls short of it by the rounding of singles.
        const float certain = points.front().Volume;
        production.front() = certain;
        for (float& each : production) {
            each = std::max(each, certain);
        }
    }
    std::vector<ProductionPiece> pieces;
    for (std::size_t next = 1; next < points.size(); ++next) {
        pieces.push_back(
            {points[next - 1].Volume, points[next].Volume, production[next - 1], production[next]});
    }
    pieces.push_back({points.back().Volume, kNoUpperEnd, production.back(), production.back()});
    return ProductionCurve(std::move(pieces));
}

/// From capacity Volume on, a demand point needs one shift less.
struct ShiftChange {
    std::size_t Point;
    float Volume;
};

std::vector<ShiftChange> ShiftChanges(std::span<const DemandPoint> points) {
    std::vector<ShiftChange> changes;
    for (std::size_t point = 0; point < points.size(); ++point) {
        const auto volume = static_cast<double>(points[point].Volume);
        changes.push_back({point, CeilingSingle(kTwoShiftsFrom * volume)});
        changes.push_back({point, CeilingSingle(kOneShiftFrom * volume)});
    }
    std::stable_sort(
        changes.begin(), changes.end(),
        [](const ShiftChange& a, const ShiftChange& b) { return a.Volume < b.Volume; });
    return changes;
}

float ExpectedShifts(std::span<const DemandPoint> points, std::span<const int> shifts) {
    double expected = 0;
    for (std::size_t point = 0; point < points.size(); ++point) {
        expected += Share(points[point]) * shifts[point];
    }
    return ToSingle(expected, "Expected shifts");
}

ShiftCurve ShiftsOf(std::span<const DemandPoint> points, float firstVolume) {
    std::vector<ShiftStep> steps;
    std::vector<int> shifts(points.size(), 3);
    float low = firstVolume;
    for (const auto& [point, volume] : ShiftChanges(points)) {
        if (volume > low) {
            steps.push_back({low, volume, ExpectedShifts(points, shifts)});
            low = volume;
        }
        --shifts[point];
    }
    steps.push_back({low, kNoUpperEnd, ExpectedShifts(points, shifts)});
    return ShiftCurve(std::move(steps));
}

}  // namespace

ProductionCurve::ProductionCurve(std::vector<ProductionPiece> pieces)
    : m_pieces(std::move(pieces)) {}

const ProductionPiece& ProductionCurve::PieceAt(float capacity) const {
    return *std::find_if(m_pieces.begin(), m_pieces.end() - 1,
                         [&](const ProductionPiece& piece) { return capacity <= piece.High; });
}

double ProductionCurve::At(float capacity) const {
    const ProductionPiece& piece = PieceAt(capacity);
    return StraightLine(piece.Low, piece.ProductionLow, piece.High, piece.ProductionHigh)
        .At(capacity);
}

double ProductionCurve::ShortfallAt(float capacity) const {
    const auto mean = static_cast<double>(m_pieces.back().ProductionHigh);
    return std::max(0.0, mean - At(capacity));
}

const ShiftStep& ShiftCurve::StepAt(float capacity) const {
    return *std::find_if(m_steps.begin(), m_steps.end() - 1,
                         [&](const ShiftStep& step) { return capacity < step.High; });
}

float ShiftCurve::StepEnd(float capacity) const {
    const float high = StepAt(capacity).High;
    return high == kNoUpperEnd ? kNoUpperEnd : PreviousSingle(high);
}

int ShiftsAt(float demand, float capacity) {
    const auto volume = static_cast<double>(demand);
    const auto most = static_cast<double>(capacity);
    if (most >= kOneShiftFrom * volume) {
        return 1;
    }
    return most >= kTwoShiftsFrom * volume ? 2 : 3;
}

DemandDistribution::DemandDistribution(std::span<const DemandPoint> points)
    : m_points(points.begin(), points.end()) {
    if (m_points.size() > kMostDemandPoints) {
        throw RunTimeError(ErrorKind::SubscriptOutOfRange,
                           "Demand has more than 10 points. Remove some of them.");
    }
    std::stable_sort(m_points.begin(), m_points.end(),
                     [](const auto& a, const auto& b) { return a.Volume < b.Volume; });
    SetVolumes();
    m_production = ProductionOf(m_points);
    m_shifts = ShiftsOf(m_points, m_firstVolume);
}

void DemandDistribution::SetVolumes() {
    const auto positive = std::find_if(m_points.begin(), m_points.end(),
                                       [](const DemandPoint& point) { return point.Volume > 0; });
    if (positive == m_points.end()) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "Demand has no volume above 0. Enter the volumes of the distribution.");
    }
    m_firstVolume = positive->Volume;
    m_lastVolume = CeilingSingle(kOneShiftFrom * static_cast<double>(m_points.back().Volume));
    for (auto point = positive; point != m_points.end(); ++point) {
        for (const double factor : {1.0, kTwoShiftsFrom, kOneShiftFrom}) {
            m_meantVolumes.push_back(CeilingSingle(factor * static_cast<double>(point->Volume)));
        }
    }
    std::sort(m_meantVolumes.begin(), m_meantVolumes.end());
}

}  // namespace quarnel02
