#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <memory>

#include "widgets/HeldKeys.h"

namespace quarnel02 {

namespace Ui {
class frmStatus;
}

/// Says what a long operation is doing, how much of it is done and how long it will still take. It
/// stays open until the operation hides it; the button, Escape or the close box ask for an end.
class frmStatus : public QDialog {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(frmStatus)

  public:
    explicit frmStatus(QWidget* parent);
    ~frmStatus() override;

    /// Sets lblStatus.
    void SetStatus(const QString& text);
    /// Steps done of all; a number of 0 for all is unknown.
    void SetProgress(int done, int all);

    /// Handles the program's events, of the user too, as often as a window needs that to live.
    void Look();
    /// Whether the user has asked for an end.
    [[nodiscard]] bool IsCancelled() const { return m_cancelled; }

    /// The user asks for an end; the operation finds out by IsCancelled.
    void reject() override;

  private:
    std::unique_ptr<Ui::frmStatus> m_ui;
    QElapsedTimer m_shown;
    QElapsedTimer m_looked;
    HeldKeys m_keys;  ///< Escape held down from another window is no answer
    bool m_cancelled = false;
};

}  // namespace quarnel02
