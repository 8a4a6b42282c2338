// The buttons of frmMain that design the line.
#include <QProgressBar>
#include <QSignalBlocker>
#include <optional>

#include "app/frmMain.h"
#include "commands/cmdContinuous.h"
#include "shell/Reports.h"
#include "stoch/cmdStoch.h"
#include "ui_frmMain.h"

namespace quarnel02 {

void frmMain::ConnectSolve() {
    const std::array buttons = {m_ui->cmdContinuous_1, m_ui->cmdContinuous_2,
                                m_ui->cmdContinuous_3};
    for (int shifts = 1; shifts <= 3; ++shifts) {
        connect(buttons[static_cast<std::size_t>(shifts - 1)], &QPushButton::clicked, this,
                [this, shifts] { Solve(shifts); });
    }
    connect(m_ui->cmdStoch, &QPushButton::clicked, this, &frmMain::SolveStochastic);
    connect(m_ui->chkFitWidth, &QCheckBox::toggled, this,
            [this](bool fit) { fit ? m_ui->picArc->ResetView() : m_ui->picArc->ShowTrueSize(); });
    connect(m_ui->picArc, &PictureBox::ZoomChanged, this, [this](double zoom) {
        const QSignalBlocker silent(m_ui->chkFitWidth);
        m_ui->chkFitWidth->setChecked(zoom == 1);
    });
}

/// While it lives, nothing that is typed or clicked counts.
class frmMain::SolveScope : quarnel02::Immovable {
  public:
    explicit SolveScope(frmMain& window) : m_window(window) {
        m_window.m_solving = true;
        m_window.m_shield.Raise();
    }
    ~SolveScope() {
        m_window.ShowWorking(false);
        m_window.m_solving = false;
        m_window.m_shield.Lower();
    }

  private:
    frmMain& m_window;
};

void frmMain::Design(const std::function<void()>& solve, const char* report) {
    const auto made = [this] {
        return LastDesign ? std::optional(LastDesign->When) : std::nullopt;
    };
    RunCommand([&] {
        const SolveScope scope(*this);
        const auto before = made();
        RunEvent(solve);
        if (made() != before) {
            m_marks.NoteReport(report);
        }
    });
}

void frmMain::Solve(int shifts) {
    Design([&] { cmdContinuous_Click(*this, static_cast<std::int16_t>(shifts)); }, kRunReport);
}

void frmMain::SolveStochastic() {
    const QString shown = m_ui->statusBar->currentMessage();
    StochasticOutcome outcome;
    Design(
        [&] {
            m_ui->statusBar->clearMessage();
            outcome = cmdStoch_Click(*this);
        },
        kProductionReport);
    if (outcome.End == StochasticEnd::Cancelled) {
        ShowCancelled(shown);
    }
}

/// A notice belongs to the results, which are those from before again.
void frmMain::ShowCancelled(const QString& before) {
    if (!before.isEmpty() && before == m_notice) {
        m_ui->statusBar->showMessage(before);
    } else {
        ShowBriefly(QStringLiteral("Cancelled; model and results are as they were"));
    }
}

/// Hourglass, progress bar and text while a solve works, not while it asks.
void frmMain::ShowWorking(bool working) {
    if (working == m_progress->isVisibleTo(m_ui->statusBar)) {
        return;
    }
    SetBusy(working);
    m_progress->setVisible(working);
    m_ui->statusBar->showMessage(working ? QStringLiteral("Designing the line...") : QString());
    DoEvents();
}

}  // namespace quarnel02
