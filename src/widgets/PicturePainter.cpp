#include "widgets/PicturePainter.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <QStringList>
#include <array>
#include <numbers>

#include "picture/Fonts.h"
#include "picture/Icons.h"

namespace quarnel02 {

namespace {

QColor ToColor(Colour colour) {
    return {colour.Red, colour.Green, colour.Blue};
}

QPen ToPen(Colour colour, int pixels) {
    return {ToColor(colour), pixels * kTwipsPerPixel, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin};
}

double Degrees(double radians) {
    return radians * 180 / std::numbers::pi;
}

template <std::size_t Count>
QStringList ToStringList(const std::array<const char*, Count>& texts) {
    QStringList list;
    for (const char* text : texts) {
        list << QString::fromLatin1(text);
    }
    return list;
}

QFont ToFont(const Font& face) {
    QFont font;
    if (face.Family == FontFamily::FixedPitch) {
        font.setFamilies(ToStringList(kFixedPitchFamilies));
        font.setStyleHint(QFont::Monospace);
        font.setFixedPitch(true);
    } else {
        font.setFamilies(ToStringList(kProportionalFamilies));
        font.setStyleHint(QFont::SansSerif);
    }
    font.setPixelSize(static_cast<int>(face.Points * kTwipsPerPoint));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void Paint(QPainter& painter, const LineFigure& line) {
    painter.setPen(ToPen(line.Pen, line.Width));
    painter.drawLine(QPointF(line.X1, line.Y1), QPointF(line.X2, line.Y2));
}

void Paint(QPainter& painter, const CircleFigure& circle) {
    painter.setPen(ToPen(circle.Pen, circle.Width));
    painter.setBrush(circle.Filled ? QBrush(ToColor(circle.Pen)) : QBrush(Qt::NoBrush));
    const double height = circle.Radius * circle.Aspect;
    const QRectF box(circle.X - circle.Radius, circle.Y - height, 2 * circle.Radius, 2 * height);
    const double sweep = circle.End - circle.Start;
    if (sweep >= 2 * std::numbers::pi - 1e-3) {
        painter.drawEllipse(box);
        return;
    }
    QPainterPath path;
    path.arcMoveTo(box, Degrees(circle.Start));
    path.arcTo(box, Degrees(circle.Start), Degrees(sweep));
    painter.drawPath(path);
}

void Paint(QPainter& painter, const BoxFigure& box) {
    painter.setPen(box.FrameWidth > 0 ? ToPen(box.Frame, box.FrameWidth) : QPen(Qt::NoPen));
    painter.setBrush(ToColor(box.Fill));
    painter.drawRoundedRect(QRectF(box.X, box.Y, box.Width, box.Height), box.Rounding,
                            box.Rounding);
}

/// Fixed pitch is stretched to the width that the columns are laid out for.
void Paint(QPainter& painter, const TextFigure& text) {
    constexpr double ascent = 0.95;
    const QFont font = ToFont(text.Face);
    const QString content = QString::fromStdString(text.Text);
    const double natural = QFontMetricsF(font).horizontalAdvance(content);
    painter.save();
    painter.setPen(ToColor(text.Pen));
    painter.setFont(font);
    painter.translate(text.X, text.Y + text.Face.Points * kTwipsPerPoint * ascent);
    if (text.Face.Family == FontFamily::FixedPitch && natural > 0) {
        painter.scale(TextWidth(text.Text, text.Face) / natural, 1);
    }
    painter.drawText(QPointF(0, 0), content);
    painter.restore();
}

void Paint(QPainter& painter, const IconFigure& icon) {
    painter.save();
    painter.translate(icon.X, icon.Y);
    painter.scale(icon.Size, icon.Size);
    painter.setPen(Qt::NoPen);
    for (const IconShape& shape : IconShapes(icon.Type)) {
        painter.setBrush(ToColor(shape.Fill));
        if (shape.Radius > 0) {
            painter.drawEllipse(QPointF(shape.Points[0].X, shape.Points[0].Y), shape.Radius,
                                shape.Radius);
            continue;
        }
        QPolygonF polygon;
        for (const IconPoint& point : shape.Points) {
            polygon << QPointF(point.X, point.Y);
        }
        painter.drawPolygon(polygon);
    }
    painter.restore();
}

}  // namespace

void PaintFigure(QPainter& painter, const PictureFigure& figure) {
    std::visit([&](const auto& each) { Paint(painter, each); }, figure);
}

}  // namespace quarnel02
