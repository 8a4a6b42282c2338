#include "study/Capacities.h"

#include <algorithm>
#include <cmath>

#include "basic/NumberFormat.h"

namespace quarnel02 {

namespace {

struct CurvePoint {
    float Volume = 0;
    float Cost = 0;
};

/// The ends of all segments; between them the cost neither rises and falls nor falls and rises.
std::vector<CurvePoint> PointsOf(const CostCurve& curve) {
    std::vector<CurvePoint> points;
    for (const CurveSegment& segment : curve.Segments()) {
        points.push_back({segment.Start, segment.CostStart});
        points.push_back({segment.End, segment.CostEnd});
    }
    return points;
}

/// Whether a cost is above another one by more than rounding.
bool IsAbove(float cost, float other) {
    constexpr float rounding = 1e-6F;
    return cost - other > rounding * std::max(std::fabs(cost), std::fabs(other));
}

std::vector<CurvePoint> LocalMinima(const std::vector<CurvePoint>& points) {
    std::vector<CurvePoint> minima;
    bool falling = true;  // the first point may be one
    CurvePoint extreme = points.front();
    for (const CurvePoint& point : points) {
        if (falling ? point.Cost < extreme.Cost : point.Cost > extreme.Cost) {
            extreme = point;
        } else if (falling && IsAbove(point.Cost, extreme.Cost)) {
            minima.push_back(extreme);
            falling = false;
            extreme = point;
        } else if (!falling && IsAbove(extreme.Cost, point.Cost)) {
            falling = true;
            extreme = point;
        }
    }
    if (falling) {
        minima.push_back(extreme);
    }
    return minima;
}

class CapacityMaker {
  public:
    explicit CapacityMaker(const ExpectedDesigns& designs)
        : m_designs(designs), m_curve(designs.Result.ExpectedCosts) {}

    [[nodiscard]] Capacity Make(const CurvePoint& point, float cheapest) const {
        Capacity capacity;
        capacity.Line = m_designs.LineAt(point.Volume);
        capacity.Table = TableOf(m_designs.Model, capacity.Line);
        capacity.Difference = static_cast<double>(point.Cost) - static_cast<double>(cheapest);
        capacity.UnmetUnits = m_designs.Demand.Production().ShortfallAt(point.Volume);
        for (const DemandOutcome& outcome : capacity.Line.Outcomes) {
            capacity.Outcomes.push_back(OutcomeOf(outcome, point.Volume));
            if (outcome.Point.Volume > point.Volume) {
                capacity.ShortageProbability += static_cast<double>(outcome.Point.Probability);
            }
        }
        capacity.OneUnitLess = MoreAt(point, -1);
        capacity.OneUnitMore = MoreAt(point, 1);
        capacity.AtFirstVolume = point.Volume == m_curve.Start();
        capacity.AtLastVolume = point.Volume == m_curve.End();
        return capacity;
    }

  private:
    [[nodiscard]] std::optional<double> MoreAt(const CurvePoint& point, float units) const {
        const float volume = point.Volume + units;
        const CurveSegment* const segment = m_curve.At(volume);
        if (segment == nullptr) {
            return std::nullopt;
        }
        return segment->CostAt(volume) - static_cast<double>(point.Cost);
    }

    const ExpectedDesigns& m_designs;
    const CostCurve& m_curve;
};

std::string CliffText(const std::string& words, std::optional<double> more, double cost) {
    constexpr double seen = 0.001;
    if (!more || *more <= 0 || *more < std::fabs(cost) * seen) {
        return {};
    }
    return words + " costs " + Format(*more, "#,##0") + " more";
}

}  // namespace

CapacityOutcome OutcomeOf(const DemandOutcome& outcome, float capacity) {
    constexpr double all_shifts = 3;
    const auto most = static_cast<double>(capacity);
    const double production = std::min(static_cast<double>(outcome.Point.Volume), most);
    return {outcome.Point,     outcome.Shifts,
            production,        production / (most * outcome.Shifts / all_shifts),
            outcome.TotalCost, outcome.Penalty};
}

std::vector<Capacity> BestCapacities(const ExpectedDesigns& designs, int count) {
    if (designs.Result.ExpectedCosts.IsEmpty() || count < 1) {
        return {};
    }
    std::vector<CurvePoint> minima = LocalMinima(PointsOf(designs.Result.ExpectedCosts));
    std::stable_sort(minima.begin(), minima.end(),
                     [](const CurvePoint& a, const CurvePoint& b) { return a.Cost < b.Cost; });
    minima.resize(std::min(minima.size(), static_cast<std::size_t>(count)));
    const CapacityMaker maker(designs);
    std::vector<Capacity> capacities;
    capacities.reserve(minima.size());
    for (const CurvePoint& point : minima) {
        capacities.push_back(maker.Make(point, minima.front().Cost));
    }
    return capacities;
}

std::string CapacityWord(const Capacity& capacity) {
    const auto cost = static_cast<double>(capacity.Line.ExpectedCost);
    std::string word;
    for (const std::string& part :
         {CliffText("one unit less", capacity.OneUnitLess, cost),
          CliffText("one unit more", capacity.OneUnitMore, cost),
          std::string(capacity.AtFirstVolume || capacity.AtLastVolume ? "at the end of the range"
                                                                      : "")}) {
        word += (word.empty() || part.empty() ? "" : "; ") + part;
    }
    return word;
}

}  // namespace quarnel02
