#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "jet/Reader.h"

namespace quarnel02::jet {

/// A table as it was read.
struct ReadTable {
    std::vector<Column> Columns;
    std::vector<Row> Rows;
};

/// All columns and rows of a table.
ReadTable ReadWhole(Reader& reader, std::string_view table);

/// What opening the content and reading every table of it brings: nothing, or the message.
std::string MessageOfReading(std::string content);

/// Rows as text, a line each: 1|"a text"|2.5|Null
std::string TextOf(const std::vector<Row>& rows);

/// A file in the tests' own store.
std::filesystem::path FixturePath(std::string_view name);

}  // namespace quarnel02::jet
