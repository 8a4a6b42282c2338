#pragma once

#include <QObject>

class QKeyEvent;

namespace quarnel02 {

/// Return or the Enter of the number pad.
bool IsEnter(const QKeyEvent& event);

/// While it lives, Enter and Escape held down count once in every window: a dialog that comes up
/// under a held key waits for a press of its own.
class HeldKeys : public QObject {
    Q_OBJECT

  public:
    HeldKeys();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quarnel02
