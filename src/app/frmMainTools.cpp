// The tool bar of frmMain.
#include <QLayout>
#include <QToolBar>
#include <QToolButton>
#include <utility>

#include "app/ToolIcons.h"
#include "app/frmMain.h"
#include "ui_frmMain.h"

namespace quarnel02 {

namespace {

/// What all buttons take with the style that is set.
int NeededWidth(const QToolBar& bar) {
    const QMargins margins = bar.layout()->contentsMargins();
    int width = margins.left() + margins.right();
    for (QAction* action : bar.actions()) {
        width += bar.widgetForAction(action)->sizeHint().width() + bar.layout()->spacing();
    }
    return width;
}

}  // namespace

void frmMain::ConnectToolBar() {
    const std::array<std::pair<QAction*, QPushButton*>, 4> designs = {
        {{m_ui->actShifts_1, m_ui->cmdContinuous_1},
         {m_ui->actShifts_2, m_ui->cmdContinuous_2},
         {m_ui->actShifts_3, m_ui->cmdContinuous_3},
         {m_ui->actStochastic, m_ui->cmdStoch}}};
    for (const auto& [action, button] : designs) {
        connect(action, &QAction::triggered, button, &QPushButton::click);
    }
}

void frmMain::ShowIcons() {
    const std::array<std::pair<QAction*, const char*>, 14> actions = {
        {{m_ui->mnuFileNew, "new"},
         {m_ui->mnuFileOpen, "open"},
         {m_ui->mnuFileSave, "save"},
         {m_ui->mnuEditUndo, "undo"},
         {m_ui->mnuEditRedo, "redo"},
         {m_ui->mnuViewTasks, "tasks"},
         {m_ui->mnuViewResources, "resources"},
         {m_ui->mnuViewMatrix, "matrix"},
         {m_ui->actShifts_1, "shifts-1"},
         {m_ui->actShifts_2, "shifts-2"},
         {m_ui->actShifts_3, "shifts-3"},
         {m_ui->actStochastic, "stochastic"},
         {m_ui->mnuViewStudy, "study"},
         {m_ui->mnuViewEnlarge, "enlarge"}}};
    for (const auto& [action, name] : actions) {
        action->setIcon(ToolIcon(QLatin1String(name), palette()));
    }
    for (QToolButton* button : {m_ui->btnEnlarge_Arc, m_ui->btnEnlarge_0, m_ui->btnEnlarge_1,
                                m_ui->btnEnlarge_2, m_ui->btnEnlarge_3, m_ui->btnEnlarge_Load}) {
        button->setIcon(m_ui->mnuViewEnlarge->icon());
    }
}

/// Texts stand beside the icons, or under them where the platform wants that, as long as there is
/// room for all of them.
void frmMain::FitToolBar() {
    const bool under =
        style()->styleHint(QStyle::SH_ToolButtonStyle) == Qt::ToolButtonTextUnderIcon;
    const Qt::ToolButtonStyle wanted =
        under ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonTextBesideIcon;
    QToolBar& bar = *m_ui->toolBar;
    if (m_toolBarWidth == 0) {
        bar.setToolButtonStyle(wanted);
        m_toolBarWidth = NeededWidth(bar);
    }
    bar.setToolButtonStyle(width() >= m_toolBarWidth ? wanted : Qt::ToolButtonIconOnly);
}

}  // namespace quarnel02
