#pragma once

// Internal to sheets/: the sheet Matrix of a workbook.

#include "sheets/ImportedCells.h"
#include "sheets/InputTables.h"
#include "sheets/Workbook.h"

namespace quarnel02 {

/// Heads the grid of the places of the rows in the table, which is written when they do not stand
/// by resource and then by task.
constexpr std::string_view kOrderCaption = "Order of entry";
/// Heads the list of rows that the grids cannot show.
constexpr std::string_view kFurtherCaption = "Further rows";

Sheet MatrixSheetOf(const InputTables& tables);

/// The rows of Matrix that the sheet holds; cells that do not fit go to `cells`.
TableRows MatrixRowsOf(const Sheet& sheet, const TableRows& standing, ImportedCells& cells);

}  // namespace quarnel02
