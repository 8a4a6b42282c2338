#pragma once

#include <QObject>

namespace quarnel02 {

/// Keeps what is typed and clicked away from the whole program while it is raised. Such events are
/// discarded, not held back: what was pressed meanwhile never runs afterwards.
class InputShield : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    void Raise();
    /// Discards what is still on its way from the window system, too, before input counts again.
    void Lower();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool m_raised = false;
};

}  // namespace quarnel02
