#include "widgets/PictureBox.h"

#include <QAction>
#include <QCoreApplication>
#include <QEventLoop>
#include <QFontInfo>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <algorithm>
#include <cmath>

#include "basic/ScopeGuard.h"
#include "picture/Inks.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

constexpr qint64 kProgressPause = 50;   ///< shortest time between progress displays, ms
constexpr qint64 kProgressBudget = 15;  ///< of painting for one of them, ms
constexpr qint64 kProgressShare = 9;    ///< pause after a display in units of its duration
constexpr qint64 kNoLimit = 1000000;
constexpr qint64 kSlowPainting = 8;  ///< an image that takes longer is moved while it is old, ms
constexpr qint64 kSlice = 6;         ///< of painting the next one, ms
constexpr int kSettleTime = 120;     ///< ms
constexpr int kDarkBelow = 128;      ///< lightness of paper

}  // namespace

PictureBox::PictureBox(QWidget* parent)
    : QAbstractScrollArea(parent),
      m_text(new QPlainTextEdit(viewport())),
      m_note(new QLabel(viewport())) {
    setFrameShape(QFrame::NoFrame);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    m_text->setReadOnly(true);
    m_text->setContextMenuPolicy(Qt::NoContextMenu);  // that of the box
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->hide();
    m_note->setObjectName(QStringLiteral("lblKept"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setFrameShape(QFrame::Box);
    m_note->setAutoFillBackground(true);
    m_note->setBackgroundRole(QPalette::ToolTipBase);
    m_note->setForegroundRole(QPalette::ToolTipText);
    m_note->hide();
    m_moving.setSingleShot(true);
    m_moving.setInterval(kSettleTime);
    connect(&m_moving, &QTimer::timeout, viewport(), qOverload<>(&QWidget::update));
    m_slices.setInterval(0);
    connect(&m_slices, &QTimer::timeout, this, &PictureBox::PaintNextSlice);
    m_sinceProgress.start();
    NoteStyle();
}

void PictureBox::SetPicture(Picture& picture) {
    m_picture = &picture;
    m_picture->OnChange = [this] { PictureChanged(); };
    LayOut();
    PictureChanged();
}

QSize PictureBox::sizeHint() const {
    constexpr QSize usual(480, 280);
    return usual;
}

QSize PictureBox::minimumSizeHint() const {
    constexpr QSize least(120, 60);
    return least;
}

/// Paper is that of the palette, turned into one of two; letters are those of the box.
void PictureBox::NoteStyle() {
    m_style = {font().family(), palette().color(QPalette::Base).lightness() < kDarkBelow};
    QFont fixed = FixedPitchFont();
    fixed.setPixelSize(QFontInfo(font()).pixelSize());
    m_text->setFont(fixed);
    QPalette paper = palette();
    paper.setColor(QPalette::Base, ScreenColour(kPaper, m_style));
    paper.setColor(QPalette::Text, ScreenColour(kInk, m_style));
    m_text->setPalette(paper);
}

void PictureBox::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::PaletteChange || type == QEvent::FontChange ||
        type == QEvent::StyleChange) {
        NoteStyle();
        LayOut();
        viewport()->update();
    }
}

void PictureBox::PictureChanged() {
    if (m_picture->Revision() != m_revision) {
        m_revision = m_picture->Revision();
        m_imageIsOld = true;
        m_nextIsOld = true;
        Forget();
        StopHovering();
    }
    SetScrollRanges();
    ShowText();
    viewport()->update();
    if (isVisible() && !m_layingOut && !m_showingProgress && m_sinceProgress.elapsed() >= m_pause) {
        ShowProgress();
    }
}

/// The text moves on only when it is another one, so that a selection stays.
void PictureBox::ShowText() {
    const auto text = m_picture->IsComposed() ? std::nullopt : TextOf(*m_picture);
    m_text->setVisible(text.has_value());
    m_text->setAccessibleName(accessibleName());
    m_text->setAccessibleDescription(QStringLiteral("Text to select and copy"));
    if (text && m_text->toPlainText().toStdString() != *text) {
        m_text->setPlainText(QString::fromStdString(*text));
    }
}

/// Ends of lines are none of Unicode's.
QString PictureBox::SelectedText() const {
    return m_text->isHidden() ? QString()
                              : m_text->textCursor().selectedText().replace(
                                    QChar::ParagraphSeparator, QLatin1Char('\n'));
}

/// Lets the screen keep up with a drawing that goes on inside one event.
void PictureBox::ShowProgress() {
    QElapsedTimer duration;
    duration.start();
    m_showingProgress = true;
    viewport()->repaint();
    m_showingProgress = false;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    m_pause = std::max(kProgressPause, kProgressShare * duration.elapsed());
    m_sinceProgress.restart();
    viewport()->update();
}

Page PictureBox::PageOf(QSize size) const {
    constexpr double points_per_pixel = kTwipsPerPixel / kTwipsPerPoint;
    Page page;
    page.Width = size.width() * kTwipsPerPixel;
    page.Height = size.height() * kTwipsPerPixel;
    page.Points = std::max(QFontInfo(font()).pixelSize() * points_per_pixel, Page::kSmallestPoints);
    page.Zoom = m_zoom;
    page.Measure = &ScreenMeasure(m_style.Family);
    return page;
}

