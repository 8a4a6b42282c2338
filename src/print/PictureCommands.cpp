#include "print/PictureCommands.h"

#include <QAction>
#include <QDir>
#include <chrono>
#include <filesystem>

#include "basic/Files.h"
#include "print/ClipboardPicture.h"
#include "print/PictureFiles.h"
#include "print/PrintDocument.h"
#include "print/PrintPreview.h"
#include "shell/DesignMade.h"

namespace quarnel02 {

namespace {

/// What a line printer wrote; none for a drawing.
std::optional<std::string> PrintedText(const Picture& picture) {
    return picture.IsComposed() ? std::nullopt : TextOf(picture);
}

/// A picture as a document of its own.
Document DocumentOf(const TitledPicture& picture) {
    return {picture.Title.toStdString(),
            picture.Product,
            TimeText(std::chrono::system_clock::now()),
            {PartFrom(picture.Drawing, "", PaperShape(picture.Drawing))}};
}

std::string FileOf(const TitledPicture& picture, const std::string& text, const SavedKind& kind) {
    return kind.Extension == QLatin1String("txt") ? text : PdfOf(DocumentOf(picture));
}

}  // namespace

void AddPictureCommands(PictureBox& box, const std::function<void(PictureCommand)>& command) {
    const auto add = [&](const char* name, const QString& text, PictureCommand which) {
        auto* action = new QAction(text, &box);
        action->setObjectName(QLatin1String(name));
        QObject::connect(action, &QAction::triggered, &box, [command, which] { command(which); });
        box.addAction(action);
        return action;
    };
    QAction* copy = add("actCopy", QStringLiteral("&Copy"), PictureCommand::Copy);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    add("actSave", QStringLiteral("&Save as..."), PictureCommand::Save);
    add("actPrint", QStringLiteral("&Print..."), PictureCommand::Print);
}

void CopyFrom(const PictureBox& box, const Picture& picture) {
    const QString selected = box.SelectedText();
    if (selected.isEmpty()) {
        CopyPicture(picture);
    } else {
        CopyText(selected);
    }
}

std::string FileOf(const Picture& drawing, const SavedKind& kind, const QString& title) {
    if (kind.Extension == QLatin1String("svg")) {
        return SvgOf(drawing);
    }
    return kind.Extension == QLatin1String("png") ? PngOf(drawing, kind.Scale)
                                                  : PdfOf(drawing, title.toStdString());
}

std::optional<QString> AskAndSave(QWidget* parent, const QString& directory, const QString& name,
                                  const TitledPicture& picture) {
    const auto text = PrintedText(picture.Drawing);
    const auto saved = AskSavedFile(parent, QStringLiteral("Save as: ") + picture.Title, directory,
                                    name, text ? TextKinds() : DrawingKinds());
    if (!saved) {
        return std::nullopt;
    }
    const std::filesystem::path file = QDir::toNativeSeparators(saved->Path).toStdU16String();
    WriteWhole(file, text ? FileOf(picture, *text, saved->Kind)
                          : FileOf(picture.Drawing, saved->Kind, picture.Title));
    return saved->Path;
}

void ShowPrintPreview(QWidget* parent, const TitledPicture& picture) {
    ShowPrintPreview(parent, DocumentOf(picture));
}

}  // namespace quarnel02
