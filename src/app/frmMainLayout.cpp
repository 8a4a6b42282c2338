// Sizes and colours of frmMain.
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>

#include "app/frmMain.h"
#include "ui_frmMain.h"

namespace quarnel02 {

void frmMain::LayOut() {
    m_ui->picArc->SetZoomable(true);
    m_ui->chkFitWidth->setChecked(true);
    m_ui->lstDemand->setMinimumHeight(4 * fontMetrics().lineSpacing());
    for (QLineEdit* box : {m_ui->txtResources, m_ui->txtTasks}) {
        QPalette greyed = box->palette();
        greyed.setColor(QPalette::Base, greyed.color(QPalette::Window));
        box->setPalette(greyed);
    }
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        new QShortcut(key, m_ui->chkFitWidth, m_ui->chkFitWidth, &QCheckBox::click,
                      Qt::WidgetShortcut);
    }
    LayOutStatusBar();
    LayOutMark();
    LimitSize();
    ChooseSize();
}

void frmMain::LayOutStatusBar() {
    m_design = new QLabel(this);
    m_design->setObjectName(QStringLiteral("lblDesign"));
    m_design->setTextFormat(Qt::PlainText);
    m_design->setMinimumWidth(1);
    m_ui->statusBar->addPermanentWidget(m_design);
    m_progress = new QProgressBar(this);
    m_progress->setRange(0, 0);
    m_progress->setMaximumWidth(20 * fontMetrics().averageCharWidth());
    m_progress->hide();
    m_ui->statusBar->addPermanentWidget(m_progress);
}

/// Black on amber in every theme; its place is kept while it is hidden, so that nothing moves.
void frmMain::LayOutMark() {
    constexpr QColor amber(255, 200, 60);
    QPalette colours = m_ui->lblOutOfDate->palette();
    colours.setColor(QPalette::Window, amber);
    colours.setColor(QPalette::WindowText, Qt::black);
    m_ui->lblOutOfDate->setPalette(colours);
    QSizePolicy policy = m_ui->lblOutOfDate->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_ui->lblOutOfDate->setSizePolicy(policy);
    m_ui->lblOutOfDate->hide();
}

/// 800 x 560, or what a smaller screen has room for. The left pane scrolls where it is too low, and
/// a control to which the focus moves comes into view.
void frmMain::LimitSize() {
    constexpr QSize smallest(800, 560);
    const QSize title_bar(0, 2 * fontMetrics().lineSpacing());
    const QFontMetrics bold(m_ui->lblSum->font());
    m_ui->lblSum->setMinimumWidth(
        bold.horizontalAdvance(QStringLiteral("100.05% (0.05% too much)")));
    WidenLeftPane();
    setMinimumSize(smallest.boundedTo(screen()->availableSize() - title_bar));
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (before != nullptr && now != nullptr && m_ui->paneLeft->isAncestorOf(now)) {
            m_ui->scrLeft->ensureWidgetVisible(now);
        }
    });
}

/// The pane never scrolls sideways.
void frmMain::WidenLeftPane() {
    m_ui->scrLeft->setMinimumWidth(m_ui->paneLeft->minimumSizeHint().width() +
                                   m_ui->scrLeft->verticalScrollBar()->sizeHint().width());
}

/// Only now the style has had its say on the buttons.
void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    WidenLeftPane();
}

void frmMain::ChooseSize() {
    const int network = static_cast<int>(picArc.Height() / kTwipsPerPixel);
    const int beside = m_ui->scrLeft->sizeHint().width() + 2 * m_ui->scrArc->frameWidth() +
                       8 * fontMetrics().averageCharWidth();
    const QSize wanted(static_cast<int>(picArc.Width() / kTwipsPerPixel) + beside,
                       network + 40 * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * 0.95));
    const int upper = std::min(network + 3 * fontMetrics().lineSpacing(), 2 * height() / 5);
    m_ui->splRight->setStretchFactor(0, 0);
    m_ui->splRight->setStretchFactor(1, 1);
    m_ui->splRight->setSizes({upper, height() - upper});
}

/// The colours are meant for light paper; on a dark window they are lit up in their own hue.
void frmMain::ShowSumColour() {
    constexpr int dark = 128;
    constexpr float lit = 0.82F;
    QPalette paper = palette();
    QColor ink(m_sumColour.Red, m_sumColour.Green, m_sumColour.Blue);
    if (paper.color(QPalette::Window).lightness() < dark) {
        ink.setHslF(std::max(ink.hslHueF(), 0.0F), ink.hslSaturationF(), lit);
    }
    paper.setColor(QPalette::WindowText, ink);
    m_ui->lblSum->setPalette(paper);
}

}  // namespace quarnel02