/// Where the paper comes out higher than the box it gives way to the scroll bar.
void PictureBox::LayOut() {
    if (m_picture == nullptr || m_layingOut) {
        return;
    }
    m_layingOut = true;
    const ScopeGuard done([this] { m_layingOut = false; });
    QSize size = maximumViewportSize();
    m_picture->LayOut(PageOf(size));
    if (m_picture->IsComposed() && !m_zoomable &&
        m_picture->Height() > size.height() * kTwipsPerPixel) {
        size.rwidth() -= verticalScrollBar()->sizeHint().width();
        m_picture->LayOut(PageOf(size));
    }
    SetScrollRanges();
}

void PictureBox::SetScrollRanges() {
    const bool composed = m_picture->IsComposed();
    const Extent drawn = composed ? Extent{0, 0, 0, 0} : m_picture->Drawn();
    const auto pixels = [](double twips) {
        return static_cast<int>(std::ceil(twips / kTwipsPerPixel));
    };
    const QSize paper(pixels(composed ? m_picture->Width() : drawn.Right),
                      pixels(composed ? m_picture->Height() : drawn.Bottom));
    const bool printed = !m_text->isHidden();
    const QSize room = maximumViewportSize();
    horizontalScrollBar()->setRange(0, printed ? 0 : std::max(0, paper.width() - room.width()));
    verticalScrollBar()->setRange(0, printed ? 0 : std::max(0, paper.height() - room.height()));
    horizontalScrollBar()->setPageStep(room.width());
    verticalScrollBar()->setPageStep(room.height());
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    m_text->setGeometry(viewport()->rect());
    m_moving.start();
    LayOut();
}

void PictureBox::scrollContentsBy(int /*dx*/, int /*dy*/) {
    viewport()->update();
}

QPoint PictureBox::Offset() const {
    return {horizontalScrollBar()->value(), verticalScrollBar()->value()};
}

/// While the paper is enlarged there is some more of it round the box, for dragging.
QRect PictureBox::AreaToPaint() const {
    const QRect visible(Offset(), viewport()->size());
    if (m_zoom <= 1) {
        return visible;
    }
    const QRect paper(0, 0, horizontalScrollBar()->maximum() + viewport()->width(),
                      verticalScrollBar()->maximum() + viewport()->height());
    const int across = visible.width() / 2;
    const int down = visible.height() / 2;
    return visible.adjusted(-across, -down, across, down).intersected(paper);
}

bool PictureBox::MayShowOldImage() const {
    return !m_image.IsNull() && m_moving.isActive() && m_image.Duration() > kSlowPainting;
}

void PictureBox::PaintNextSlice() {
    const QRect visible(Offset(), viewport()->size());
    if (m_nextIsOld || !m_next.Shows(visible, devicePixelRatioF(), m_style)) {
        m_next.Begin(*m_picture, AreaToPaint(), devicePixelRatioF(), m_style);
        m_nextIsOld = false;
    }
    if (m_next.Paint(*m_picture, kSlice)) {
        m_slices.stop();
        std::swap(m_image, m_next);
        m_imageIsOld = false;
        m_nextIsOld = true;
        viewport()->update();
    }
}

void PictureBox::PaintFigures(QPainter& painter) {
    const QRect visible(Offset(), viewport()->size());
    const bool current = !m_imageIsOld && m_image.Shows(visible, devicePixelRatioF(), m_style);
    if (!current && MayShowOldImage()) {
        m_slices.start();
        painter.fillRect(viewport()->rect(), ScreenColour(kPaper, m_style));
    } else {
        if (!current) {
            m_image.Begin(*m_picture, AreaToPaint(), devicePixelRatioF(), m_style);
            m_imageIsOld = false;
            m_slices.stop();
        }
        m_image.Paint(*m_picture, m_showingProgress ? kProgressBudget : kNoLimit);
    }
    m_image.Show(painter, m_picture->Sheet, Offset());
}

void PictureBox::PaintHighlights(QPainter& painter) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-Offset());
    painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
    for (const auto& spot : {m_kept, m_hovered}) {
        if (spot && *spot < m_picture->HotSpots().size()) {
            PaintHighlight(painter, m_picture->Figures()[m_picture->HotSpots()[*spot].Figure],
                           *m_picture->LaidOutFor().Measure, palette().color(QPalette::Highlight));
        }
    }
    painter.restore();
}

void PictureBox::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(viewport());
    if (m_picture == nullptr || m_picture->Figures().empty()) {
        painter.fillRect(viewport()->rect(), ScreenColour(kPaper, m_style));
        painter.setPen(ScreenColour(kSoftInk, m_style));
        painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
        return;
    }
    PaintFigures(painter);
    PaintHighlights(painter);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
    for (std::size_t figure = 0; figure < m_picture->Figures().size(); ++figure) {
        if (m_picture->IsFixed(figure)) {
            PaintFigure(painter, m_picture->Figures()[figure], m_style);
        }
    }
}

}  // namespace quarnel02
