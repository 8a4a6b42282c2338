#pragma once

#include <QObject>
#include <QRect>

namespace quarnel02 {

/// Discards clicks on the place of a window that has just gone: whoever clicks at that moment means
/// that window, and not what it gives way to. It deletes itself when the time of a double click is
/// over.
class ClickGuard : public QObject {
    Q_OBJECT

  public:
    /// `place` in coordinates of the screen.
    ClickGuard(const QRect& place, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QRect m_place;
};

}  // namespace quarnel02
