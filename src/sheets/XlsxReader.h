#pragma once

// Internal to sheets/: Office Open XML workbooks.

#include "sheets/Workbook.h"
#include "sheets/ZipArchive.h"

namespace quarnel02 {

/// The sheets of an .xlsx file in their order. Throws DamagedWorkbook.
Workbook ReadXlsx(const ZipArchive& archive);

}  // namespace quarnel02
