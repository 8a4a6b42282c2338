#pragma once

#include "sheets/InputTables.h"
#include "sheets/Misfits.h"
#include "sheets/Workbook.h"

namespace quarnel02 {

/// The model as a workbook: the sheets General, Tasks, Resources, Matrix and Demand, and Scenarios
/// where there are any, with the captions of the windows. Matrix has a grid each of task time, tool
/// number and tool cost, tasks down and resources across; behind them stands, where that is needed,
/// what no grid can say: the order in which the pairs were entered, and rows that are no single
/// pair with all its figures. Throws Overflow for a model of more than 200,000 pairs of a task and
/// a resource.
Workbook SheetsOf(const InputTables& tables);

/// A model read from a workbook, or what is wrong with its cells.
struct ModelOfSheets {
    InputTables Tables;  ///< to be used only when nothing is refused
    Misfits Refused;     ///< "Sheet Resources, row 5, column F: uptime is 0 %; ..."
};

/// The tables that a workbook holds; of what SheetsOf makes they are the same bit for bit. Columns
/// and lines are found by their captions and may stand in any order. Every cell is checked as an
/// entered one is (CheckedCell), except for what `standing`, the model in work, says likewise at
/// the same place. A number of tasks or resources that is left empty is that of the rows.
/// Without a sheet Scenarios those of `standing` stay.
/// Throws NotAModel naming a sheet or caption that is missing.
ModelOfSheets TablesOf(const Workbook& workbook, const InputTables& standing = {});

}  // namespace quarnel02
