#pragma once

#include <string>
#include <variant>
#include <vector>

namespace quarnel02 {

/// Numbers of tasks.
using TaskList = std::vector<int>;

/// Nothing, a number, a text, or tasks.
using StudyCell = std::variant<std::monostate, double, std::string, TaskList>;

/// What a study prints, copies and saves: columns with names for programs, and rows.
struct StudyTable {
    std::vector<std::string> Columns;
    std::vector<std::vector<StudyCell>> Rows;  ///< each with a cell per column
};

/// A cell as programs read it: numbers with a decimal point and nothing else, tasks with blanks
/// between them, "" for nothing.
std::string CellText(const StudyCell& cell);

/// The table as comma-separated values, a line per row behind that of the columns, ends of lines
/// "\n"; texts with a comma, a quote or an end of line stand in quotes, quotes in them doubled.
std::string CsvText(const StudyTable& table);

/// The table for reading: columns side by side, numbers to the right with separated thousands and
/// at most four decimals.
std::string PlainText(const StudyTable& table);

}  // namespace quarnel02
