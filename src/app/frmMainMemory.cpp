// What frmMain remembers from one start to the next.
#include <QSplitter>

#include "app/RestoreSizes.h"
#include "app/ResultBoxes.h"
#include "app/frmMain.h"
#include "ui_frmMain.h"

namespace quarnel02 {

namespace {

constexpr QLatin1String kGeometry("Window/geometry");
constexpr QLatin1String kColumns("Window/columns");
constexpr int kLargest = 16384;  ///< wider than any desktop

}  // namespace

void frmMain::RecallLayout() {
    const QRect usual = geometry();
    restoreGeometry(m_memory.Bytes(kGeometry));
    if (width() > kLargest || height() > kLargest) {  // a damaged memory
        setGeometry(usual);
    }
    RestoreSizes(*m_ui->splMain, m_memory.Bytes(kColumns));
    m_boxes->Recall(m_memory);
}

void frmMain::RememberLayout() {
    m_memory.Keep(kGeometry, saveGeometry());
    m_memory.Keep(kColumns, m_ui->splMain->saveState());
    m_boxes->Remember(m_memory);
}

}  // namespace quarnel02
