// Zooming, dragging and the words behind figures.
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "widgets/PictureBox.h"

namespace quarnel02 {

namespace {

constexpr double kLargestZoom = 16;
constexpr double kZoomStep = 1.25;
constexpr double kReach = 6 * kTwipsPerPixel;  ///< of the pointer

QPointF ToTwips(QPointF pixels) {
    return pixels * kTwipsPerPixel;
}

/// A line for each part of the words.
QString Broken(const std::string& words) {
    return QString::fromStdString(words).replace(QStringLiteral("; "), QStringLiteral(";\n"));
}

}  // namespace

void PictureBox::SetZoomable(bool zoomable) {
    m_zoomable = zoomable;
    const auto policy = zoomable ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
    if (zoomable && actions().empty()) {
        auto* fit = new QAction(QStringLiteral("&Fit to box"), this);
        fit->setShortcut(Qt::Key_Home);
        fit->setShortcutContext(Qt::WidgetShortcut);
        connect(fit, &QAction::triggered, this, &PictureBox::ResetView);
        addAction(fit);
    }
    LayOut();
}

/// A point of the box in the units of the drawing.
QPointF PictureBox::OnSheet(QPointF point) const {
    const Placement& sheet = m_picture->Sheet;
    const QPointF paper = ToTwips(point + Offset()) - QPointF(sheet.Left, sheet.Top);
    return {paper.x() / sheet.Scale, paper.y() / (sheet.Scale * sheet.Stretch)};
}

void PictureBox::MoveSheet(QPointF onSheet, QPointF point) {
    const Placement& sheet = m_picture->Sheet;
    const QPointF paper = QPointF(sheet.Left + sheet.Scale * onSheet.x(),
                                  sheet.Top + sheet.Scale * sheet.Stretch * onSheet.y()) /
                          kTwipsPerPixel;
    const QPoint offset = (paper - point).toPoint();
    horizontalScrollBar()->setValue(offset.x());
    verticalScrollBar()->setValue(offset.y());
}

void PictureBox::SetZoom(double zoom, QPointF point) {
    const double bounded = std::clamp(zoom, 1.0, kLargestZoom);
    if (m_picture == nullptr || !m_zoomable || bounded == m_zoom) {
        return;
    }
    const QPointF held = OnSheet(point);
    m_zoom = bounded;
    m_moving.start();
    LayOut();
    MoveSheet(held, point);
    emit ZoomChanged(m_zoom);
}

void PictureBox::ResetView() {
    SetZoom(1, rect().center());
}

void PictureBox::ShowTrueSize() {
    if (m_picture != nullptr && m_picture->IsComposed()) {
        SetZoom(m_zoom / m_picture->Sheet.Scale, rect().center());
    }
}

void PictureBox::wheelEvent(QWheelEvent* event) {
    constexpr double delta_of_step = 120;
    if (!m_zoomable) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    SetZoom(m_zoom * std::pow(kZoomStep, event->angleDelta().y() / delta_of_step),
            event->position());
    event->accept();
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Escape && m_kept) {
        Forget();
    } else if (m_zoomable && (key == Qt::Key_Plus || key == Qt::Key_Equal)) {
        SetZoom(m_zoom * kZoomStep, rect().center());
    } else if (m_zoomable && key == Qt::Key_Minus) {
        SetZoom(m_zoom / kZoomStep, rect().center());
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_pressedAt = event->position();
        m_offsetAtPress = Offset();
        m_dragging = false;
    }
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (!m_pressedAt) {
        Hover(event->position(), event->globalPosition().toPoint());
        return;
    }
    const QPoint way = (event->position() - *m_pressedAt).toPoint();
    if (!m_dragging && way.manhattanLength() < QApplication::startDragDistance()) {
        return;
    }
    m_dragging = true;
    m_moving.start();
    StopHovering();
    const QPoint offset = m_offsetAtPress - way;
    horizontalScrollBar()->setValue(offset.x());
    verticalScrollBar()->setValue(offset.y());
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    if (m_pressedAt && !m_dragging) {
        Keep(event->position());
    }
    m_pressedAt.reset();
    m_dragging = false;
}

bool PictureBox::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        StopHovering();
    }
    return QAbstractScrollArea::viewportEvent(event);
}

std::optional<std::size_t> PictureBox::SpotAt(QPointF point) const {
    if (m_picture == nullptr) {
        return std::nullopt;
    }
    const QPointF paper = ToTwips(point + Offset());
    const HotSpot* spot = m_picture->HotSpotAt(paper.x(), paper.y(), kReach);
    if (spot == nullptr) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(spot - m_picture->HotSpots().data());
}

QString PictureBox::WordsOfSpot(std::size_t spot, QPointF point) const {
    const HotSpot& words = m_picture->HotSpots()[spot];
    const QPointF paper = ToTwips(point + Offset());
    return Broken(WordsAt(words, m_picture->Figures()[words.Figure], paper.x(), paper.y()));
}

void PictureBox::Hover(QPointF point, QPoint onScreen) {
    const auto spot = SpotAt(point);
    if (!spot) {
        StopHovering();
        return;
    }
    if (m_hovered != spot) {
        m_hovered = spot;
        viewport()->update();
    }
    QToolTip::showText(onScreen, WordsOfSpot(*spot, point), viewport());
}

void PictureBox::StopHovering() {
    if (m_hovered) {
        m_hovered.reset();
        QToolTip::hideText();
        viewport()->update();
    }
}

/// Puts the words beside the point, inside the box.
void PictureBox::Keep(QPointF point) {
    constexpr int beside = 12;
    Forget();
    m_kept = SpotAt(point);
    if (!m_kept) {
        return;
    }
    StopHovering();
    m_note->setText(WordsOfSpot(*m_kept, point));
    m_note->adjustSize();
    const QPoint room(viewport()->width() - m_note->width(),
                      viewport()->height() - m_note->height());
    const QPoint wanted = point.toPoint() + QPoint(beside, beside);
    m_note->move(std::max(0, std::min(wanted.x(), room.x())),
                 std::max(0, std::min(wanted.y(), room.y())));
    m_note->show();
    viewport()->update();
}

void PictureBox::Forget() {
    if (m_kept) {
        m_kept.reset();
        m_note->hide();
        viewport()->update();
    }
}

QString PictureBox::KeptWords() const {
    return m_kept ? m_note->text() : QString();
}

}  // namespace quarnel02
