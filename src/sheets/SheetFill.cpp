#include "sheets/SheetFill.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "sheets/ZipArchive.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kMostColumns = 16'384;
constexpr std::size_t kMostRows = 1'048'576;
constexpr std::size_t kMostTexts = 32'000'000;  ///< of texts, in bytes

template <class Number>
Number Parsed(std::string_view text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) {
        throw DamagedWorkbook("has \"" + std::string(text.substr(0, 40)) +
                              "\" where a number belongs");
    }
    return number;
}

}  // namespace

std::string_view LocalName(const char* name) {
    const std::string_view whole(name);
    const auto colon = whole.find(':');
    return colon == std::string_view::npos ? whole : whole.substr(colon + 1);
}

pugi::xml_node Child(const pugi::xml_node& node, std::string_view name) {
    return node.find_child(
        [&](const pugi::xml_node& child) { return LocalName(child.name()) == name; });
}

std::string_view Attribute(const pugi::xml_node& node, std::string_view name) {
    return node
        .find_attribute([&](const pugi::xml_attribute& attribute) {
            return LocalName(attribute.name()) == name;
        })
        .value();
}

double FileNumber(std::string_view text) {
    return Parsed<double>(text);
}

std::size_t FileCount(std::string_view text) {
    return Parsed<std::size_t>(text);
}

double PercentOf(double share) {
    constexpr double hundred = 100;
    return TextToDouble(NumberText(share * hundred), "percent");
}

void SheetFiller::Add(std::string_view name) {
    Count(1);
    m_workbook.emplace_back().Name = name;
}

void SheetFiller::Count(std::size_t cells) {
    m_cells += cells;
    if (m_cells > limits::kCells) {
        throw DamagedWorkbook("is larger than that of any model");
    }
}

void SheetFiller::CountText(std::size_t bytes) {
    m_text += bytes;
    if (m_text > kMostTexts) {
        throw DamagedWorkbook("is larger than that of any model");
    }
}

void SheetFiller::Put(std::size_t row, std::size_t column, Value value) {
    if (IsNull(value)) {
        return;
    }
    if (row >= kMostRows || column >= kMostColumns) {
        throw DamagedWorkbook("has cells beyond the end of a sheet");
    }
    if (const auto* text = std::get_if<std::string>(&value)) {
        CountText(text->size());
    }
    TableRows& rows = m_workbook.back().Cells;
    if (row >= rows.size()) {
        Count(row + 1 - rows.size());
        rows.resize(row + 1);
    }
    InputRow& cells = rows[row];
    if (column >= cells.size()) {
        Count(column + 1 - cells.size());
        cells.resize(column + 1);
    }
    cells[column] = std::move(value);
}

void SheetFiller::Repeat(std::size_t row, std::size_t times) {
    TableRows& rows = m_workbook.back().Cells;
    if (row >= rows.size() || rows[row].empty()) {
        return;
    }
    const InputRow same = rows[row];
    for (std::size_t copy = 1; copy <= times; ++copy) {
        for (std::size_t column = 0; column < same.size(); ++column) {
            Put(row + copy, column, same[column]);
        }
    }
}

}  // namespace quarnel02
