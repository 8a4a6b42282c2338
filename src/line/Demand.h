#pragma once

#include <limits>
#include <span>
#include <vector>

#include "line/LineModel.h"

namespace quarnel02 {

inline constexpr int kMostDemandPoints = 10;

/// High of a last piece or step: it has no upper end.
inline constexpr float kNoUpperEnd = std::numeric_limits<float>::infinity();

/// Expected production between two neighbouring demand points, a straight line.
struct ProductionPiece {
    float Low = 0;             ///< capacity, units per year
    float High = kNoUpperEnd;  ///< capacity, units per year
    float ProductionLow = 0;   ///< expected production at capacity Low, units per year
    float ProductionHigh = 0;  ///< at High

    bool operator==(const ProductionPiece&) const = default;
};

/// Expected production over capacity: a chain of straight pieces, of which the first one that holds
/// a capacity counts.
class ProductionCurve {
  public:
    ProductionCurve() = default;
    /// The last of `pieces` has no upper end.
    explicit ProductionCurve(std::vector<ProductionPiece> pieces);

    /// Units per year.
    [[nodiscard]] double At(float capacity) const;
    /// Expected demand that a capacity does not meet: mean demand less expected production, units
    /// per year; never negative.
    [[nodiscard]] double ShortfallAt(float capacity) const;
    /// The last capacity, from `capacity` on, up to which the production is one straight line.
    [[nodiscard]] float LineEnd(float capacity) const { return PieceAt(capacity).High; }
    [[nodiscard]] std::span<const ProductionPiece> Pieces() const { return m_pieces; }

  private:
    [[nodiscard]] const ProductionPiece& PieceAt(float capacity) const;

    std::vector<ProductionPiece> m_pieces;
};

/// Expected shifts worked per day at capacities from Low up to, not including, High.
struct ShiftStep {
    float Low = 0;
    float High = kNoUpperEnd;
    float Shifts = 0;

    bool operator==(const ShiftStep&) const = default;
};

/// Expected shifts over capacity: steps without gaps.
class ShiftCurve {
  public:
    ShiftCurve() = default;
    /// The last of `steps` has no upper end.
    explicit ShiftCurve(std::vector<ShiftStep> steps) : m_steps(std::move(steps)) {}

    [[nodiscard]] double At(float capacity) const {
        return static_cast<double>(StepAt(capacity).Shifts);
    }
    /// The last capacity of the step that `capacity` is on.
    [[nodiscard]] float StepEnd(float capacity) const;
    [[nodiscard]] std::span<const ShiftStep> Steps() const { return m_steps; }

  private:
    [[nodiscard]] const ShiftStep& StepAt(float capacity) const;

    std::vector<ShiftStep> m_steps;
};

/// Shifts worked per day at a demand with a capacity, both in units per year: 1 for a capacity of
/// at least 3 times the demand, 2 of at least 1.5 times, else 3.
int ShiftsAt(float demand, float capacity);

/// What a distribution of the demand means for lines of any capacity.
class DemandDistribution {
  public:
    /// Points may come in any order; those of one volume keep theirs. Throws SubscriptOutOfRange
    /// for more than 10 points, TypeMismatch when no volume is above 0, and Overflow for a
    /// production or a number of shifts beyond a single.
    explicit DemandDistribution(std::span<const DemandPoint> points);

    /// In ascending volume.
    [[nodiscard]] std::span<const DemandPoint> Points() const { return m_points; }

    /// Cost curves start at the lowest volume above 0 and end at the first single that is at least
    /// 3 times the largest one.
    [[nodiscard]] float FirstVolume() const { return m_firstVolume; }
    [[nodiscard]] float LastVolume() const { return m_lastVolume; }
    /// The capacities that a planner means, ascending: the volumes above 0, and 1.5 and 3 times
    /// them.
    [[nodiscard]] std::span<const float> MeantVolumes() const { return m_meantVolumes; }

    [[nodiscard]] const ProductionCurve& Production() const { return m_production; }
    [[nodiscard]] const ShiftCurve& Shifts() const { return m_shifts; }

  private:
    void SetVolumes();

    std::vector<DemandPoint> m_points;
    float m_firstVolume = 0;
    float m_lastVolume = 0;
    std::vector<float> m_meantVolumes;
    ProductionCurve m_production;
    ShiftCurve m_shifts;
};

}  // namespace quarnel02
