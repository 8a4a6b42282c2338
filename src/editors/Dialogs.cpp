#include "editors/Dialogs.h"

#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>

namespace quarnel02 {

namespace {

QMessageBox::Icon ToBoxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

int RunBox(QWidget* parent, const std::string& text, MessageIcon icon,
           QMessageBox::StandardButtons buttons, QMessageBox::StandardButton proposed) {
    const PlainPointer pointer;
    QMessageBox box(ToBoxIcon(icon), QString::fromLatin1(kApplicationTitle),
                    QString::fromStdString(text), buttons, parent);
    box.setDefaultButton(proposed);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return box.exec();
}

}  // namespace

void ShowMessageBox(QWidget* parent, const std::string& text, MessageIcon icon) {
    RunBox(parent, text, icon, QMessageBox::Ok, QMessageBox::Ok);
}

bool AskYesNoBox(QWidget* parent, const std::string& question, MessageIcon icon, Answer proposed) {
    return RunBox(parent, question, icon, QMessageBox::Yes | QMessageBox::No,
                  proposed == Answer::Yes ? QMessageBox::Yes : QMessageBox::No) == QMessageBox::Yes;
}

std::string AskTextBox(QWidget* parent, const std::string& prompt, const std::string& title,
                       const std::string& proposal) {
    const PlainPointer pointer;
    QInputDialog dialog(parent);
    dialog.setWindowTitle(QString::fromStdString(title));
    dialog.setLabelText(QString::fromStdString(prompt));
    dialog.setTextValue(QString::fromStdString(proposal));
    return dialog.exec() == QDialog::Accepted ? dialog.textValue().toStdString() : std::string();
}

PlainPointer::PlainPointer() {
    for (; QGuiApplication::overrideCursor() != nullptr; ++m_hourglasses) {
        QGuiApplication::restoreOverrideCursor();
    }
}

PlainPointer::~PlainPointer() {
    for (; m_hourglasses > 0; --m_hourglasses) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

}  // namespace quarnel02
