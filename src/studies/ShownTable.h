#pragma once

#include <string>
#include <vector>

#include "model/Value.h"
#include "sheets/DelimitedText.h"
#include "sheets/Workbook.h"

namespace quarnel02 {

/// A cell of a study's table: as it is shown, and as a plain value for other programs.
struct ShownCell {
    std::string Text;
    Value Plain;
};

struct ShownColumn {
    std::string Heading;
    bool Figures = false;  ///< numbers, which stand at the right
};

/// A table of a study as a value.
struct ShownTable {
    std::string Name;  ///< also of its sheet: at most 31 characters, none of []:*?/ and backslash
    std::vector<ShownColumn> Columns;
    std::vector<std::vector<ShownCell>> Rows;  ///< each with a cell per column
};

ShownCell TextCell(const std::string& text);
/// "$1,235"
ShownCell DollarCell(double dollars);
/// "$3.17"
ShownCell CentsCell(double dollars);
/// "1,235"
ShownCell WholeCell(double number);
/// "12.35"
ShownCell HundredthsCell(double number);
/// As FigureText has it.
ShownCell FigureCell(double number);
/// "97.2" of a share of 0.972, which is 97.2 for other programs too.
ShownCell PercentCell(double share);

/// A row of a table for other programs: figures as plain numbers.
std::vector<std::string> PlainTexts(const std::vector<ShownCell>& row);
std::vector<std::string> Headings(const ShownTable& table);

/// A table with its headings for the clipboard.
TextBlock BlockOf(const ShownTable& table);
/// With its headings, as a CSV text.
std::string CsvOf(const ShownTable& table);
/// With its headings, figures as numbers.
Sheet SheetOf(const ShownTable& table);

}  // namespace quarnel02
