#include "app/frmReport.h"

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QScreen>
#include <utility>

#include "ui_frmReport.h"

namespace quarnel02 {

namespace {

constexpr double kShareOfScreen = 0.85;  ///< at most; the title bar needs room as well

/// Some desktop themes name a proportional font here, which takes the columns apart.
QFont FixedPitchFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (!QFontInfo(font).fixedPitch()) {
        font.setFamilies({QStringLiteral("monospace"), QStringLiteral("Liberation Mono")});
        font.setStyleHint(QFont::Monospace);
        font.setFixedPitch(true);
    }
    return font;
}

}  // namespace

frmReport::frmReport(QWidget* parent, QString file)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmReport>()), m_file(std::move(file)) {
    constexpr int columns = 84;
    constexpr int lines = 30;
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QFileInfo(m_file).fileName());
    const QFont font = FixedPitchFont();
    m_ui->txtReport->setFont(font);
    const QFontMetrics metrics(font);
    const QSize wanted(columns * metrics.horizontalAdvance(QLatin1Char('0')),
                       lines * metrics.lineSpacing());
    resize(wanted.boundedTo(screen()->availableSize() * kShareOfScreen));
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QWidget::close);
    Reload();
}

frmReport::~frmReport() = default;

void frmReport::Reload() {
    QFile text(m_file);
    if (text.open(QIODevice::ReadOnly)) {
        m_ui->txtReport->setPlainText(QString::fromUtf8(text.readAll()));
    } else {
        m_ui->txtReport->setPlainText(
            QStringLiteral("%1 cannot be read: %2").arg(m_file, text.errorString()));
    }
}

void ShowReport(QWidget* parent, const QString& file) {
    frmReport* viewer = nullptr;
    for (frmReport* each : parent->findChildren<frmReport*>()) {
        if (each->File() == file) {
            viewer = each;
            viewer->Reload();
        }
    }
    if (viewer == nullptr) {
        viewer = new frmReport(parent, file);
    }
    viewer->show();
    viewer->raise();
    viewer->activateWindow();
}

}  // namespace quarnel02
