#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "picture/Picture.h"
#include "print/SaveDialog.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {

/// How a picture leaves the program.
enum class PictureCommand { Copy, Save, Print };

/// Puts Copy (also Ctrl+C, when the box has the focus), Save as and Print into the context menu of
/// a box, as actions actCopy, actSave and actPrint.
void AddPictureCommands(PictureBox& box, const std::function<void(PictureCommand)>& command);

/// Copies what is selected in the box of a picture; without a selection the picture.
void CopyFrom(const PictureBox& box, const Picture& picture);

/// A picture with what is said about it.
struct TitledPicture {
    const Picture& Drawing;
    QString Title;
    std::string Product;  ///< stands on printed pages
};

/// The content of a file of a drawing, of one of the DrawingKinds.
std::string FileOf(const Picture& drawing, const SavedKind& kind, const QString& title);

/// Asks for a file and writes the picture there, whole or not at all; returns its path, none when
/// the user cancels. `directory` and `name`, without extension, are offered. What a line printer
/// wrote can become a text, a drawing SVG or an image, and either a PDF document. Throws as
/// WriteWhole does.
std::optional<QString> AskAndSave(QWidget* parent, const QString& directory, const QString& name,
                                  const TitledPicture& picture);

/// Shows the picture as the page that it will be printed on.
void ShowPrintPreview(QWidget* parent, const TitledPicture& picture);

}  // namespace quarnel02
