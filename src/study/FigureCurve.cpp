#include "study/FigureCurve.h"

#include <algorithm>
#include <cmath>

namespace quarnel02 {

namespace {

class SweepCurve {
  public:
    SweepCurve(const FigureSweep& sweep, const PathwayParts& parts)
        : m_sweep(sweep), m_parts(parts), m_mostStations(MostStations()) {}

    /// Appends the steps from one to another, between which no cost bends.
    void Append(GridCurve& curve, int from, int to) const {
        while (from <= to) {
            const double stations = StationsAt(from);
            const int last = LastWith(stations, from, to);
            curve.push_back(Segment(stations, from, last));
            from = last + 1;
        }
    }

  private:
    /// The cost of a station grows or shrinks all the way, so it is least at an end.
    [[nodiscard]] double MostStations() const {
        const double cost = std::min(m_sweep.At(m_sweep.Steps.From).CostOfStation(m_parts),
                                     m_sweep.At(m_sweep.Steps.To).CostOfStation(m_parts));
        const double most = m_sweep.MostStations;
        return cost > 0 ? std::min(most, std::floor(m_sweep.MostCost / cost)) : most;
    }

    /// Those beyond the limit count as one more than that.
    [[nodiscard]] double StationsAt(int step) const {
        return std::min(m_sweep.At(step).Stations(m_parts), m_mostStations + 1);
    }

    /// The last step with so many stations; their number grows or shrinks all the way.
    [[nodiscard]] int LastWith(double stations, int low, int high) const {
        if (StationsAt(high) == stations) {
            return high;
        }
        while (high - low > 1) {
            const int middle = low + (high - low) / 2;
            (StationsAt(middle) == stations ? low : high) = middle;
        }
        return low;
    }

    [[nodiscard]] GridSegment Segment(double stations, int from, int to) const {
        if (stations > m_mostStations) {
            return {from, to, kClosed, 0, {}};
        }
        const double cost = m_sweep.At(from).Cost(m_parts, stations);
        const double slope =
            from == to ? 0 : (m_sweep.At(to).Cost(m_parts, stations) - cost) / (to - from);
        return {
            from,
            to,
            cost - slope * from,
            slope,
            {static_cast<std::int16_t>(m_sweep.Resource), static_cast<std::int16_t>(stations), 0}};
    }

    const FigureSweep& m_sweep;
    const PathwayParts& m_parts;
    double m_mostStations;
};

/// The last step before the longer one of transport and tool change becomes the other one; none,
/// or outside the span, where the figure is neither of them.
double BendOf(const FigureSweep& sweep, const PathwayParts& parts) {
    const double transport = sweep.Model.Parameters().TransportTime;
    const double tool_change = sweep.Model.ResourceOf(sweep.Resource).ToolChange;
    if (!parts.OtherTool) {
        return 0;
    }
    switch (sweep.Figure) {
        case FigureKind::TransportTime:
            return std::floor(tool_change / transport * kStepsOfToday);
        case FigureKind::ToolChange:
            return std::floor(transport / tool_change * kStepsOfToday);
        default:
            return 0;
    }
}

}  // namespace

SharedCost FigureSweep::At(int step) const {
    return {Model.Parameters(),   Model.ResourceOf(Resource), Units, Shifts, Figure,
            ShareAt(Figure, step)};
}

GridCurve FigureCurve(const FigureSweep& sweep, const PathwayParts& parts) {
    GridCurve curve;
    const SweepCurve pieces(sweep, parts);
    const double bend = BendOf(sweep, parts);
    int from = sweep.Steps.From;
    if (bend >= from && bend < sweep.Steps.To) {
        pieces.Append(curve, from, static_cast<int>(bend));
        from = static_cast<int>(bend) + 1;
    }
    pieces.Append(curve, from, sweep.Steps.To);
    return curve;
}

}  // namespace quarnel02
