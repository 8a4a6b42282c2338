#include "app/frmStatus.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <chrono>

#include "ui_frmStatus.h"
#include "widgets/TimeLeft.h"

namespace quarnel02 {

frmStatus::frmStatus(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_ui(std::make_unique<Ui::frmStatus>()) {
    constexpr int columns = 60;
    m_ui->setupUi(this);
    setMinimumWidth(columns * fontMetrics().averageCharWidth());
    m_ui->lblStatus->setMinimumHeight(2 * fontMetrics().lineSpacing());
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmStatus::reject);
    m_shown.start();
}

frmStatus::~frmStatus() = default;

void frmStatus::SetStatus(const QString& text) {
    m_ui->lblStatus->setText(text);
}

void frmStatus::SetProgress(int done, int all) {
    m_ui->prgStatus->setMaximum(all);
    m_ui->prgStatus->setValue(done);
    m_ui->prgStatus->setTextVisible(all > 0);
    const double share = all > 0 ? static_cast<double>(done) / all : 0;
    m_ui->lblTimeLeft->setText(TimeLeftText(share, std::chrono::milliseconds(m_shown.elapsed())));
}

void frmStatus::Look() {
    constexpr qint64 pause = 30;  // ms
    if (m_looked.isValid() && m_looked.elapsed() < pause) {
        return;
    }
    QCoreApplication::processEvents();
    m_looked.start();
}

void frmStatus::reject() {
    m_cancelled = true;
    m_ui->cmdCancel->setEnabled(false);
    SetStatus(QStringLiteral("Cancelling..."));
}

}  // namespace quarnel02
