// What leaves the study window: tables and charts, copied, saved, printed, and in the report.
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <exception>

#include "print/PictureCommands.h"
#include "studies/ReportSection.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTableView.h"
#include "studies/frmStudy.h"
#include "ui_frmStudy.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {

namespace {

QString StateMark(const StudyPage& page) {
    return page.IsOutOfDate() ? QStringLiteral(" (out of date)") : QString();
}

}  // namespace

std::vector<DocumentPart> frmStudy::ReportParts() const {
    std::vector<DocumentPart> parts;
    for (StudyPage* page : Pages()) {
        if (page->IsInReport()) {
            for (DocumentPart& part : ReportSection(*page, NameOf(*page).toStdString())) {
                parts.push_back(std::move(part));
            }
        }
    }
    return parts;
}

QString frmStudy::NameOf(StudyPage& page) const {
    return m_ui->tabStudy->tabText(m_ui->tabStudy->indexOf(&page));
}

std::vector<ShownTable> frmStudy::TablesOfPage() const {
    std::vector<ShownTable> tables;
    for (const StudyTableView* view : CurrentPage().Tables()) {
        tables.push_back(view->Table());
    }
    return tables;
}

/// One below the other, with an empty row between.
void frmStudy::CopyTables() {
    QString text;
    for (const ShownTable& table : TablesOfPage()) {
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) +
                QString::fromStdString(WriteTabbed(BlockOf(table)));
    }
    QGuiApplication::clipboard()->setText(text);
    m_ui->rowProgress->Say(QStringLiteral("Copied: the tables") + StateMark(CurrentPage()));
}

void frmStudy::SavePage() {
    const auto pictures = CurrentPage().Pictures();
    SavedParts parts{TablesOfPage(), nullptr, {}};
    if (!pictures.empty()) {
        parts.Drawing = &pictures.front()->Shown();
        parts.Title = pictures.front()->accessibleName();
    }
    Save(NameOf(CurrentPage()), parts);
}

void frmStudy::Save(const QString& name, const SavedParts& parts) {
    NoteSaved([&] { return AskAndSave(this, ProposedDirectory(), ProposedName(name), parts); });
}

void frmStudy::TakeOut(const StudyPicture& picture, PictureCommand command) {
    const QString title = picture.accessibleName() + StateMark(CurrentPage());
    const TitledPicture titled{picture.Shown(), title, m_form.Text(TextBox::txtProduct)};
    switch (command) {
        case PictureCommand::Copy:
            CopyFrom(picture, picture.Shown());
            m_ui->rowProgress->Say(QStringLiteral("Copied: ") + title);
            break;
        case PictureCommand::Save:
            NoteSaved(
                [&] { return AskAndSave(this, ProposedDirectory(), ProposedName(title), titled); });
            break;
        case PictureCommand::Print:
            ShowPrintPreview(this, titled);
            break;
    }
}

/// A failure is told in a message.
void frmStudy::NoteSaved(const std::function<std::optional<QString>()>& save) {
    try {
        if (const auto file = save()) {
            m_ui->rowProgress->Say(QStringLiteral("Saved ") + QFileInfo(*file).fileName());
        }
    } catch (const std::exception& error) {
        ShowMessageBox(this, error.what(), MessageIcon::Critical);
    }
}

/// Beside the model.
QString frmStudy::ProposedDirectory() const {
    return m_current.Dir.empty() ? QDir::homePath() : QString::fromStdString(m_current.Dir);
}

/// "pump-Volumes"
QString frmStudy::ProposedName(const QString& what) const {
    const QString model =
        m_current.File.empty()
            ? QStringLiteral("Untitled")
            : QFileInfo(QString::fromStdString(m_current.File)).completeBaseName();
    return model + QLatin1Char('-') + what;
}

}  // namespace quarnel02
