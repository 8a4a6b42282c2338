#pragma once

// Internal to model/: selections simple enough to answer from an image of the table.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel02 {

/// Column = number, or column between two numbers. The numbers are named by their place among
/// the statement's literals.
struct Condition {
    std::string Column;
    std::size_t LowLiteral;
    std::size_t HighLiteral;  ///< the same as LowLiteral for an equality
};

/// SELECT columns FROM one table, WHERE all of some conditions hold, ORDER BY columns.
struct Selection {
    std::vector<std::string> Columns;  ///< empty for all
    std::vector<Condition> Conditions;
    std::vector<std::string> Order;
};

/// Reads a SELECT whose numbers have been replaced by "?"; nothing when it is not of that form.
std::optional<Selection> ReadSelection(std::string_view sql);

}  // namespace quarnel02
