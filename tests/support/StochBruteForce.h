#pragma once

#include <optional>
#include <vector>

#include "support/Dice.h"
#include "support/ModelScript.h"

namespace quarnel02::test {

/// A small random model with a demand distribution of 2 to 10 points.
ModelScript RandomStochModel(Dice& dice);

/// Costs of a model at a capacity, straight from its rows: no curves, no tables. Figures that
/// the system keeps as singles (work time, cycle time, expected production at the demand points,
/// expected shifts) are singles here; all else is in double precision.
class StochBruteForce {
  public:
    StochBruteForce(const ModelScript& model, double penaltyPerUnit);

    /// The lowest volume above 0, and the first single with room for 3 times the highest.
    [[nodiscard]] float FirstVolume() const { return m_first; }
    [[nodiscard]] float LastVolume() const { return m_last; }

    [[nodiscard]] double Production(float capacity) const;
    [[nodiscard]] double Shifts(float capacity) const;
    [[nodiscard]] double Penalty(float capacity) const;

    [[nodiscard]] bool CanDo(int resource, int start, int end) const;
    [[nodiscard]] int Stations(int resource, int start, int end, float capacity) const;
    [[nodiscard]] double ArcCost(int resource, int start, int end, float capacity) const;
    /// Of the cheapest resource; none when no resource can do it.
    [[nodiscard]] std::optional<double> ArcCost(int start, int end, float capacity) const;
    /// Of the cheapest design of the tasks 1 to `end`, without penalty.
    [[nodiscard]] std::optional<double> DesignCost(int end, float capacity) const;

    /// Every volume at which the cost of any arc, or the penalty, may bend or jump, with the
    /// singles beside it, within the range of volumes.
    [[nodiscard]] std::vector<float> Volumes() const;

  private:
    struct Load {
        bool Possible = false;
        float Work = 0;
        double ToolSet = 0;
    };
    [[nodiscard]] const Load& LoadOf(int resource, int start, int end) const;
    [[nodiscard]] Load MakeLoad(int resource, int start, int end) const;
    [[nodiscard]] float CycleTime(float capacity) const;
    [[nodiscard]] int StationsFor(float work, float capacity) const;
    void AddStationSteps(std::vector<float>& volumes) const;

    ModelScript m_model;
    std::vector<DemandPoint> m_demand;  ///< ascending
    std::vector<float> m_production;    ///< at the demand points
    std::vector<Load> m_loads;
    double m_penalty;
    float m_first = 0;
    float m_last = 0;
};

}  // namespace quarnel02::test
