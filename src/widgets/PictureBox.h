#pragma once

#include <QAbstractScrollArea>
#include <QElapsedTimer>
#include <QTimer>
#include <optional>

#include "picture/Picture.h"
#include "widgets/PictureImage.h"

class QLabel;
class QPlainTextEdit;

namespace quarnel02 {

/// Shows a picture in the letters of the box, on light paper or, in a dark palette, on dark paper.
/// A composed picture is laid out for the box, whatever its shape; one that needs more room
/// scrolls. What a line printer wrote is a text that can be selected and copied. Resting on a
/// figure shows the words behind it, a click keeps them until the next click or Escape.
///
/// A picture that can be enlarged is zoomed with the wheel at the pointer or with + and -, dragged
/// with the mouse, and fitted into the box again with Home.
class PictureBox : public QAbstractScrollArea {
    Q_OBJECT
    /// What an empty picture says.
    Q_PROPERTY(QString placeholder MEMBER m_placeholder)

  public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// The picture must live as long as the box is shown.
    void SetPicture(Picture& picture);

    /// Whether the picture can be enlarged.
    void SetZoomable(bool zoomable);
    /// How much larger than fitted into the box, 1 to 16.
    [[nodiscard]] double Zoom() const { return m_zoom; }
    /// Enlarges; the place of the paper under the point of the box stays where it is.
    void SetZoom(double zoom, QPointF point);
    /// Fits the picture into the box.
    void ResetView();
    /// Shows the drawing in its own units, at least as large as fitted.
    void ShowTrueSize();

    /// What is selected of a printed text; empty when nothing is.
    [[nodiscard]] QString SelectedText() const;
    /// The words that a click keeps; empty when there are none.
    [[nodiscard]] QString KeptWords() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  signals:
    void ZoomChanged(double zoom);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    void PictureChanged();
    void ShowText();
    void ShowProgress();
    void LayOut();
    [[nodiscard]] Page PageOf(QSize size) const;
    void SetScrollRanges();
    void NoteStyle();

    void PaintFigures(QPainter& painter);
    void PaintHighlights(QPainter& painter);
    void PaintNextSlice();
    [[nodiscard]] QRect AreaToPaint() const;
    [[nodiscard]] bool MayShowOldImage() const;

    [[nodiscard]] QPoint Offset() const;
    [[nodiscard]] QPointF OnSheet(QPointF point) const;
    void MoveSheet(QPointF onSheet, QPointF point);
    [[nodiscard]] std::optional<std::size_t> SpotAt(QPointF point) const;
    [[nodiscard]] QString WordsOfSpot(std::size_t spot, QPointF point) const;
    void Hover(QPointF point, QPoint onScreen);
    void StopHovering();
    void Keep(QPointF point);
    void Forget();

    Picture* m_picture = nullptr;
    QString m_placeholder;
    QPlainTextEdit* m_text;
    QLabel* m_note;
    bool m_zoomable = false;
    double m_zoom = 1;
    bool m_layingOut = false;
    int m_revision = -1;  ///< of the picture when it was last looked at

    ScreenStyle m_style;
    PictureImage m_image;  ///< what is shown
    PictureImage m_next;   ///< what will be, while the old one is moved about
    bool m_imageIsOld = true;
    bool m_nextIsOld = true;

    bool m_showingProgress = false;
    QElapsedTimer m_sinceProgress;
    qint64 m_pause = 0;  ///< milliseconds from one progress display to the next
    QTimer m_moving;     ///< runs while the paper is moved, enlarged or resized
    QTimer m_slices;     ///< paints the next image bit by bit

    std::optional<QPointF> m_pressedAt;
    bool m_dragging = false;
    QPoint m_offsetAtPress;
    std::optional<std::size_t> m_hovered;  ///< hot spots
    std::optional<std::size_t> m_kept;
};

}  // namespace quarnel02
