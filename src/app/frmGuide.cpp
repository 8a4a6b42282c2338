#include "app/frmGuide.h"

#include <QScreen>

#include "ui_frmGuide.h"

namespace quarnel02 {

frmGuide::frmGuide(QWidget* parent) : QDialog(parent), m_ui(std::make_unique<Ui::frmGuide>()) {
    constexpr int columns = 100;
    constexpr int lines = 36;
    constexpr double share_of_screen = 0.85;
    m_ui->setupUi(this);
    const int margin = 4 * fontMetrics().lineSpacing();
    const QSize wanted(columns * fontMetrics().averageCharWidth() + margin,
                       lines * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * share_of_screen));
    m_ui->txtGuide->ShowGuide(width() - margin);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

frmGuide::~frmGuide() = default;

}  // namespace quarnel02
