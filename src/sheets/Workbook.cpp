#include "sheets/Workbook.h"

#include <algorithm>

#include "model/Schema.h"

namespace quarnel02 {

const Sheet* FindSheet(const Workbook& workbook, std::string_view name) {
    const auto sheet = std::find_if(workbook.begin(), workbook.end(),
                                    [&](const Sheet& each) { return SameName(each.Name, name); });
    return sheet == workbook.end() ? nullptr : &*sheet;
}

const Value& CellAt(const Sheet& sheet, std::size_t row, std::size_t column) {
    static const Value null;
    return row < sheet.Cells.size() && column < sheet.Cells[row].size() ? sheet.Cells[row][column]
                                                                        : null;
}

std::string ColumnLetters(std::size_t column) {
    constexpr std::size_t letters = 26;
    std::string text;
    for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / letters) {
        text.insert(text.begin(), static_cast<char>('A' + (rest - 1) % letters));
    }
    return text;
}

std::string CellName(const Sheet& sheet, std::size_t row, std::size_t column) {
    return "Sheet " + sheet.Name + ", row " + std::to_string(row + 1) + ", column " +
           ColumnLetters(column);
}

bool IsBlank(const Value& cell) {
    const auto* text = std::get_if<std::string>(&cell);
    return IsNull(cell) || (text != nullptr && text->find_first_not_of(' ') == std::string::npos);
}

std::string CaptionIn(const Value& cell) {
    const auto* text = std::get_if<std::string>(&cell);
    const auto first = text == nullptr ? std::string::npos : text->find_first_not_of(' ');
    return first == std::string::npos
               ? ""
               : text->substr(first, text->find_last_not_of(' ') - first + 1);
}

}  // namespace quarnel02
