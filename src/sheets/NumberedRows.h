#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "sheets/SheetColumns.h"

namespace quarnel02 {

/// Place of the number in a row of Tasks and of Resources.
constexpr std::size_t kNumberPlace = 0;

/// The number of the record at a place of a list.
constexpr std::int64_t NumberAt(std::size_t place) {
    return static_cast<std::int64_t>(place) + 1;
}

TableRows& RowsOf(InputTables& tables, RecordKind kind);
const TableRows& RowsOf(const InputTables& tables, RecordKind kind);

/// Place of the number of the task or resource in a row of Matrix.
std::size_t MatrixPlaceOf(RecordKind kind);

/// A task or resource as the editors add it, with that number.
InputRow NewRecord(RecordKind kind, std::size_t number);

/// " (Mount impeller)", " (Robot)": what stands behind the number of a record that has a name.
std::string NameInBrackets(const InputRow& record, RecordKind kind);

/// A whole number; nothing for any other value.
std::optional<std::int64_t> NumberIn(const Value& value);

/// The place of the record that bears each number: of two with one number, the first.
std::map<std::int64_t, std::size_t> PlacesByNumber(const TableRows& records);

/// Has Gen count the tasks and the resources anew.
void CountRecords(InputTables& tables);

}  // namespace quarnel02
