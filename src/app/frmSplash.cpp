#include "app/frmSplash.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>
#include <QSysInfo>

#include "app/AppIcon.h"
#include "app/ClickGuard.h"
#include "ui_frmSplash.h"
#include "widgets/PicturePainter.h"

namespace quarnel02 {

namespace {

constexpr int kShowTime = 2000;  // ms

/// The four equipment classes in a row.
QPixmap EquipmentRow(int height, double ratio) {
    constexpr double side = 1000;
    constexpr double step = 1500;
    constexpr int classes = 4;
    const double width = height * (step * (classes - 1) + side) / side;
    QPixmap row(QSizeF(width * ratio, height * ratio).toSize());
    row.setDevicePixelRatio(ratio);
    row.fill(Qt::transparent);
    QPainter painter(&row);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(height / side, height / side);
    for (int type = 0; type < classes; ++type) {
        PaintFigure(painter, IconFigure{type * step, 0, side, static_cast<ResourceType>(type)});
    }
    return row;
}

void Resize(QLabel& label, double factor, bool bold) {
    QFont font = label.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    label.setFont(font);
}

}  // namespace

frmSplash::frmSplash(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_ui(std::make_unique<Ui::frmSplash>()),
      m_timer(new QTimer(this)) {
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    const int line = fontMetrics().lineSpacing();
    Resize(*m_ui->lblCompanyProduct, 2, true);
    QPixmap logo = AppLogo(static_cast<int>(6 * line * devicePixelRatioF()));
    logo.setDevicePixelRatio(devicePixelRatioF());
    m_ui->imgLogo->setPixmap(logo);
    m_ui->Image1->setPixmap(EquipmentRow(3 * line, devicePixelRatioF()));
    m_ui->Image1->setMinimumHeight(5 * line);
    m_ui->lblVersion->setText(QStringLiteral("Version ") + QCoreApplication::applicationVersion());
    m_ui->lblPlatform->setText(QStringLiteral("For %1").arg(QSysInfo::prettyProductName()));
    m_timer->setObjectName(QStringLiteral("tmrQuitMe"));
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &QWidget::close);
    m_timer->start(kShowTime);
}

frmSplash::~frmSplash() = default;

void frmSplash::ShowOverParent() {
    adjustSize();
    const QWidget& below = *parentWidget();
    move(below.geometry().center() - rect().center());
    show();
    QCoreApplication::instance()->installEventFilter(this);
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched != this) {
        close();
    }
    return QWidget::eventFilter(watched, event);
}

/// Its time begins when it is seen: the first picture of the main window may take longer.
void frmSplash::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    if (!m_seen) {
        m_seen = true;
        m_timer->start();
    }
}

/// A click on it may come a moment too late, or be a double click.
void frmSplash::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    new ClickGuard(geometry(), parentWidget());
}

void frmSplash::keyPressEvent(QKeyEvent* /*event*/) {
    close();
}

/// A window manager gives the keyboard to the window that is clicked, and to none when it goes.
void frmSplash::mousePressEvent(QMouseEvent* /*event*/) {
    QWidget* below = parentWidget()->window();
    close();
    below->activateWindow();
}

}  // namespace quarnel02
