#include "widgets/PictureImage.h"

#include <QElapsedTimer>
#include <QTransform>
#include <algorithm>

#include "picture/Inks.h"

namespace quarnel02 {

void PictureImage::Begin(const Picture& picture, const QRect& area, double pixelRatio,
                         const ScreenStyle& style) {
    m_area = area;
    m_style = style;
    m_sheet = picture.Sheet;
    m_painted = 0;
    m_duration = 0;
    m_image = QImage(area.size() * pixelRatio, QImage::Format_RGB32);
    m_image.setDevicePixelRatio(pixelRatio);
    m_image.fill(ScreenColour(kPaper, style));
}

bool PictureImage::Touches(const PictureFigure& figure, const TextMeasure& measure) const {
    const Extent extent = ExtentOf(figure, measure);
    return extent.Right >= m_area.left() * kTwipsPerPixel &&
           extent.Left <= (m_area.right() + 1) * kTwipsPerPixel &&
           extent.Bottom >= m_area.top() * kTwipsPerPixel &&
           extent.Top <= (m_area.bottom() + 1) * kTwipsPerPixel;
}

bool PictureImage::Paint(const Picture& picture, qint64 milliseconds) {
    constexpr std::size_t figures_per_look = 8;
    const std::size_t count = picture.Figures().size();
    if (m_painted >= count) {
        return true;
    }
    QElapsedTimer clock;
    clock.start();
    QPainter painter(&m_image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.translate(-m_area.topLeft());
    painter.scale(1 / kTwipsPerPixel, 1 / kTwipsPerPixel);
    std::size_t looked = 0;
    while (m_painted < count) {
        const PictureFigure& figure = picture.Figures()[m_painted];
        const bool fixed = picture.IsFixed(m_painted);
        ++m_painted;
        if (fixed || !Touches(figure, *picture.LaidOutFor().Measure)) {
            continue;
        }
        PaintFigure(painter, figure, m_style);
        if (++looked % figures_per_look == 0 && clock.elapsed() >= milliseconds) {
            break;
        }
    }
    m_duration += clock.elapsed();
    return m_painted >= count;
}

bool PictureImage::Shows(const QRect& area, double pixelRatio, const ScreenStyle& style) const {
    return !m_image.isNull() && m_area.contains(area) && m_style == style &&
           m_image.devicePixelRatio() == pixelRatio;
}

void PictureImage::Show(QPainter& painter, const Placement& sheet, const QPoint& origin) const {
    if (sheet == m_sheet) {
        painter.drawImage(m_area.topLeft() - origin, m_image);
        return;
    }
    const double across = sheet.Scale / m_sheet.Scale;
    const double down = across * sheet.Stretch / m_sheet.Stretch;
    painter.save();
    painter.translate((sheet.Left - m_sheet.Left * across) / kTwipsPerPixel - origin.x(),
                      (sheet.Top - m_sheet.Top * down) / kTwipsPerPixel - origin.y());
    painter.scale(across, down);
    painter.drawImage(m_area.topLeft(), m_image);
    painter.restore();
}

}  // namespace quarnel02
