#include "widgets/PicturePainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <array>
#include <numbers>

#include "picture/Icons.h"
#include "picture/Inks.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {

namespace {

QColor ToColor(Colour colour) {
    return {colour.Red, colour.Green, colour.Blue};
}

QPen ToPen(QColor colour, int pixels) {
    return {colour, pixels * kTwipsPerPixel, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

double Degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

/// Paints one figure after the other.
class FigurePainter {
  public:
    FigurePainter(QPainter& painter, const ScreenStyle& style)
        : m_painter(painter), m_style(style) {}

    void Paint(const LineFigure& line) {
        QPen pen = ToPen(ScreenColour(line.Pen, m_style), line.Width);
        if (line.Dashed) {
            pen.setStyle(Qt::DashLine);
        }
        m_painter.setPen(pen);
        m_painter.drawLine(QPointF(line.X1, line.Y1), QPointF(line.X2, line.Y2));
    }

    void Paint(const CircleFigure& circle) {
        QColor colour = ScreenColour(circle.Pen, m_style);
        colour.setAlphaF(static_cast<float>(circle.Opacity));
        m_painter.setPen(ToPen(colour, circle.Width));
        m_painter.setBrush(circle.Filled ? QBrush(colour) : QBrush(Qt::NoBrush));
        DrawEllipse(circle);
    }

    void Paint(const BoxFigure& box) {
        m_painter.setPen(box.FrameWidth > 0
                             ? ToPen(ScreenColour(box.Frame, m_style), box.FrameWidth)
                             : QPen(Qt::NoPen));
        m_painter.setBrush(ScreenColour(box.Fill, m_style));
        const QRectF place(box.X, box.Y, box.Width, box.Height);
        if (box.Rounding > 0) {
            m_painter.drawRoundedRect(place, box.Rounding, box.Rounding);
        } else {
            m_painter.drawRect(place);
        }
    }

    void Paint(const TextFigure& text);
    void Paint(const IconFigure& icon);

    void DrawEllipse(const CircleFigure& circle);

  private:
    QPainter& m_painter;
    const ScreenStyle& m_style;
};

void FigurePainter::DrawEllipse(const CircleFigure& circle) {
    const double height = circle.Radius * circle.Aspect;
    const QRectF box(circle.X - circle.Radius, circle.Y - height, 2 * circle.Radius, 2 * height);
    const double sweep = circle.End - circle.Start;
    if (sweep >= 2 * std::numbers::pi - 1e-3) {
        m_painter.drawEllipse(box);
        return;
    }
    QPainterPath path;
    path.arcMoveTo(box, Degrees(circle.Start));
    path.arcTo(box, Degrees(circle.Start), Degrees(sweep));
    m_painter.drawPath(path);
}

/// Fixed pitch is stretched to the width that the columns are laid out for.
void FigurePainter::Paint(const TextFigure& text) {
    const QFont font = ScreenFont(text.Face, m_style.Family);
    const QString content = QString::fromStdString(text.Text);
    m_painter.save();
    m_painter.setPen(ScreenColour(text.Pen, m_style));
    m_painter.setFont(font);
    if (text.Turned) {
        m_painter.translate(text.X + LineHeight(text.Face) - Baseline(text.Face), text.Y);
        m_painter.rotate(90);
    } else {
        m_painter.translate(text.X, text.Y + Baseline(text.Face));
    }
    if (text.Face.Family == FontFamily::FixedPitch) {
        const double natural = QFontMetricsF(font).horizontalAdvance(content);
        m_painter.scale(natural > 0 ? TextWidth(text.Text, text.Face) / natural : 1, 1);
    }
    m_painter.drawText(QPointF(0, 0), content);
    m_painter.restore();
}

/// An icon has its own colours on any paper.
void FigurePainter::Paint(const IconFigure& icon) {
    m_painter.save();
    m_painter.translate(icon.X, icon.Y);
    m_painter.scale(icon.Size, icon.Size);
    m_painter.setPen(Qt::NoPen);
    for (const IconShape& shape : IconShapes(icon.Type)) {
        m_painter.setBrush(ToColor(shape.Fill));
        if (shape.Radius > 0) {
            m_painter.drawEllipse(QPointF(shape.Points[0].X, shape.Points[0].Y), shape.Radius,
                                  shape.Radius);
            continue;
        }
        QPolygonF polygon;
        for (const IconPoint& point : shape.Points) {
            polygon << QPointF(point.X, point.Y);
        }
        m_painter.drawPolygon(polygon);
    }
    m_painter.restore();
}

}  // namespace

QColor ScreenColour(Colour colour, const ScreenStyle& style) {
    return ToColor(style.Dark ? OnDark(colour) : colour);
}

void PaintFigure(QPainter& painter, const PictureFigure& figure, const ScreenStyle& style) {
    std::visit([&](const auto& each) { FigurePainter(painter, style).Paint(each); }, figure);
}

void PaintHighlight(QPainter& painter, const PictureFigure& figure, const TextMeasure& measure,
                    QColor colour) {
    constexpr float shine = 0.55F;
    constexpr int broad = 6;
    constexpr int frame = 2;
    colour.setAlphaF(shine);
    painter.setBrush(Qt::NoBrush);
    if (const auto* circle = std::get_if<CircleFigure>(&figure)) {
        painter.setPen(ToPen(colour, circle->Width + broad));
        FigurePainter(painter, {}).DrawEllipse(*circle);
    } else if (const auto* line = std::get_if<LineFigure>(&figure)) {
        painter.setPen(ToPen(colour, line->Width + broad));
        painter.drawLine(QPointF(line->X1, line->Y1), QPointF(line->X2, line->Y2));
    } else {
        const Extent place = ExtentOf(figure, measure);
        painter.setPen(ToPen(colour, frame));
        painter.drawRect(
            QRectF(QPointF(place.Left, place.Top), QPointF(place.Right, place.Bottom)));
    }
}

}  // namespace quarnel02
