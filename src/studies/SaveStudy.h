#pragma once

#include <QString>
#include <QWidget>
#include <filesystem>
#include <vector>

#include "picture/Picture.h"
#include "studies/ShownTable.h"

namespace quarnel02 {

/// What of a study is saved; either may be missing.
struct SavedParts {
    std::vector<ShownTable> Tables;  ///< the most important one first
    const Picture* Drawing = nullptr;
};

/// Writes a study, whole or not at all, as the file's extension says: the picture as .svg or .png,
/// the tables as an .xlsx file with a sheet for each, else the first one as CSV. What the parts
/// lack is not offered to the user. Throws as WriteXlsx and WriteWhole do.
void SaveStudy(const std::filesystem::path& file, const SavedParts& parts);

/// Asks for a file and saves the parts there; a failure is told in a message. `proposal` is the
/// path that is offered, without extension.
void AskAndSave(QWidget* parent, const QString& proposal, const SavedParts& parts);

}  // namespace quarnel02
