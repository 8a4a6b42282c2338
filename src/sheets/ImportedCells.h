#pragma once

// Internal to sheets/: checks the cells of a workbook.

#include <cstddef>

#include "sheets/EnteredNumber.h"
#include "sheets/Misfits.h"
#include "sheets/SheetColumns.h"
#include "sheets/Workbook.h"

namespace quarnel02 {

/// A cell of a sheet.
struct CellPlace {
    std::size_t Row;
    std::size_t Column;
};

/// Takes values out of the cells of one sheet and keeps what does not fit.
class ImportedCells {
  public:
    ImportedCells(const Sheet& sheet, Misfits& misfits);

    /// The cell as a field of that column, Null when it does not fit. What `standing`, the field in
    /// the model in work, shows likewise always fits; nullptr for none.
    Value Take(CellPlace place, const SheetColumn& column, const Value* standing);

    /// A whole number such as that of a task; Null for an empty cell, and for one that is none.
    Value TakeWhole(CellPlace place, std::string_view what);

    void Refuse(CellPlace place, const std::string& reason);

  private:
    const Sheet& m_sheet;
    Misfits& m_misfits;
    DecimalSign m_sign;
};

}  // namespace quarnel02
