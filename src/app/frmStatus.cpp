#include "app/frmStatus.h"

#include <QCoreApplication>
#include <QEventLoop>

#include "ui_frmStatus.h"

namespace quarnel02 {

frmStatus::frmStatus(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_ui(std::make_unique<Ui::frmStatus>()) {
    constexpr int columns = 60;
    m_ui->setupUi(this);
    setMinimumWidth(columns * fontMetrics().averageCharWidth());
    m_ui->lblStatus->setMinimumHeight(2 * fontMetrics().lineSpacing());
}

frmStatus::~frmStatus() = default;

void frmStatus::SetStatus(const QString& text) {
    m_ui->lblStatus->setText(text);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmStatus::SetProgress(int done, int all) {
    m_ui->prgStatus->setMaximum(all);
    m_ui->prgStatus->setValue(done);
}

}  // namespace quarnel02
