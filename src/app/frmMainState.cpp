// What frmMain shows of its model's state after every event.
#include <QAction>
#include <QLabel>
#include <exception>

#include "app/frmMain.h"
#include "shell/Reports.h"
#include "ui_frmMain.h"

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
    try {
        m_commands.History().Note();
        ShowSteps();
        m_marks.Look();
    } catch (const std::exception&) {
        return;
    }
    ShowMarks();
    ShowDesign();
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
    m_ui->label_picArc->setText(old ? QStringLiteral("Arc network (out of date)")
                                    : QStringLiteral("Arc network"));
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

/// The product's name gives way where the line is short; the tool tip has all of it.
void frmMain::ShowDesign() {
    if (!LastDesign) {
        m_design->clear();
        m_design->setToolTip({});
        return;
    }
    constexpr int columns = 30;
    DesignMade shown = *LastDesign;
    shown.Product = fontMetrics()
                        .elidedText(QString::fromStdString(shown.Product), Qt::ElideMiddle,
                                    columns * fontMetrics().averageCharWidth())
                        .toStdString();
    m_design->setText(QString::fromStdString(DesignText(shown)));
    m_design->setToolTip(Qt::convertFromPlainText(QString::fromStdString(DesignText(*LastDesign))));
}

void frmMain::EnableDemandButtons() {
    const bool selected = SelectedDemand() >= 0;
    const bool filled = !m_ui->txtVolume->text().isEmpty() && !m_ui->txtProb->text().isEmpty();
    m_ui->cmdUpdate->setEnabled(selected && filled);
    m_ui->cmdDelete->setEnabled(selected);
}

}  // namespace quarnel02
