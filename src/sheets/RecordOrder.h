#pragma once

#include <cstddef>
#include <vector>

#include "sheets/InputTables.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

/// Places of records in their table, from 0, in any order; places beyond the table are passed over.
using Places = std::vector<std::size_t>;

/// Tables after a change of the order of tasks or resources. All of the changes below number the
/// records 1, 2, 3... in their new order, let every matrix row follow the record that bears its
/// number (of two with one number, the first), and have Gen count the records. Matrix rows of
/// numbers that no record bears stay without one. Throws Overflow beyond 32,767 records.
struct Reordered {
    InputTables Tables;
    Places Now;  ///< where the records that the change was about stand now, ascending
};

/// Adds so many new records in front of that place; at the number of records, behind the last one.
Reordered InsertRecords(InputTables tables, RecordKind kind, std::size_t place, std::size_t count);

/// Adds so many new records behind the last one.
Reordered AddRecords(InputTables tables, RecordKind kind, std::size_t count);

/// Puts a copy of each of the records, with copies of its matrix rows, behind the last of them.
Reordered DuplicateRecords(InputTables tables, RecordKind kind, const Places& places);

/// Removes the records and their matrix rows. When none would be left, one new record stays.
Reordered DeleteRecords(InputTables tables, RecordKind kind, const Places& places);

/// Moves each of the records one place up or down. Those that stand at the end already, and those
/// behind them, stay.
Reordered MoveRecordsUp(InputTables tables, RecordKind kind, const Places& places);
Reordered MoveRecordsDown(InputTables tables, RecordKind kind, const Places& places);

/// What the plain deletion of a record, which leaves matrix rows where they are, does to them.
struct DeletionEffect {
    std::size_t OwnRows = 0;      ///< rows of the record itself
    std::size_t ChangeOwner = 0;  ///< rows that become rows of another record
    std::size_t Lost = 0;         ///< rows that are deleted, or of no record afterwards
};
DeletionEffect EffectOfDeletion(const InputTables& tables, RecordKind kind, std::size_t place);

}  // namespace quarnel02
