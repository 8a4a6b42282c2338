#include "study/Sensitivity.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/BreakEvens.h"
#include "study/CostedDesign.h"
#include "study/PenaltyFlips.h"

namespace quarnel02 {

namespace {

constexpr double kMostUptime = 100;

void RequireSound(double share) {
    if (!(share > 0 && share < 1)) {
        constexpr double percent = 100;
        throw RunTimeError(ErrorKind::Overflow, "Share: " + NumberText(share * percent) +
                                                    " % must be above 0 and below 100.");
    }
}

/// A row with the values that it is about.
SensitivityRow VariedRow(const LineModel& model, const ModelFigure& figure, double share) {
    SensitivityRow row;
    row.Figure = figure;
    row.Name = FigureName(model, figure);
    row.Value = ValueOf(model, figure);
    row.Low = row.Value * (1 - share);
    row.High = row.Value * (1 + share);
    if (figure.Kind == FigureKind::UpTime) {
        row.High = std::max(row.Value, std::min(row.High, kMostUptime));
    }
    return row;
}

void NoteSwing(SensitivityRow& row, float cost, float today) {
    row.Swing =
        std::max(row.Swing, std::fabs(static_cast<double>(cost) - static_cast<double>(today)));
}

/// The design for a request, with single figures changed.
class VariedDesigns {
  public:
    VariedDesigns(const PreparedLine& line, const FixedDemandRequest& request)
        : m_line(line), m_request(request), m_today(CostAll(line, request)) {}

    [[nodiscard]] std::optional<Line> Today() const { return DesignOf(m_line, m_today); }

    /// Pathways stay what they are: no time becomes 0.
    [[nodiscard]] CostedPathways With(const ModelFigure& figure, double value) const {
        const LineModel model = WithValue(m_line.Model, figure, value);
        if (figure.Resource == 0) {
            return CostAll({model, m_line.Pathways, ContentsOf(model, m_line.Pathways)}, m_request);
        }
        CostedPathways costed = m_today;
        const auto [begin, end] = PlacesOf(figure.Resource);
        const auto pathways = std::span(m_line.Pathways).subspan(begin, end - begin);
        const CostedPathways own = CostAll(
            {model, {pathways.begin(), pathways.end()}, ContentsOf(model, pathways)}, m_request);
        std::copy(own.Costs.begin(), own.Costs.end(),
                  costed.Costs.begin() + static_cast<std::ptrdiff_t>(begin));
        std::copy(own.States.begin(), own.States.end(),
                  costed.States.begin() + static_cast<std::ptrdiff_t>(begin));
        return costed;
    }

  private:
    struct Places {
        std::size_t Begin;
        std::size_t End;
    };
    /// Pathways stand by resource.
    [[nodiscard]] Places PlacesOf(int resource) const {
        const auto below = [](const Pathway& pathway, int number) {
            return pathway.Resource < number;
        };
        const auto& all = m_line.Pathways;
        const auto place = [&](int number) {
            return static_cast<std::size_t>(
                std::lower_bound(all.begin(), all.end(), number, below) - all.begin());
        };
        return {place(resource), place(resource + 1)};
    }

    const PreparedLine& m_line;
    const FixedDemandRequest& m_request;
    CostedPathways m_today;
};

class RowMaker {
  public:
    RowMaker(const PreparedLine& line, const FixedDemandRequest& request, double share)
        : m_line(line), m_share(share), m_designs(line, request), m_breakEvens(line, request) {}

    [[nodiscard]] std::vector<SensitivityRow> Rows(const StudyWatch& watch) const {
        std::vector<SensitivityRow> rows;
        const std::optional<Line> today = m_designs.Today();
        const std::vector<ModelFigure> figures =
            today ? FiguresOf(m_line.Model) : std::vector<ModelFigure>();
        for (const ModelFigure& figure : figures) {
            watch.Look(static_cast<double>(rows.size()) / static_cast<double>(figures.size()));
            rows.push_back(Row(figure, *today, watch));
        }
        watch.Look(1);
        return rows;
    }

  private:
    [[nodiscard]] SensitivityRow Row(const ModelFigure& figure, const Line& today,
                                     const StudyWatch& watch) const {
        SensitivityRow row = VariedRow(m_line.Model, figure, m_share);
        row.CostLow = Cost(row, row.Low, today);
        watch.Look();
        row.CostHigh = Cost(row, row.High, today);
        watch.Look();
        row.BreakEven = m_breakEvens.NearestTo(figure, watch);
        return row;
    }

