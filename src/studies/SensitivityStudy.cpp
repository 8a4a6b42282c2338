#include "studies/SensitivityStudy.h"

#include <optional>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "study/FigureText.h"
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

SensitivityStudy OfFixed(const StudyInput& input, double share) {
    SensitivityStudy study{EmptyTable(share), {}};
    const auto line = CheapestLine(*input.Line, input.Question.Request);
    if (!line) {
        return study;
    }
    std::vector<SensitivityRow> rows = SensitivityOf(*input.Line, input.Question.Request, share);
    const int count = static_cast<int>(rows.size());
    for (const SensitivityRow& row : Strongest(std::move(rows), count)) {
        study.Figures.Rows.push_back(FigureCells(row, DecimalOfSingle(line->Cost)));
    }
    return study;
}

std::string FlipText(const char* side, const std::optional<PenaltyFlip>& flip) {
    return flip
               ? std::string("The capacity becomes ") + Format(flip->Capacity, "#,##0") +
                     " units at a penalty of " + FigureText(flip->Penalty) + " $/unit" + side + ". "
               : "";
}

}  // namespace

SensitivityStudy StudySensitivity(const StudyInput& input, double share) {
    return OfFixed(input, share);
}

}  // namespace quarnel02
