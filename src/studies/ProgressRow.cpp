#include "studies/ProgressRow.h"

#include <cmath>

#include "studies/StudyPage.h"
#include "ui_ProgressRow.h"
#include "widgets/TimeLeft.h"

namespace quarnel02 {

ProgressRow::ProgressRow(QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::ProgressRow>()) {
    constexpr int tick = 100;  // ms
    constexpr int columns = 24;
    m_ui->setupUi(this);
    m_ui->prgStudy->setFixedWidth(columns * fontMetrics().averageCharWidth());
    m_ui->lblTimeLeft->setMinimumWidth(columns * fontMetrics().averageCharWidth());
    setMinimumHeight(sizeHint().height());
    m_tick.setInterval(tick);
    connect(&m_tick, &QTimer::timeout, this, &ProgressRow::ShowProgress);
    connect(m_ui->cmdCancelStudy, &QPushButton::clicked, this, &ProgressRow::CancelAsked);
    connect(m_ui->cmdCompute, &QPushButton::clicked, this, &ProgressRow::ComputeAsked);
}

ProgressRow::~ProgressRow() = default;

void ProgressRow::Follow(const StudyPage& page) {
    m_page = &page;
    const bool computing = page.IsComputing();
    if (computing) {
        m_said.clear();
        m_tick.start();
    } else {
        m_tick.stop();
    }
    m_ui->lblBusy->Show(StateText());
    for (QWidget* part :
         {static_cast<QWidget*>(m_ui->prgStudy), static_cast<QWidget*>(m_ui->lblTimeLeft),
          static_cast<QWidget*>(m_ui->cmdCancelStudy)}) {
        part->setVisible(computing);
    }
    m_ui->cmdCompute->setVisible(page.IsCancelled());
    ShowProgress();
}

void ProgressRow::Say(const QString& text) {
    m_said = text;
    m_ui->lblBusy->Show(StateText());
}

QString ProgressRow::StateText() const {
    if (m_page != nullptr && m_page->IsComputing()) {
        return QStringLiteral("Computing...");
    }
    if (!m_said.isEmpty()) {
        return m_said;
    }
    if (m_page == nullptr) {
        return {};
    }
    return m_page->IsCancelled() ? QStringLiteral("Cancelled")
                                 : QString::fromStdString(m_page->Subject());
}

void ProgressRow::ShowProgress() {
    constexpr double percent = 100;
    const WorkProgress progress = m_page->Progress();
    m_ui->prgStudy->setValue(static_cast<int>(std::floor(percent * progress.Share)));
    m_ui->lblTimeLeft->setText(TimeLeftText(progress.Share, progress.Elapsed));
}

}  // namespace quarnel02
