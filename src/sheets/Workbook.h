#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sheets/InputTables.h"

namespace quarnel02 {

/// A cell that the spreadsheet program works out itself, and what it comes to now.
struct SheetFormula {
    std::string Text;  ///< "=COUNT(Tasks!A2:A100)"
    double Result;
};

/// A sheet of a workbook: rows from the top, each from its first column, empty cells being Null.
struct Sheet {
    std::string Name;
    TableRows Cells;
    /// By row and column of cells that are Null above; files without formulas leave them empty.
    std::map<std::pair<std::size_t, std::size_t>, SheetFormula> Formulas;
};

using Workbook = std::vector<Sheet>;

/// The sheet of that name, letter case aside; nullptr when there is none.
const Sheet* FindSheet(const Workbook& workbook, std::string_view name);

/// The cell at that place, Null beyond the end.
const Value& CellAt(const Sheet& sheet, std::size_t row, std::size_t column);

/// "Sheet Tasks, row 5, column C", as spreadsheet programs count.
std::string CellName(const Sheet& sheet, std::size_t row, std::size_t column);

/// "A", "Z", "AA".
std::string ColumnLetters(std::size_t column);

/// Whether a cell shows nothing.
bool IsBlank(const Value& cell);

/// A cell's text for comparing with captions: without blanks around it, "" for any but a text.
std::string CaptionIn(const Value& cell);

}  // namespace quarnel02