    /// Cost of the best line at a value; notes in the row what that changes.
    std::optional<float> Cost(SensitivityRow& row, double value, const Line& today) const {
        const CostedPathways costed = m_designs.With(row.Figure, value);
        const std::optional<Line> design = DesignOf(m_line, costed);
        if (!design) {
            row.Changes = true;
            return std::nullopt;
        }
        row.Changes = row.Changes || !StaysCheapest(m_line, costed, today, design->Cost);
        NoteSwing(row, design->Cost, today.Cost);
        return design->Cost;
    }

    const PreparedLine& m_line;
    double m_share;
    VariedDesigns m_designs;
    BreakEvens m_breakEvens;
};

bool SameGroups(const StochasticLine& one, const StochasticLine& other) {
    return std::equal(
        one.Groups.begin(), one.Groups.end(), other.Groups.begin(), other.Groups.end(),
        [](const ExpectedGroup& a, const ExpectedGroup& b) { return a.Group == b.Group; });
}

/// Of the penalties on both sides at which the capacity flips the one nearer to today's.
std::optional<double> NearestFlip(const ExpectedDesigns& today) {
    const auto [below, above] = PenaltyFlipsOf(today);
    const auto penalty = static_cast<double>(today.Penalty);
    if (below && (!above || penalty - below->Penalty <= above->Penalty - penalty)) {
        return below->Penalty;
    }
    return above ? std::optional(above->Penalty) : std::nullopt;
}

class ExpectedRowMaker {
  public:
    ExpectedRowMaker(const ExpectedDesigns& today, double share) : m_today(today), m_share(share) {}

    [[nodiscard]] ExpectedSensitivityRow Row(const ModelFigure& figure,
                                             const StudyWatch& watch) const {
        constexpr double middle = 0.5;
        ExpectedSensitivityRow row{VariedRow(m_today.Model, figure, m_share)};
        row.CostLow = Cost(row, row.Low, row.CapacityLow, watch.Part(0, middle));
        row.CostHigh = Cost(row, row.High, row.CapacityHigh, watch.Part(middle, 1));
        if (figure.Kind == FigureKind::Penalty) {
            row.BreakEven = NearestFlip(m_today);
        }
        return row;
    }

  private:
    /// Expected cost of the best line at a value; notes in the row what that changes.
    std::optional<float> Cost(ExpectedSensitivityRow& row, double value, float& capacity,
                              const StudyWatch& watch) const {
        const LineModel model = WithValue(m_today.Model, row.Figure, value);
        const float penalty = row.Figure.Kind == FigureKind::Penalty
                                  ? ToSingle(value, "Penalty ($/unit)")
                                  : m_today.Penalty;
        WatchedCurves curves(watch, model.TaskCount());
        const std::optional<StochasticLine> line = DesignForDemand(model, penalty, curves).Line;
        if (!line) {
            row.Changes = true;
            return std::nullopt;
        }
        capacity = line->Capacity;
        row.Changes = row.Changes || !SameGroups(*line, *m_today.Result.Line);
        NoteSwing(row, line->ExpectedCost, m_today.Result.Line->ExpectedCost);
        return line->ExpectedCost;
    }

    const ExpectedDesigns& m_today;
    double m_share;
};

}  // namespace

std::vector<SensitivityRow> SensitivityOf(const PreparedLine& line,
                                          const FixedDemandRequest& request, double share,
                                          const StudyWatch& watch) {
    RequireSound(share);
    return RowMaker(line, request, share).Rows(watch);
}

std::vector<ExpectedSensitivityRow> SensitivityOf(const ExpectedDesigns& today, double share,
                                                  const StudyWatch& watch) {
    RequireSound(share);
    std::vector<ExpectedSensitivityRow> rows;
    const std::vector<ModelFigure> figures =
        today.Result.Line ? ExpectedFiguresOf(today.Model) : std::vector<ModelFigure>();
    const ExpectedRowMaker maker(today, share);
    for (const ModelFigure& figure : figures) {
        const auto all = static_cast<double>(figures.size());
        const auto done = static_cast<double>(rows.size());
        rows.push_back(maker.Row(figure, watch.Part(done / all, (done + 1) / all)));
    }
    watch.Look(1);
    return rows;
}

std::vector<SensitivityRow> Strongest(std::vector<SensitivityRow> rows, int count) {
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& a, const auto& b) { return a.Swing > b.Swing; });
    rows.resize(std::min(rows.size(), static_cast<std::size_t>(std::max(count, 0))));
    return rows;
}

}  // namespace quarnel02
