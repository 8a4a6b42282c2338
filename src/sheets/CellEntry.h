#pragma once

#include <string>

#include "sheets/EnteredNumber.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

/// What a field takes of an entered cell, or why it takes nothing.
struct CellEntry {
    Value Content;
    std::string
        Objection;  ///< "uptime is 0 %; it must be above 0 and at most 100."; "" when it fits
};

/// A text entered into a cell: names as one line (OneLine), figures within their limits
/// (FindFigure), numbers of records from 1 to 32,767, types of equipment as TypeCode has them.
/// Numbers may carry the unit that the figure is shown with ("$400", "95%"). Empty numbers do not
/// fit.
CellEntry EnteredCell(const SheetColumn& column, const std::string& text, DecimalSign sign);

/// The same check of a value from a file, whose texts are kept as they are.
CellEntry CheckedCell(const SheetColumn& column, const Value& value);

}  // namespace quarnel02
