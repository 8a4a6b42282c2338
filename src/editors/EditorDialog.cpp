#include "editors/EditorDialog.h"

#include <QAction>
#include <QKeyEvent>
#include <QPushButton>
#include <exception>

#include "basic/RunTimeError.h"
#include "widgets/Dialogs.h"
#include "widgets/HeldKeys.h"

namespace quarnel02 {

namespace {

/// Failures that pass: another program's lock, a full disk.
bool MayPass(ErrorKind kind) {
    return kind == ErrorKind::DatabaseLocked || kind == ErrorKind::DatabaseFailure ||
           kind == ErrorKind::FileAccess;
}

}  // namespace

EditorDialog::EditorDialog(MainForm& form, EditHistory& history, QWidget* parent)
    : QDialog(parent),
      m_form(form),
      m_history(history),
      m_undo(AddStepAction(QKeySequence::Undo, &EditHistory::Undo)),
      m_redo(AddStepAction(QKeySequence::Redo, &EditHistory::Redo)) {
    WatchKeys();
    setModal(true);
    ShowSteps();
}

QAction* EditorDialog::AddStepAction(QKeySequence::StandardKey key, HistoryStep step) {
    auto* action = new QAction(this);
    action->setShortcuts(key);
    addAction(action);
    connect(action, &QAction::triggered, this, [this, step] {
        RunEvent([this, step] {
            TakeStep(m_form, m_history, step);
            ShowAgain();
        });
    });
    return action;
}

void EditorDialog::ShowSteps() {
    m_undo->setText(QString::fromStdString(m_history.UndoText()));
    m_undo->setEnabled(m_history.CanUndo());
    m_redo->setText(QString::fromStdString(m_history.RedoText()));
    m_redo->setEnabled(m_history.CanRedo());
}

bool EditorDialog::RunEvent(const std::function<void()>& event) {
    const bool done = Attempt(event);
    if (done) {
        Attempt([this] { m_history.Note(); });
    }
    ShowSteps();
    return done;
}

bool EditorDialog::Attempt(const std::function<void()>& event) {
    try {
        event();
        return true;
    } catch (const std::exception& error) {
        ShowMessageBox(this, error.what(), MessageIcon::Critical);
        return false;
    }
}

/// What the model holds (too many tasks) does not keep the window open: it could never be left.
bool EditorDialog::TryFinish() {
    try {
        Finish();
        return true;
    } catch (const RunTimeError& error) {
        ShowMessageBox(this, error.what(), MessageIcon::Critical);
        return !MayPass(error.Kind());
    } catch (const std::exception& error) {
        ShowMessageBox(this, error.what(), MessageIcon::Critical);
        return true;
    }
}

void EditorDialog::done(int result) {
    m_finished = m_finished || TryFinish();
    if (m_finished) {
        QDialog::done(result);
    }
}

void EditorDialog::keyPressEvent(QKeyEvent* event) {
    if (IsRepeated(*event) && (IsEnter(*event) || event->key() == Qt::Key_Escape)) {
        return;
    }
    if (!IsEnter(*event)) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
        button->click();
    }
}

}  // namespace quarnel02
