// What frmMain shows of its model's state after every event.
#include <QAction>
#include <QLabel>
#include <exception>

#include "app/frmMain.h"
#include "commands/ModelPath.h"
#include "shell/Reports.h"
#include "ui_frmMain.h"
#include "widgets/ElidedLabel.h"

namespace quarnel02 {

namespace {

/// A command that opens a report, and how it reads without any mark.
struct ReportCommand {
    QAction* Action;
    const char* File;
    const char* Caption;
    const char* Tip;
};

/// `text`, whose first word has the mnemonic of `caption`; "&" in the rest is none.
QString WithMnemonic(const QString& caption, const std::string& text) {
    QString literal = QString::fromStdString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
    return literal.replace(0, caption.size() - 1, caption);
}

/// "1 task", "12 tasks"
QString CountText(const QString& count, const QString& what) {
    return count + QLatin1Char(' ') + what + (count == QLatin1String("1") ? "" : "s");
}

QString MarkOf(Standing standing) {
    switch (standing) {
        case Standing::OutOfDate:
            return QStringLiteral(" (out of date)");
        case Standing::Earlier:
            return QStringLiteral(" (of an earlier session)");
        case Standing::None:
        case Standing::Current:
            break;
    }
    return {};
}

}  // namespace

/// A store that cannot be read says so when it is used; steps and marks then stay as they are.
void frmMain::ShowState() {
    EnableDemandButtons();
    setWindowModified(m_commands.HasUnsavedWork());
    ShowFile();
    try {
        m_commands.History().Note();
        ShowSteps();
        m_marks.Look();
    } catch (const std::exception&) {
        return;
    }
    ShowMarks();
    ShowDesign();
    ShowResults();
    DescribePictures();
}

void frmMain::ShowSteps() {
    const EditHistory& history = m_commands.History();
    m_ui->mnuEditUndo->setText(WithMnemonic(QStringLiteral("&Undo"), history.UndoText()));
    m_ui->mnuEditUndo->setEnabled(history.CanUndo());
    m_ui->mnuEditRedo->setText(WithMnemonic(QStringLiteral("&Redo"), history.RedoText()));
    m_ui->mnuEditRedo->setEnabled(history.CanRedo());
}

void frmMain::ShowMarks() {
    const bool old = m_marks.OfPictures() == Standing::OutOfDate;
    m_ui->lblOutOfDate->setVisible(old);
    ShowTitles();
    const std::array commands = {
        ReportCommand{m_ui->mnuViewLast, kProductionReport, "&Production report",
                      "Opens the report of the last stochastic design"},
        ReportCommand{m_ui->mnuViewLastCont, kRunReport, "&Solution summary",
                      "Opens the report of the last fixed-demand design"}};
    for (const ReportCommand& command : commands) {
        const QString mark = MarkOf(m_marks.OfReport(command.File));
        command.Action->setText(QString::fromLatin1(command.Caption) + mark);
        command.Action->setStatusTip(QString::fromLatin1(command.Tip) + mark);
    }
}

void frmMain::ShowDesign() {
    if (!LastDesign) {
        m_design->Show({});
        return;
    }
    m_design->Show(QString::fromStdString(ShortDesignText(*LastDesign)),
                   QString::fromStdString(DesignText(*LastDesign)));
}

void frmMain::ShowFile() {
    const CurrentModel& model = m_commands.Current();
    const QString product = m_ui->txtProduct->text();
    const bool untitled = m_commands.IsUntitled();
    const QString file =
        untitled ? QStringLiteral("no file yet") : QString::fromStdString(model.File);
    const QString between = product.isEmpty() ? QString() : QStringLiteral(" - ");
    m_file->Show(product + between + file,
                 untitled ? QString() : QString::fromStdString(ModelPath(model.Dir, model.File)));
    const bool changed = isWindowModified();
    m_saved->setText(changed ? QStringLiteral("*") : QStringLiteral("saved"));
    m_saved->setToolTip(changed ? QStringLiteral("The model differs from its file")
                                : QStringLiteral("The model is as its file holds it"));
    m_saved->setVisible(changed || !untitled);
    m_size->Show(CountText(m_ui->txtTasks->text(), QStringLiteral("task")) + QStringLiteral(", ") +
                 CountText(m_ui->txtResources->text(), QStringLiteral("resource")));
    const std::string written = m_commands.TakeSavedName();
    if (!written.empty()) {
        ShowBriefly(QStringLiteral("Saved ") + QString::fromStdString(written));
    }
}

void frmMain::ShowBriefly(const QString& text) {
    constexpr int shown = 5000;  // ms
    m_ui->statusBar->showMessage(text, shown);
}

void frmMain::EnableDemandButtons() {
    const bool selected = SelectedDemand() >= 0;
    const bool filled = !m_ui->txtVolume->text().isEmpty() && !m_ui->txtProb->text().isEmpty();
    m_ui->cmdUpdate->setEnabled(selected && filled);
    m_ui->cmdDelete->setEnabled(selected);
}

}  // namespace quarnel02
