#pragma once

#include <cstddef>

#include "sheets/DelimitedText.h"
#include "sheets/InputTables.h"
#include "sheets/Misfits.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

/// A block of cells of a sheet, counted from 0.
struct CellRange {
    std::size_t Row = 0;
    std::size_t Column = 0;
    std::size_t Rows = 1;
    std::size_t Columns = 1;
};

/// The outcome of an edit: the tables after it, or as they were when any cell does not fit.
struct CellEdit {
    InputTables Tables;
    std::size_t Cells = 0;  ///< that were set
    Misfits Refused;        ///< cells that do not fit; nothing was set when there are any
};

/// The sheet of tasks or of resources: its rows are the rows of the table in their order, its
/// columns those of ColumnsOf.

/// The texts of a block of cells; what lies outside of the sheet is left out.
TextBlock RecordTexts(const InputTables& tables, RecordKind kind, const CellRange& range);

/// Sets the cells from `row` and `column` on as if the block were typed there, all or none. Cells
/// that a short row of the block lacks stay as they are. Numbers of records are only set, matrix
/// rows do not follow them. Cells outside of the sheet do not fit unless they are blank; add the
/// missing records first (MissingRecords, AddRecords).
CellEdit SetRecordCells(InputTables tables, RecordKind kind, std::size_t row, std::size_t column,
                        const TextBlock& block);

/// Empties texts, and sets figures and types to those of a new record. Record numbers stay.
CellEdit ClearRecordCells(InputTables tables, RecordKind kind, const CellRange& range);

/// How many records the sheet lacks for the block set at `row`; blank rows at its end need none.
std::size_t MissingRecords(const InputTables& tables, RecordKind kind, std::size_t row,
                           const TextBlock& block);

}  // namespace quarnel02
