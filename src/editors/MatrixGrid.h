#pragma once

#include <QTableView>

namespace quarnel02 {

/// Paints the check mark into the middle of a square.
void PaintCheck(QPainter& painter, const QRectF& square, const QColor& colour);

/// The check mark alone, for explaining it.
class CheckImage : public QWidget {
    Q_OBJECT

  public:
    explicit CheckImage(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The grid: cells as large as the font asks for, headings that stay in sight. It only tells what
/// the user does with a cell; Enter and Space held down count once.
class MatrixGrid : public QTableView {
    Q_OBJECT

  public:
    explicit MatrixGrid(QWidget* parent = nullptr);

    /// Fits headings and cells to the model.
    void FitSections();
    [[nodiscard]] QSize sizeHint() const override;

  signals:
    void Opened(const QModelIndex& cell);    ///< left click or Enter
    void Toggled(const QModelIndex& cell);   ///< right click or Space
    void Selected(const QModelIndex& cell);  ///< has become the current one
    /// The pointer rests on a cell; an invalid index once it has left the grid.
    void Rested(const QModelIndex& cell);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    bool m_pressed = false;  ///< on a cell, and not yet released
};

}  // namespace quarnel02
