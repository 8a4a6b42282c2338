// Sizes and colours of frmMain.
#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <algorithm>

#include "app/DemandListColumns.h"
#include "app/frmMain.h"
#include "ui_frmMain.h"
#include "widgets/Contrast.h"
#include "widgets/ElidedLabel.h"

namespace quarnel02 {

void frmMain::LayOut() {
    m_ui->picArc->SetZoomable(true);
    m_ui->chkFitWidth->setChecked(true);
    m_ui->lstDemand->setMinimumHeight(4 * fontMetrics().lineSpacing());
    m_ui->lstDemand->setItemDelegate(new DemandListColumns(m_ui->lstDemand));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        new QShortcut(key, m_ui->chkFitWidth, m_ui->chkFitWidth, &QCheckBox::click,
                      Qt::WidgetShortcut);
    }
    LayOutStatusBar();
    LayOutMark();
    LimitSize();
    ChooseSize();
    ShowColours();
}

/// On the left the model, on the right the design.
void frmMain::LayOutStatusBar() {
    const auto label = [this](auto* made, const char* name, const char* spoken) {
        made->setObjectName(QLatin1String(name));
        made->setAccessibleName(QLatin1String(spoken));
        return made;
    };
    QStatusBar& bar = *m_ui->statusBar;
    m_file = label(new ElidedLabel(this), "lblFile", "Product and file");
    QFont bold = m_file->font();
    bold.setBold(true);
    m_file->setFont(bold);
    m_saved = label(new QLabel(this), "lblSaved", "Saved or not");
    m_size = label(new ElidedLabel(this), "lblSize", "Size of the model");
    m_design = label(new ElidedLabel(this), "lblDesign", "Last design");
    m_progress = label(new QProgressBar(this), "prgWorking", "A design is being made");
    m_progress->setRange(0, 0);
    m_progress->setMaximumWidth(20 * fontMetrics().averageCharWidth());
    m_progress->hide();
    const int gap = fontMetrics().averageCharWidth();
    bar.setContentsMargins(gap, 0, 0, 0);
    m_saved->setContentsMargins(gap, 0, 0, 0);
    m_size->setContentsMargins(gap, 0, 0, 0);
    m_ui->lblOutOfDate->setMargin(gap / 4);
    bar.addWidget(m_file);
    bar.addWidget(m_saved);
    bar.addWidget(m_size);
    bar.addPermanentWidget(m_design);
    bar.addPermanentWidget(m_ui->lblOutOfDate);
    bar.addPermanentWidget(m_progress);
}

/// Black on amber in every theme.
void frmMain::LayOutMark() {
    constexpr QColor amber(255, 200, 60);
    QPalette colours = m_ui->lblOutOfDate->palette();
    colours.setColor(QPalette::Window, amber);
    colours.setColor(QPalette::WindowText, Qt::black);
    m_ui->lblOutOfDate->setPalette(colours);
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
    m_toolBarWidth = 0;
    FitToolBar();
}

void frmMain::ChooseSize() {
    const int network = static_cast<int>(picArc.Height() / kTwipsPerPixel);
    const int beside = m_ui->scrLeft->sizeHint().width() + 2 * m_ui->scrArc->frameWidth() +
                       8 * fontMetrics().averageCharWidth();
    const QSize wanted(static_cast<int>(picArc.Width() / kTwipsPerPixel) + beside,
                       network + 40 * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * 0.95));
    constexpr int columns = 56;
    const int wide = std::min(columns * fontMetrics().averageCharWidth(), 3 * width() / 10);
    const int left = std::max(m_ui->scrLeft->minimumWidth(), wide);
    m_ui->splMain->setSizes({left, width() - left});
    m_ui->splMain->setStretchFactor(0, 0);
    m_ui->splMain->setStretchFactor(1, 1);
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    FitToolBar();
}

/// After a change of theme.
void frmMain::ShowColours() {
    for (QLineEdit* box : {m_ui->txtResources, m_ui->txtTasks}) {
        QPalette greyed = palette();
        greyed.setColor(QPalette::Base, greyed.color(QPalette::Window));
        box->setPalette(greyed);
    }
    ShowSumColour();
    ShowIcons();
}

/// The colours are meant for white paper; here they keep their hue and become readable.
void frmMain::ShowSumColour() {
    QPalette paper = palette();
    const QColor ink(m_sumColour.Red, m_sumColour.Green, m_sumColour.Blue);
    paper.setColor(QPalette::WindowText, ReadableOn(paper.color(QPalette::Window), ink));
    m_ui->lblSum->setPalette(paper);
}

}  // namespace quarnel02
