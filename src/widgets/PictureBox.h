#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include "picture/Picture.h"

namespace quarnel02 {

/// Shows a picture on white paper, whatever the palette, and repaints it while it is drawn. A
/// long drawing shows its progress at most every 50 ms and in a small share of the time.
class PictureBox : public QWidget {
    Q_OBJECT
    /// What an empty picture says.
    Q_PROPERTY(QString placeholder MEMBER m_placeholder)

  public:
    /// Scaled into the box, or to its width, keeping the proportions; or as large as drawn, 15
    /// twips to a pixel.
    enum class Sizing { FitBox, FitWidth, TrueSize };

    explicit PictureBox(QWidget* parent = nullptr);

    /// The picture must live as long as the box is shown.
    void SetPicture(Picture& picture);
    void SetSizing(Sizing sizing);

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void PictureChanged();
    void ShowProgress();
    void UpdateExtent();
    void ClaimSize();
    void Draw(qint64 milliseconds);
    void DrawFigures(QPainter& painter, qint64 milliseconds);
    [[nodiscard]] bool IsImageCurrent() const;
    [[nodiscard]] bool MayStretch() const;
    [[nodiscard]] double PixelsPerTwip() const;

    Picture* m_picture = nullptr;
    QString m_placeholder;
    Sizing m_sizing = Sizing::FitBox;
    Extent m_extent{0, 0, 1, 1};  ///< of the picture when last looked at

    QImage m_image;             ///< the figures painted so far
    double m_imageScale = 0;    ///< pixels per twip in m_image
    std::size_t m_painted = 0;  ///< figures in m_image
    qint64 m_drawingTime = 0;   ///< milliseconds that the whole image took
    bool m_showingProgress = false;
    QElapsedTimer m_sinceProgress;
    qint64 m_pause = 0;  ///< milliseconds from one progress display to the next
    QTimer m_settle;     ///< runs while the box is being resized
    QTimer m_claim;      ///< claims another size once painting is over
};

}  // namespace quarnel02
