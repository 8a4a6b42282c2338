#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel02 {

/// Texts of cells, row by row from the top left one. Rows may differ in length; each has a cell.
using TextBlock = std::vector<std::vector<std::string>>;

/// The cells of tab-separated text as spreadsheets put it on the clipboard. Rows end with LF, CRLF
/// or CR, the last one also with the text. A cell that is wholly in double quotes may hold tabs,
/// line breaks and doubled quotes; any other quote stands for itself. Never fails.
TextBlock ReadTabbed(std::string_view text);

/// No fewer cells than ReadTabbed finds in the text, counted without reading them.
std::size_t MostCellsIn(std::string_view text);

/// The same text for the clipboard: ReadTabbed gives the block back.
std::string WriteTabbed(const TextBlock& block);

/// A cell of a CSV file: nothing where nothing stands between two separators, and the empty text
/// where two quotes do.
using CsvCell = std::optional<std::string>;
using CsvRows = std::vector<std::vector<CsvCell>>;

/// The cells of a CSV text, read as ReadTabbed reads; a byte order mark is passed over. The
/// separator is the comma, semicolon or tab that stands most often, unquoted, in the first line; of
/// two the first one.
CsvRows ReadCsv(std::string_view text);

/// CSV with commas, which ReadCsv gives back.
std::string WriteCsv(const CsvRows& rows);

}  // namespace quarnel02
