#pragma once

#include <QDialog>
#include <functional>

#include "commands/TakeStep.h"
#include "shell/MainForm.h"

class QAction;

namespace quarnel02 {

/// A modal window that edits the model. Enter presses the button that has the focus and leaves
/// the others alone; in a text box it goes where the box sends it. Enter and Escape held down
/// count once. Ctrl+Z and Ctrl+Shift+Z undo and redo what has been stored, here or before.
class EditorDialog : public QDialog {
    Q_OBJECT

  public:
    /// Form and history must outlive the window.
    EditorDialog(MainForm& form, EditHistory& history, QWidget* parent);

    /// Finishes the editing and closes the window. A store that cannot be used now, which the user
    /// has then been told, keeps it open, with all that was typed.
    void done(int result) override;

  protected:
    /// What closing does to the model, however the window is closed; called until it succeeds.
    virtual void Finish() {}

    /// Shows the tables anew, which undo or redo has made others.
    virtual void ShowAgain() {}

    /// Runs what an event does. A run-time error ends it with one critical message and leaves the
    /// window open. What the event stored is one step of the history, named by History().Note or
    /// after the change. False after an error.
    bool RunEvent(const std::function<void()>& event);

    void keyPressEvent(QKeyEvent* event) override;

    [[nodiscard]] MainForm& Form() const { return m_form; }
    [[nodiscard]] EditHistory& History() const { return m_history; }

  private:
    [[nodiscard]] bool TryFinish();
    bool Attempt(const std::function<void()>& event);
    QAction* AddStepAction(QKeySequence::StandardKey key, HistoryStep step);
    void ShowSteps();

    MainForm& m_form;
    EditHistory& m_history;
    QAction* m_undo;
    QAction* m_redo;
    bool m_finished = false;
};

}  // namespace quarnel02
