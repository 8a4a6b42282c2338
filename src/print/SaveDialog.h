#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <vector>

namespace quarnel02 {

/// A kind of file that can be chosen when something is saved.
struct SavedKind {
    QString Text;       ///< "Image, twice as large"
    QString Extension;  ///< "png"
    double Scale = 1;   ///< of an image
};

struct SavedFile {
    QString Path;
    SavedKind Kind;
};

/// Drawings: SVG, images of three sizes, PDF.
std::vector<SavedKind> DrawingKinds();
SavedKind PdfKind();
/// Texts: TXT, PDF.
std::vector<SavedKind> TextKinds();

/// Asks where to save. `directory` and `name`, without extension, are offered. The kind is that of
/// the extension that was typed, else the chosen one. None when the user cancels.
std::optional<SavedFile> AskSavedFile(QWidget* parent, const QString& title,
                                      const QString& directory, const QString& name,
                                      const std::vector<SavedKind>& kinds);

/// A name for a file: without what no file can be called by.
QString FileNameOf(const QString& text);

}  // namespace quarnel02
