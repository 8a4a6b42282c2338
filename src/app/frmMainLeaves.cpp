// What leaves frmMain: pictures and the report, copied, saved and printed.
#include <QAction>
#include <QApplication>
#include <QFileInfo>
#include <QMenu>
#include <chrono>

#include "app/QtPaths.h"
#include "app/frmMain.h"
#include "commands/KeptName.h"
#include "print/PictureCommands.h"
#include "print/PrintDocument.h"
#include "print/PrintPreview.h"
#include "print/SaveDialog.h"
#include "report/ComposeReport.h"
#include "studies/frmStudy.h"
#include "ui_frmMain.h"

namespace quarnel02 {

void frmMain::ConnectLeaves() {
    for (PictureBox* box : {m_ui->picArc, m_ui->picGraph_0, m_ui->picGraph_1, m_ui->picGraph_2,
                            m_ui->picGraph_3, m_ui->picLoad}) {
        AddPictureCommands(*box, [this, box](PictureCommand command) {
            RunCommand([&] { TakeOut(*box, command); });
        });
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
    on(m_ui->mnuPictureCopy, [this] { TakeOut(PictureInMind(), PictureCommand::Copy); });
    on(m_ui->mnuPictureSave, [this] { TakeOut(PictureInMind(), PictureCommand::Save); });
    on(m_ui->mnuPicturePrint, [this] { TakeOut(PictureInMind(), PictureCommand::Print); });
    on(m_ui->mnuFileReportPdf, [this] { SaveReport(); });
    on(m_ui->mnuFilePrint, [this] { ShowPrintPreview(this, Report()); });
    connect(m_ui->mnuFile, &QMenu::aboutToShow, this, &frmMain::NamePictureCommands);
    connect(m_ui->mnuFilePicture, &QMenu::aboutToShow, this, &frmMain::NamePictureCommands);
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

void frmMain::TakeOut(const PictureBox& box, PictureCommand command) {
    const Picture& picture = PictureOf(box);
    const QString title = TitleOf(box) + MarkOfPictures();
    const TitledPicture titled{picture, title, Text(TextBox::txtProduct)};
    switch (command) {
        case PictureCommand::Copy:
            CopyFrom(box, picture);
            ShowBriefly(QStringLiteral("Copied: ") + title);
            break;
        case PictureCommand::Save:
            NoteSaved(AskAndSave(this, UserDirectory(), ProposedName(TitleOf(box)), titled));
            break;
        case PictureCommand::Print:
            ShowPrintPreview(this, titled);
            break;
    }
}

void frmMain::NoteSaved(const std::optional<QString>& file) {
    if (file) {
        RememberDirectory(*file);
        ShowBriefly(QStringLiteral("Saved ") + QFileInfo(*file).fileName() + MarkOfPictures());
    }
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
    WriteWhole(ToPath(saved->Path), PdfOf(Report()));
    NoteSaved(saved->Path);
}

}  // namespace quarnel02
