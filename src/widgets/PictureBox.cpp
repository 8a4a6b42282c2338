#include "widgets/PictureBox.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "widgets/PicturePainter.h"

namespace quarnel02 {

namespace {

constexpr qint64 kProgressPause = 50;   ///< shortest time between progress displays, ms
constexpr qint64 kProgressBudget = 15;  ///< of painting for one of them, ms
constexpr qint64 kProgressShare = 9;    ///< pause after a display in units of its duration
constexpr qint64 kNoLimit = 1000000;
constexpr qint64 kSlowDrawing = 40;  ///< an image that takes longer is stretched while resizing, ms
constexpr int kSettleTime = 120;     ///< ms

bool operator==(const Extent& a, const Extent& b) {
    return a.Left == b.Left && a.Top == b.Top && a.Right == b.Right && a.Bottom == b.Bottom;
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    connect(&m_settle, &QTimer::timeout, this, qOverload<>(&QWidget::update));
    m_claim.setSingleShot(true);
    m_claim.setInterval(0);
    connect(&m_claim, &QTimer::timeout, this, &PictureBox::ClaimSize);
    m_sinceProgress.start();
}

void PictureBox::SetPicture(Picture& picture) {
    m_picture = &picture;
    m_picture->OnChange = [this] { PictureChanged(); };
    m_image = {};
    UpdateExtent();
    update();
}

void PictureBox::SetSizing(Sizing sizing) {
    m_sizing = sizing;
    m_image = {};
    if (m_picture != nullptr) {
        UpdateExtent();
    }
    ClaimSize();
    update();
}

QSize PictureBox::sizeHint() const {
    return {static_cast<int>(std::ceil((m_extent.Right - m_extent.Left) / kTwipsPerPixel)),
            static_cast<int>(std::ceil((m_extent.Bottom - m_extent.Top) / kTwipsPerPixel))};
}

void PictureBox::PictureChanged() {
    if (m_picture->Figures().empty()) {
        m_image = {};
    }
    update();
    if (isVisible() && !m_showingProgress && m_sinceProgress.elapsed() >= m_pause) {
        ShowProgress();
    }
}

/// Lets the screen keep up with a drawing that goes on inside one event.
void PictureBox::ShowProgress() {
    QElapsedTimer duration;
    duration.start();
    m_showingProgress = true;
    repaint();
    m_showingProgress = false;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_pause = std::max(kProgressPause, kProgressShare * duration.elapsed());
    m_sinceProgress.restart();
    if (m_painted < m_picture->Figures().size()) {
        update();
    }
}

/// A picture fitted into the box does without the empty lower part of its paper, so that the
/// rest is larger.
void PictureBox::UpdateExtent() {
    constexpr double least_share = 0.5;
    Extent extent = m_picture->Bounds();
    if (m_sizing == Sizing::FitBox) {
        extent.Bottom = std::max(m_picture->Drawn().Bottom, least_share * m_picture->Height());
    }
    if (extent == m_extent) {
        return;
    }
    m_extent = extent;
    m_image = {};
    m_claim.start();
}

void PictureBox::ClaimSize() {
    updateGeometry();
    const QSize whole = sizeHint();
    switch (m_sizing) {
        case Sizing::TrueSize:
            setMinimumSize(whole);
            break;
        case Sizing::FitWidth:
            setMinimumSize(1, width() * whole.height() / std::max(1, whole.width()));
            break;
        case Sizing::FitBox:
            break;
    }
}

double PictureBox::PixelsPerTwip() const {
    const double across = width() / (m_extent.Right - m_extent.Left);
    const double down = height() / (m_extent.Bottom - m_extent.Top);
    switch (m_sizing) {
        case Sizing::TrueSize:
            return 1 / kTwipsPerPixel;
        case Sizing::FitWidth:
            return across;
        case Sizing::FitBox:
            break;
    }
    return std::min(across, down);
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_settle.start();
    if (m_sizing == Sizing::FitWidth) {
        ClaimSize();
    }
}

bool PictureBox::IsImageCurrent() const {
    return !m_image.isNull() && m_image.size() == size() * devicePixelRatioF() &&
           m_imageScale == PixelsPerTwip();
}

bool PictureBox::MayStretch() const {
    return !m_image.isNull() && m_settle.isActive() && m_drawingTime > kSlowDrawing;
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (m_picture == nullptr) {
        painter.fillRect(rect(), Qt::white);
        return;
    }
    UpdateExtent();
    if (!IsImageCurrent() && MayStretch()) {
        const double stretch = PixelsPerTwip() / m_imageScale;
        painter.fillRect(rect(), Qt::white);
        painter.scale(stretch, stretch);
        painter.drawImage(0, 0, m_image);
        return;
    }
    Draw(m_showingProgress ? kProgressBudget : kNoLimit);
    painter.drawImage(0, 0, m_image);
    if (m_picture->Figures().empty() && !m_placeholder.isEmpty()) {
        painter.setPen(Qt::darkGray);
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
    }
}

/// Adds to the image what has been drawn since, for about so long.
void PictureBox::Draw(qint64 milliseconds) {
    if (!IsImageCurrent()) {
        m_image = QImage(size() * devicePixelRatioF(), QImage::Format_RGB32);
        m_image.setDevicePixelRatio(devicePixelRatioF());
        m_image.fill(Qt::white);
        m_imageScale = PixelsPerTwip();
        m_painted = 0;
        m_drawingTime = 0;
    }
    if (m_painted == m_picture->Figures().size()) {
        return;
    }
    QPainter painter(&m_image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(m_imageScale, m_imageScale);
    painter.translate(-m_extent.Left, -m_extent.Top);
    DrawFigures(painter, milliseconds);
}

void PictureBox::DrawFigures(QPainter& painter, qint64 milliseconds) {
    constexpr std::size_t figures_per_look = 16;
    QElapsedTimer clock;
    clock.start();
    const auto& figures = m_picture->Figures();
    while (m_painted < figures.size()) {
        PaintFigure(painter, figures[m_painted]);
        ++m_painted;
        if (m_painted % figures_per_look == 0 && clock.elapsed() >= milliseconds) {
            break;
        }
    }
    m_drawingTime += clock.elapsed();
}

}  // namespace quarnel02
