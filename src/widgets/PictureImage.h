#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>

#include "picture/Picture.h"
#include "widgets/PicturePainter.h"

namespace quarnel02 {

/// What a part of a picture's paper looks like, painted bit by bit. Only what moves with the paper.
class PictureImage {
  public:
    /// Begins anew with the paper of `area`, pixels of 15 twips.
    void Begin(const Picture& picture, const QRect& area, double pixelRatio,
               const ScreenStyle& style);
    /// Paints further figures for about so long, milliseconds; true when there are no more. The
    /// picture is that of Begin, with at most further figures behind those it had.
    bool Paint(const Picture& picture, qint64 milliseconds);
    void Forget() { m_image = {}; }

    [[nodiscard]] bool IsNull() const { return m_image.isNull(); }
    /// Whether it can be shown for that part of the paper.
    [[nodiscard]] bool Shows(const QRect& area, double pixelRatio, const ScreenStyle& style) const;
    [[nodiscard]] const QRect& Area() const { return m_area; }
    /// Milliseconds that painting took.
    [[nodiscard]] qint64 Duration() const { return m_duration; }

    /// Draws it where `sheet` puts what it shows, on paper whose upper left corner is at `origin`.
    void Show(QPainter& painter, const Placement& sheet, const QPoint& origin) const;

  private:
    [[nodiscard]] bool Touches(const PictureFigure& figure, const TextMeasure& measure) const;

    QImage m_image;
    QRect m_area;
    ScreenStyle m_style;
    Placement m_sheet;
    std::size_t m_painted = 0;
    qint64 m_duration = 0;
};

}  // namespace quarnel02
