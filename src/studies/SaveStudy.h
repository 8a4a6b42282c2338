#pragma once

#include <QString>
#include <QWidget>
#include <filesystem>
#include <vector>

#include "studies/ShownTable.h"

namespace quarnel02 {

/// Writes tables, whole or not at all, as the file's extension says: a sheet for each in an .xlsx
/// file, else the first one as CSV. Throws as WriteXlsx and WriteWhole do.
void SaveTables(const std::filesystem::path& file, const std::vector<ShownTable>& tables);

/// Asks for a file and saves the tables there; a failure is told in a message. `proposal` is the
/// path that is offered, without extension. The file's name; "" when the user cancels or it fails.
QString AskAndSave(QWidget* parent, const QString& proposal, const std::vector<ShownTable>& tables);

}  // namespace quarnel02
