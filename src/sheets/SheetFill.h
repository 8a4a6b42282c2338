#pragma once

// Internal to sheets/: what the readers of workbooks share.

#include <cstddef>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

#include "sheets/Workbook.h"

namespace quarnel02 {

/// The name of an element or attribute without its namespace.
std::string_view LocalName(const char* name);
/// The first child of that local name; an empty node without one.
pugi::xml_node Child(const pugi::xml_node& node, std::string_view name);
/// The value of the attribute of that local name; "" without one.
std::string_view Attribute(const pugi::xml_node& node, std::string_view name);

/// A decimal number as files write it. Throws DamagedWorkbook for any other text.
double FileNumber(std::string_view text);
/// The same for a number from 0 on, such as a count.
std::size_t FileCount(std::string_view text);

/// A share as percent: 0.95 is 95, without the traces of the multiplication.
double PercentOf(double share);

/// Fills the sheets of a workbook, which may not get larger than that of any model.
class SheetFiller {
  public:
    /// Adds a sheet, which is the one that is filled from now on.
    void Add(std::string_view name);

    /// Puts a value into the sheet, making it as large as that takes; Null is not put anywhere.
    /// Throws DamagedWorkbook beyond the end of any sheet, or when there are too many cells.
    void Put(std::size_t row, std::size_t column, Value value);
    /// Counts a text that is kept. Throws DamagedWorkbook when there are too many, or too long
    /// ones.
    void CountText(std::size_t bytes);
    /// Repeats a row so many times more, below it. Throws as Put does.
    void Repeat(std::size_t row, std::size_t times);

    [[nodiscard]] Workbook Result() { return std::move(m_workbook); }

  private:
    void Count(std::size_t cells);

    Workbook m_workbook;
    std::size_t m_cells = 0;
    std::size_t m_text = 0;  ///< bytes of texts
};

}  // namespace quarnel02
