#pragma once

#include <QColor>
#include <QPainter>
#include <QString>

#include "picture/Picture.h"

namespace quarnel02 {

/// How figures look on screen.
struct ScreenStyle {
    QString Family;     ///< of the letters
    bool Dark = false;  ///< on dark paper
    bool operator==(const ScreenStyle&) const = default;
};

/// A colour of a picture on the paper of a style.
QColor ScreenColour(Colour colour, const ScreenStyle& style);

/// Paints figures in twips; scale and place are those of the painter's transformation.
void PaintFigure(QPainter& painter, const PictureFigure& figure, const ScreenStyle& style = {});

/// Paints a figure's outline in a broad, half transparent pen.
void PaintHighlight(QPainter& painter, const PictureFigure& figure, const TextMeasure& measure,
                    QColor colour);

}  // namespace quarnel02
