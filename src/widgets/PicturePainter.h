#pragma once

#include <QPainter>

#include "picture/Picture.h"

namespace quarnel02 {

/// Paints figures in twips; scale and place are those of the painter's transformation.
void PaintFigure(QPainter& painter, const PictureFigure& figure);

}  // namespace quarnel02
