#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/Value.h"

namespace quarnel02 {

/// An SQL text with its numbers taken out, so that texts that differ only in their numbers share
/// one prepared statement.
struct SqlText {
    std::string Text;             ///< the text with "?" in place of each number
    std::vector<Value> Literals;  ///< the numbers, in order
};

/// Takes the numbers out of `sql` into `result`, whose buffers are reused.
void ParameterizeSql(std::string_view sql, SqlText& result);

/// The words and signs of an SQL text, in order, without the closing ";". They point into `sql`.
std::vector<std::string_view> Tokens(std::string_view sql);

/// What a SELECT reads, as far as a record set needs to know.
struct SelectShape {
    std::string Table;  ///< the single table whose rows it yields; empty for joins, aggregates
                        ///< and DISTINCT, which cannot be changed
    bool WholeTable = false;  ///< "SELECT * FROM table;" and nothing more
};

SelectShape ShapeOf(std::string_view sql);

/// The text of a single-table SELECT with the row's identity as its first column, and with rows
/// that its ORDER BY leaves equal, or all rows without one, in the order in which they were added.
std::string WithRowId(std::string_view sql);

}  // namespace quarnel02
