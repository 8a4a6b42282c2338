// What leaves frmMain: pictures and the report, copied, saved and printed.
#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QMenu>
#include <chrono>

#include "app/QtPaths.h"
#include "app/frmMain.h"
#include "commands/KeptName.h"
#include "print/ClipboardPicture.h"
#include "print/PictureFiles.h"
#include "print/PrintDocument.h"
#include "print/PrintPreview.h"
#include "print/SaveDialog.h"
#include "report/ComposeReport.h"
#include "studies/frmStudy.h"
#include "ui_frmMain.h"

namespace quarnel02 {

namespace {

/// What a line printer wrote; none for a drawing.
std::optional<std::string> PrintedText(const Picture& picture) {
    return picture.IsComposed() ? std::nullopt : TextOf(picture);
}

}  // namespace

void frmMain::ConnectLeaves() {
    for (PictureBox* box : {m_ui->picArc, m_ui->picGraph_0, m_ui->picGraph_1, m_ui->picGraph_2,
                            m_ui->picGraph_3, m_ui->picLoad}) {
        AddPictureCommands(*box);
    }
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        for (; now != nullptr; now = now->parentWidget()) {
            if (auto* box = qobject_cast<PictureBox*>(now); box != nullptr && isAncestorOf(box)) {
                m_lastPicture = box;
            }
        }
    });
    const auto on = [this](QAction* action, const std::function<void()>& command) {
        connect(action, &QAction::triggered, this, [this, command] { RunCommand(command); });
    };
    on(m_ui->mnuPictureCopy, [this] { CopyBox(PictureInMind()); });
    on(m_ui->mnuPictureSave, [this] { SaveBox(PictureInMind()); });
    on(m_ui->mnuPicturePrint, [this] { PrintBox(PictureInMind()); });
    on(m_ui->mnuFileReportPdf, [this] { SaveReport(); });
    on(m_ui->mnuFilePrint, [this] { ShowPrintPreview(this, Report()); });
    connect(m_ui->mnuFile, &QMenu::aboutToShow, this, &frmMain::NamePictureCommands);
    connect(m_ui->mnuFilePicture, &QMenu::aboutToShow, this, &frmMain::NamePictureCommands);
}

/// The context menu of a box.
void frmMain::AddPictureCommands(PictureBox& box) {
    const auto add = [&](const char* name, const QString& text,
                         void (frmMain::*command)(const PictureBox&)) {
        auto* action = new QAction(text, &box);
        action->setObjectName(QLatin1String(name));
        connect(action, &QAction::triggered, this,
                [this, &box, command] { RunCommand([&] { (this->*command)(box); }); });
        box.addAction(action);
        return action;
    };
    QAction* copy = add("actCopy", QStringLiteral("&Copy"), &frmMain::CopyBox);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    add("actSave", QStringLiteral("&Save as..."), &frmMain::SaveBox);
    add("actPrint", QStringLiteral("&Print..."), &frmMain::PrintBox);
}

/// The menu says which picture it means.
void frmMain::NamePictureCommands() {
    const PictureBox& box = PictureInMind();
    m_ui->mnuFilePicture->setTitle(QStringLiteral("Pi&cture: ") + TitleOf(box));
    for (QAction* action : {m_ui->mnuPictureCopy, m_ui->mnuPictureSave, m_ui->mnuPicturePrint}) {
        action->setEnabled(!PictureOf(box).Figures().empty());
    }
}

/// The picture that had the focus last, as long as it shows something; else the network.
PictureBox& frmMain::PictureInMind() const {
    const bool shown = m_lastPicture != nullptr && m_lastPicture->isVisibleTo(this) &&
                       !PictureOf(*m_lastPicture).Figures().empty();
    return shown ? *m_lastPicture : *m_ui->picArc;
}

const Picture& frmMain::PictureOf(const PictureBox& box) const {
    const std::array graphs = {m_ui->picGraph_0, m_ui->picGraph_1, m_ui->picGraph_2,
                               m_ui->picGraph_3};
    for (std::size_t i = 0; i < graphs.size(); ++i) {
        if (graphs.at(i) == &box) {
            return picGraph.at(i);
        }
    }
    return &box == m_ui->picLoad ? picLoad : picArc;
}

/// "Circulation pump - line"
QString frmMain::ProposedName(const QString& what) const {
    return FileNameOf(QString::fromStdString(KeptProduct(Text(TextBox::txtProduct))) +
                      QStringLiteral(" - ") + what.toLower() + MarkOfPictures());
}

void frmMain::CopyBox(const PictureBox& box) {
    const QString selected = box.SelectedText();
    if (selected.isEmpty()) {
        CopyPicture(PictureOf(box));
    } else {
        CopyText(selected);
    }
    ShowBriefly(QStringLiteral("Copied: ") + TitleOf(box) + MarkOfPictures());
}

void frmMain::SaveBox(const PictureBox& box) {
    const Picture& picture = PictureOf(box);
    const QString title = TitleOf(box);
    const auto text = PrintedText(picture);
    const auto saved = AskSavedFile(this, QStringLiteral("Save as: ") + title, UserDirectory(),
                                    ProposedName(title), text ? TextKinds() : DrawingKinds());
    if (!saved) {
        return;
    }
    RememberDirectory(saved->Path);
    const QString kind = saved->Kind.Extension;
    const std::string content = kind == QLatin1String("txt")   ? *text
                                : kind == QLatin1String("svg") ? SvgOf(picture)
                                : kind == QLatin1String("png") ? PngOf(picture, saved->Kind.Scale)
                                : text                         ? PdfOf(PageOf(box))
                                       : PdfOf(picture, title.toStdString());
    WriteWhole(ToPath(saved->Path), content);
    ShowBriefly(QStringLiteral("Saved ") + QFileInfo(saved->Path).fileName() + MarkOfPictures());
}

/// A picture as a document of its own.
Document frmMain::PageOf(const PictureBox& box) const {
    const Picture& picture = PictureOf(box);
    return {(TitleOf(box) + MarkOfPictures()).toStdString(),
            Text(TextBox::txtProduct),
            TimeText(std::chrono::system_clock::now()),
            {PartFrom(picture, "", PaperShape(picture))}};
}

void frmMain::PrintBox(const PictureBox& box) {
    ShowPrintPreview(this, PageOf(box));
}

Document frmMain::Report() const {
    return ComposeReport(
        *this,
        {m_commands.IsUntitled() ? std::string() : m_commands.File(),
         m_marks.OfPictures() == Standing::OutOfDate, std::chrono::system_clock::now()},
        m_study == nullptr ? std::vector<DocumentPart>() : m_study->ReportParts());
}

void frmMain::SaveReport() {
    const auto saved = AskSavedFile(this, QStringLiteral("Report as PDF"), UserDirectory(),
                                    ProposedName(QStringLiteral("report")), {PdfKind()});
    if (!saved) {
        return;
    }
    RememberDirectory(saved->Path);
    WriteWhole(ToPath(saved->Path), PdfOf(Report()));
    ShowBriefly(QStringLiteral("Saved ") + QFileInfo(saved->Path).fileName() + MarkOfPictures());
}

}  // namespace quarnel02
