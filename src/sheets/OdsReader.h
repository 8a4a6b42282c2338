#pragma once

// Internal to sheets/: OpenDocument spreadsheets.

#include "sheets/Workbook.h"
#include "sheets/ZipArchive.h"

namespace quarnel02 {

/// The sheets of an .ods file in their order. Throws DamagedWorkbook.
Workbook ReadOds(const ZipArchive& archive);

}  // namespace quarnel02
