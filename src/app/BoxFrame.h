#pragma once

#include <QFrame>

namespace quarnel02 {

/// A box of the results area: a panel with a thin edge, which has the colour of the selection while
/// the focus is inside. A double click on the panel itself or on what `Watch` was given asks for
/// more room.
class BoxFrame : public QFrame {
    Q_OBJECT

  public:
    explicit BoxFrame(QWidget* parent = nullptr);

    /// Double clicks on this widget count as well.
    void Watch(QWidget& inside);

  signals:
    void DoubleClicked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarnel02
