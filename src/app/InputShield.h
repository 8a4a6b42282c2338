#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace quarnel02 {

/// Keeps what is typed and clicked away from the whole program while it is raised. Such events are
/// discarded, not held back: what was pressed meanwhile never runs afterwards. One window can be
/// left out.
class InputShield : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    void Raise();
    /// Leaves out a window that is shown, as long as it lives.
    void LeaveOut(const QWidget* window) { m_leftOut = window; }
    /// Discards what is still on its way from the window system, too, before input counts again.
    void Lower();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool IsLeftOut(const QObject& watched) const;

    QPointer<const QWidget> m_leftOut;
    bool m_raised = false;
};

}  // namespace quarnel02
