#pragma once

#include <QWidget>

#include "commands/MatrixValues.h"

namespace quarnel02 {

/// Paints what tells the looks of cells apart, under their texts.
void PaintLook(QPainter& painter, const QRect& cell, const QPalette& palette, PairLook look);

/// The looks of cells and what they mean, in one line.
class MatrixLegend : public QWidget {
    Q_OBJECT

  public:
    explicit MatrixLegend(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    [[nodiscard]] int Gap() const;
    [[nodiscard]] QSize Swatch() const;
};

}  // namespace quarnel02
