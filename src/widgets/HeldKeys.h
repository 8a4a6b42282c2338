#pragma once

#include <QObject>

class QKeyEvent;

namespace quarnel02 {

/// Return or the Enter of the number pad.
bool IsEnter(const QKeyEvent& event);

/// Whether a key press comes from a key that is held down. Where windows come and go, as in a walk
/// through dialogs, the platform marks only some of these as repeated; the others follow a release
/// of the same moment. WatchKeys has to be called before the key is released.
bool IsRepeated(const QKeyEvent& event);
void WatchKeys();

/// While it lives, Enter and Escape held down count once in every window: a dialog that comes up
/// under a held key waits for a press of its own.
class HeldKeys : public QObject {
    Q_OBJECT

  public:
    HeldKeys();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quarnel02
