#pragma once

#include <QDialog>
#include <functional>

namespace quarnel02 {

/// A modal window that edits the model. Enter presses the button that has the focus and leaves
/// the others alone; in a text box it goes where the box sends it. Enter and Escape held down
/// count once.
class EditorDialog : public QDialog {
    Q_OBJECT

  public:
    explicit EditorDialog(QWidget* parent);

    /// Finishes the editing and closes the window. A store that cannot be used now, which the user
    /// has then been told, keeps it open, with all that was typed.
    void done(int result) override;

  protected:
    /// What closing does to the model, however the window is closed; called until it succeeds.
    virtual void Finish() {}

    /// Runs what an event does. A run-time error ends it with one critical message and leaves the
    /// window open. False after an error.
    bool RunEvent(const std::function<void()>& event);

    void keyPressEvent(QKeyEvent* event) override;

  private:
    [[nodiscard]] bool TryFinish();

    bool m_finished = false;
};

}  // namespace quarnel02
