#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "sheets/InputTables.h"

namespace quarnel02 {

/// A column of a sheet: a field under the caption that the windows give it.
struct SheetColumn {
    std::string_view Table;
    std::string_view Field;
    std::size_t Place;  ///< of the field in a row of the table
    std::string_view Caption;
};

/// The numbered tables, each with a sheet of all its fields.
enum class RecordKind { Tasks, Resources };

/// The columns of each sheet, in the order of its window.
std::span<const SheetColumn> GeneralColumns();
std::span<const SheetColumn> TaskColumns();
std::span<const SheetColumn> ResourceColumns();
std::span<const SheetColumn> ColumnsOf(RecordKind kind);
/// Time, tool number and tool cost.
std::span<const SheetColumn> FigureColumns();
std::span<const SheetColumn> DemandColumns();
std::span<const SheetColumn> ScenarioColumns();

/// "task", "resource".
std::string_view NameOf(RecordKind kind);

/// The labels of the types of equipment, by their codes: "MNL", "FXD", "PGM", "AUT".
std::span<const std::string_view> TypeLabels();

/// What a column shows of a value: numbers in their default text, a type of equipment by its
/// label, nothing for an empty field.
std::string ShownText(const SheetColumn& column, const Value& value);

/// The code, 0 to 3, of a type of equipment given by its label or the first letters of it (M, F, P,
/// A), letter case aside, or by its code; nothing for any other text.
std::optional<int> TypeCode(std::string_view text);

}  // namespace quarnel02
