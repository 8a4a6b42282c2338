#pragma once

#include <chrono>
#include <span>
#include <string>
#include <vector>

#include "jet/Value.h"

namespace quarnel02::jet {

/// A table for a new database. Its name is of the letters A to Z and a to z only. Columns are of
/// the types Byte, Integer, LongInteger, Currency, Single, Double and Text; every row has a value,
/// or Null, for each. A whole number is taken by a real column and a real one without decimal
/// places by a whole one; a Single takes the nearest single, a Currency the nearest four decimal
/// places.
struct NewTable {
    std::string Name;
    std::vector<Column> Columns;
    std::vector<Row> Rows;
};

/// The content of a new Jet 4 file (Access 2000 to 2003) with those tables, without indices. The
/// same arguments give the same bytes; `created` is what the file says of its making.
/// Throws RunTimeError with one line that names the table, row and column and says what to do:
/// Overflow for a number beyond its column's range, a text longer than its column or a row longer
/// than a page, TypeMismatch for a value of another type, SubscriptOutOfRange for more tables or
/// columns than fit and for a file beyond 128 MB.
std::string WriteDatabase(std::span<const NewTable> tables,
                          std::chrono::system_clock::time_point created);

}  // namespace quarnel02::jet
