#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <vector>

#include "picture/Picture.h"
#include "studies/ShownTable.h"

namespace quarnel02 {

/// What of a study is saved.
struct SavedParts {
    std::vector<ShownTable> Tables;    ///< the most important one first; at least one
    const Picture* Drawing = nullptr;  ///< may be missing
    QString Title;                     ///< of the drawing
};

/// Asks for a file and writes a study there, whole or not at all: the tables as a workbook with a
/// sheet for each, the first one as CSV, or the drawing as SVG, image or PDF document. Returns the
/// file's path, none when the user cancels. `directory` and `name`, without extension, are offered.
/// Throws as WriteXlsx and WriteWhole do.
std::optional<QString> AskAndSave(QWidget* parent, const QString& directory, const QString& name,
                                  const SavedParts& parts);

}  // namespace quarnel02
