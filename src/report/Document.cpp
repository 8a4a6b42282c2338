#include "report/Document.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "study/FigureText.h"

namespace quarnel02 {

namespace {

bool IsFigure(const StudyCell& cell) {
    return std::holds_alternative<double>(cell);
}

std::string ReadableText(const StudyCell& cell) {
    const auto* number = std::get_if<double>(&cell);
    return number == nullptr ? CellText(cell) : FigureText(*number);
}

/// A column of figures has some, and nothing else.
bool HoldsFigures(const StudyTable& table, std::size_t column) {
    bool some = false;
    for (const auto& row : table.Rows) {
        const StudyCell& cell = row[column];
        some = some || IsFigure(cell);
        if (!IsFigure(cell) && !std::holds_alternative<std::monostate>(cell)) {
            return false;
        }
    }
    return some;
}

}  // namespace

TablePart TableFrom(const StudyTable& table) {
    TablePart part;
    for (std::size_t column = 0; column < table.Columns.size(); ++column) {
        part.Columns.push_back({table.Columns[column], HoldsFigures(table, column)});
    }
    for (const auto& row : table.Rows) {
        std::vector<std::string> texts;
        std::transform(row.begin(), row.end(), std::back_inserter(texts), ReadableText);
        part.Rows.push_back(std::move(texts));
    }
    return part;
}

DocumentPart PartFrom(const Picture& picture, const std::string& words, double shape) {
    if (!picture.IsComposed()) {
        if (const auto text = TextOf(picture)) {
            return PrintedPart{*text};
        }
    }
    PicturePart part{picture, words, shape};
    part.Drawing.OnChange = nullptr;
    return part;
}

}  // namespace quarnel02
