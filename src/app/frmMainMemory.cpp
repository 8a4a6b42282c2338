// What frmMain remembers from one start to the next.
#include <QSplitter>

#include "app/ResultBoxes.h"
#include "app/frmMain.h"
#include "ui_frmMain.h"

namespace quarnel02 {

namespace {

constexpr QLatin1String kGeometry("Window/geometry");
constexpr QLatin1String kColumns("Window/columns");

}  // namespace

void frmMain::RecallLayout() {
    restoreGeometry(m_memory.Bytes(kGeometry));
    m_ui->splMain->restoreState(m_memory.Bytes(kColumns));
    m_boxes->Recall(m_memory);
}

void frmMain::RememberLayout() {
    m_memory.Keep(kGeometry, saveGeometry());
    m_memory.Keep(kColumns, m_ui->splMain->saveState());
    m_boxes->Remember(m_memory);
}

}  // namespace quarnel02
