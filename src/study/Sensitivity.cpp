#include "study/Sensitivity.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "study/BreakEvens.h"
#include "study/CostedDesign.h"

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

    [[nodiscard]] std::vector<SensitivityRow> Rows() const {
        std::vector<SensitivityRow> rows;
        const std::optional<Line> today = m_designs.Today();
        if (today) {
            for (const ModelFigure& figure : FiguresOf(m_line.Model)) {
                rows.push_back(Row(figure, *today));
            }
        }
        return rows;
    }

  private:
    [[nodiscard]] SensitivityRow Row(const ModelFigure& figure, const Line& today) const {
        SensitivityRow row;
        row.Figure = figure;
        row.Name = FigureName(m_line.Model, figure);
        row.Value = ValueOf(m_line.Model, figure);
        row.Low = row.Value * (1 - m_share);
        row.High = row.Value * (1 + m_share);
        if (figure.Kind == FigureKind::UpTime) {
            row.High = std::max(row.Value, std::min(row.High, kMostUptime));
        }
        row.CostLow = Cost(row, row.Low, today);
        row.CostHigh = Cost(row, row.High, today);
        row.BreakEven = m_breakEvens.NearestTo(figure);
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
        row.Swing = std::max(row.Swing, std::fabs(static_cast<double>(design->Cost) -
                                                  static_cast<double>(today.Cost)));
        return design->Cost;
    }

    const PreparedLine& m_line;
    double m_share;
    VariedDesigns m_designs;
    BreakEvens m_breakEvens;
};

}  // namespace

std::vector<SensitivityRow> SensitivityOf(const PreparedLine& line,
                                          const FixedDemandRequest& request, double share) {
    RequireSound(share);
    return RowMaker(line, request, share).Rows();
}

std::vector<SensitivityRow> Strongest(std::vector<SensitivityRow> rows, int count) {
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto& a, const auto& b) { return a.Swing > b.Swing; });
    rows.resize(std::min(rows.size(), static_cast<std::size_t>(std::max(count, 0))));
    return rows;
}

}  // namespace quarnel02
