#include "studies/ShownTable.h"

#include <algorithm>
#include <iterator>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "study/FigureText.h"

namespace quarnel02 {

namespace {

ShownCell NumberCell(double number, const char* pattern) {
    return {Format(number, pattern), number};
}

std::string PlainText(const ShownCell& cell) {
    const auto* number = std::get_if<double>(&cell.Plain);
    return number == nullptr ? cell.Text : NumberText(*number);
}

std::vector<CsvCell> CsvRowOf(std::vector<std::string> texts) {
    std::vector<CsvCell> row;
    row.reserve(texts.size());
    for (std::string& text : texts) {
        row.push_back(text.empty() ? CsvCell() : CsvCell(std::move(text)));
    }
    return row;
}

}  // namespace

ShownCell TextCell(const std::string& text) {
    return {text, text.empty() ? Value() : Value(text)};
}

ShownCell DollarCell(double dollars) {
    return NumberCell(dollars, "$#,##0");
}

ShownCell CentsCell(double dollars) {
    return NumberCell(dollars, "$#,##0.00");
}

ShownCell WholeCell(double number) {
    return NumberCell(number, "#,##0");
}

ShownCell HundredthsCell(double number) {
    return NumberCell(number, "#,##0.00");
}

ShownCell FigureCell(double number) {
    return {FigureText(number), number};
}

ShownCell PercentCell(double share) {
    constexpr double whole = 100;
    return NumberCell(whole * share, "#,##0.0");
}

std::vector<std::string> PlainTexts(const std::vector<ShownCell>& row) {
    std::vector<std::string> texts;
    std::transform(row.begin(), row.end(), std::back_inserter(texts),
                   [](const ShownCell& cell) { return PlainText(cell); });
    return texts;
}

std::vector<std::string> Headings(const ShownTable& table) {
    std::vector<std::string> headings;
    std::transform(table.Columns.begin(), table.Columns.end(), std::back_inserter(headings),
                   [](const ShownColumn& column) { return column.Heading; });
    return headings;
}

TextBlock BlockOf(const ShownTable& table) {
    TextBlock block = {Headings(table)};
    std::transform(table.Rows.begin(), table.Rows.end(), std::back_inserter(block), PlainTexts);
    return block;
}

std::string CsvOf(const ShownTable& table) {
    CsvRows rows;
    for (std::vector<std::string>& row : BlockOf(table)) {
        rows.push_back(CsvRowOf(std::move(row)));
    }
    return WriteCsv(rows);
}

Sheet SheetOf(const ShownTable& table) {
    Sheet sheet{table.Name, {}, {}};
    const std::vector<std::string> headings = Headings(table);
    sheet.Cells.emplace_back(headings.begin(), headings.end());
    for (const std::vector<ShownCell>& row : table.Rows) {
        auto& cells = sheet.Cells.emplace_back();
        std::transform(row.begin(), row.end(), std::back_inserter(cells),
                       [](const ShownCell& cell) { return cell.Plain; });
    }
    return sheet;
}

}  // namespace quarnel02
