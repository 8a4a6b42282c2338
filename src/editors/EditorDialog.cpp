#include "editors/EditorDialog.h"

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

EditorDialog::EditorDialog(QWidget* parent) : QDialog(parent) {
    WatchKeys();
    setModal(true);
}

bool EditorDialog::RunEvent(const std::function<void()>& event) {
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
