#include "editors/EditorDialog.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <exception>

#include "editors/Dialogs.h"

namespace quarnel02 {

EditorDialog::EditorDialog(QWidget* parent) : QDialog(parent) {
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

void EditorDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (auto* button = qobject_cast<QPushButton*>(focusWidget())) {
        button->click();
    }
}

}  // namespace quarnel02
