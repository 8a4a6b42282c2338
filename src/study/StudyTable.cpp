#include "study/StudyTable.h"

#include <algorithm>
#include <cstddef>

#include "basic/Numbers.h"
#include "study/FigureText.h"

namespace quarnel02 {

namespace {

std::string TasksText(const TaskList& tasks) {
    std::string text;
    for (const int task : tasks) {
        text += (text.empty() ? "" : " ") + NumberText(task);
    }
    return text;
}

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string field = "\"";
    for (const char sign : text) {
        field += sign == '"' ? "\"\"" : std::string(1, sign);
    }
    return field + "\"";
}

/// The text of a cell in a table for reading.
std::string ShownCell(const StudyCell& cell) {
    const auto* const number = std::get_if<double>(&cell);
    return number == nullptr ? CellText(cell) : FigureText(*number);
}

/// Letters, however many bytes they take.
std::size_t WidthOf(const std::string& text) {
    constexpr unsigned rest_mask = 0xC0;
    constexpr unsigned rest = 0x80;
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & rest_mask) != rest;
    }));
}

struct ShownColumn {
    std::vector<std::string> Texts;  ///< from the heading down
    std::size_t Width = 0;
    bool ToTheRight = true;
};

ShownColumn ColumnOf(const StudyTable& table, std::size_t place) {
    ShownColumn column;
    column.Texts.push_back(table.Columns[place]);
    for (const auto& row : table.Rows) {
        column.Texts.push_back(ShownCell(row[place]));
        column.ToTheRight = column.ToTheRight && row[place].index() <= 1;
    }
    for (const std::string& text : column.Texts) {
        column.Width = std::max(column.Width, WidthOf(text));
    }
    return column;
}

}  // namespace

std::string CellText(const StudyCell& cell) {
    if (const auto* const number = std::get_if<double>(&cell)) {
        return NumberText(*number);
    }
    if (const auto* const text = std::get_if<std::string>(&cell)) {
        return *text;
    }
    const auto* const tasks = std::get_if<TaskList>(&cell);
    return tasks == nullptr ? "" : TasksText(*tasks);
}

std::string CsvText(const StudyTable& table) {
    std::string text;
    for (const std::string& column : table.Columns) {
        text += (text.empty() ? "" : ",") + column;
    }
    text += '\n';
    for (const auto& row : table.Rows) {
        std::string line;
        for (const StudyCell& cell : row) {
            line += (&cell == row.data() ? "" : ",") + CsvField(CellText(cell));
        }
        text += line + '\n';
    }
    return text;
}

std::string PlainText(const StudyTable& table) {
    std::vector<std::string> lines(table.Rows.size() + 1);
    for (std::size_t place = 0; place < table.Columns.size(); ++place) {
        const ShownColumn column = ColumnOf(table, place);
        for (std::size_t line = 0; line < lines.size(); ++line) {
            const std::string& text = column.Texts[line];
            const std::string gap(column.Width - WidthOf(text), ' ');
            lines[line] += place == 0 ? "" : "  ";
            lines[line] += column.ToTheRight ? gap + text : text + gap;
        }
    }
    std::string all;
    for (std::string& line : lines) {
        line.erase(line.find_last_not_of(' ') + 1);
        all += line + '\n';
    }
    return all;
}

}  // namespace quarnel02
