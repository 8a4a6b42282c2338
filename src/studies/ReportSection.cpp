#include "studies/ReportSection.h"

#include <algorithm>
#include <iterator>

#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"

namespace quarnel02 {

namespace {

constexpr double kChartShape = 0.55;

TablePart TablePartOf(const ShownTable& table) {
    TablePart part;
    for (const ShownColumn& column : table.Columns) {
        part.Columns.push_back({column.Heading, column.Figures});
    }
    for (const auto& cells : table.Rows) {
        std::vector<std::string>& row = part.Rows.emplace_back();
        std::transform(cells.begin(), cells.end(), std::back_inserter(row),
                       [](const ShownCell& cell) { return cell.Text; });
    }
    return part;
}

}  // namespace

std::vector<DocumentPart> ReportSection(const StudyPage& page, const std::string& name) {
    std::vector<DocumentPart> parts = {
        HeadingPart{"Study: " + name + (page.IsOutOfDate() ? " (out of date)" : "")}};
    if (!page.Subject().empty()) {
        parts.emplace_back(ParagraphPart{page.Subject()});
    }
    if (!page.Message().empty()) {
        parts.emplace_back(ParagraphPart{page.Message()});
    }
    for (const StudyPicture* picture : page.Pictures()) {
        if (!picture->Shown().Figures().empty()) {
            parts.push_back(PartFrom(picture->Shown(),
                                     picture->accessibleName().toStdString() + ".", kChartShape));
        }
    }
    for (const StudyTableView* table : page.Tables()) {
        parts.emplace_back(TablePartOf(table->Table()));
    }
    return parts;
}

}  // namespace quarnel02
