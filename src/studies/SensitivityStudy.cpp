#include "studies/SensitivityStudy.h"

#include <optional>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "line/CheapestLine.h"
#include "study/ExpectedDesigns.h"
#include "study/FigureText.h"
#include "study/ModelFigures.h"
#include "study/PenaltyFlips.h"
#include "study/Sensitivity.h"

namespace quarnel02 {

namespace {

ShownCell CostCell(const std::optional<float>& cost) {
    return cost ? DollarCell(DecimalOfSingle(*cost)) : TextCell("no line");
}

ShownCell ChangeCell(const std::optional<float>& cost, double today) {
    return cost ? DollarCell(DecimalOfSingle(*cost) - today) : ShownCell();
}

std::vector<ShownCell> FigureCells(const SensitivityRow& row, double today) {
    return {TextCell(row.Name),
            FigureCell(row.Value),
            FigureCell(row.Low),
            CostCell(row.CostLow),
            ChangeCell(row.CostLow, today),
            FigureCell(row.High),
            CostCell(row.CostHigh),
            ChangeCell(row.CostHigh, today),
            TextCell(row.Changes ? "changes" : ""),
            row.BreakEven ? FigureCell(*row.BreakEven) : ShownCell()};
}

/// "10 %"
std::string ShareText(double share) {
    constexpr double whole = 100;
    return FigureText(whole * share) + " %";
}

ShownTable EmptyTable(double share) {
    const std::string less = " at -" + ShareText(share);
    const std::string more = " at +" + ShareText(share);
    return {"Sensitivity",
            {{"Figure"},
             {"Today", true},
             {"Value" + less, true},
             {"Cost" + less, true},
             {"Change" + less, true},
             {"Value" + more, true},
             {"Cost" + more, true},
             {"Change" + more, true},
             {"Line"},
             {"Break-even", true}},
            {}};
}

SensitivityStudy StudyOf(double share, std::vector<SensitivityRow> rows, float today) {
    SensitivityStudy study{EmptyTable(share), std::move(rows), DecimalOfSingle(today), {}};
    for (const SensitivityRow& row : Strongest(study.Rows, static_cast<int>(study.Rows.size()))) {
        study.Figures.Rows.push_back(FigureCells(row, study.Cost));
    }
    return study;
}

SensitivityStudy OfFixed(const StudyInput& input, double share, const StudyWatch& watch) {
    const auto line = CheapestLine(*input.Line, input.Question.Request);
    if (!line) {
        return {};
    }
    return StudyOf(share, SensitivityOf(*input.Line, input.Question.Request, share, watch),
                   line->Cost);
}

/// "The capacity becomes 84,000 units at a penalty of 12.5 $/unit or less."
std::string FlipText(const char* side, const std::optional<PenaltyFlip>& flip) {
    return flip
               ? std::string("The capacity becomes ") + Format(flip->Capacity, "#,##0") +
                     " units at a penalty of " + FigureText(flip->Penalty) + " $/unit" + side + ". "
               : "";
}

SensitivityStudy OfExpected(const StudyInput& input, double share, const StudyWatch& watch) {
    // Each figure takes a design below and one above today's.
    const double first = 1 / (1 + 2 * static_cast<double>(ExpectedFiguresOf(input.Model()).size()));
    const ExpectedDesigns designs =
        DesignWithCurves(input.Model(), input.Penalty(), watch.Part(0, first));
    if (!designs.Result.Line) {
        return {};
    }
    const std::vector<ExpectedSensitivityRow> rows =
        SensitivityOf(designs, share, watch.Part(first, 1));
    SensitivityStudy study =
        StudyOf(share, {rows.begin(), rows.end()}, designs.Result.Line->ExpectedCost);
    const PenaltyFlips flips = PenaltyFlipsOf(designs);
    study.Flips = FlipText(" or less", flips.Below) + FlipText(" or more", flips.Above);
    return study;
}

}  // namespace

SensitivityStudy StudySensitivity(const StudyInput& input, double share, const StudyWatch& watch) {
    return input.Question.Expected ? OfExpected(input, share, watch) : OfFixed(input, share, watch);
}

}  // namespace quarnel02
