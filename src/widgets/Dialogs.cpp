#include "widgets/Dialogs.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "basic/OneLine.h"
#include "widgets/HeldKeys.h"
#include "widgets/QuestionBox.h"

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

/// What a button does, for those who hear its caption without seeing what it belongs to.
QString MeaningOf(QMessageBox::StandardButton button) {
    switch (button) {
        case QMessageBox::Yes:
            return QStringLiteral("Answers the question with yes");
        case QMessageBox::No:
            return QStringLiteral("Answers the question with no");
        default:
            return QStringLiteral("Closes the message");
    }
}

int RunBox(QMessageBox& box, const std::string& text, MessageIcon icon,
           QMessageBox::StandardButtons buttons, QMessageBox::StandardButton proposed) {
    const PlainPointer pointer;
    const HeldKeys keys;
    box.setIcon(ToBoxIcon(icon));
    box.setWindowTitle(QString::fromLatin1(kApplicationTitle));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.setStandardButtons(buttons);
    for (QAbstractButton* button : box.buttons()) {
        static_cast<QPushButton*>(button)->setAutoDefault(true);
        button->setAccessibleDescription(MeaningOf(box.standardButton(button)));
    }
    box.setDefaultButton(proposed);
    return box.exec();
}

/// The box has its name from the prompt.
void Describe(QInputDialog& dialog) {
    dialog.setOkButtonText(dialog.okButtonText());  // makes the parts
    dialog.findChild<QLineEdit*>()->setAccessibleDescription(
        QStringLiteral("Enter takes what is typed, Escape cancels"));
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    buttons->button(QDialogButtonBox::Ok)
        ->setAccessibleDescription(QStringLiteral("Takes what is typed"));
    buttons->button(QDialogButtonBox::Cancel)
        ->setAccessibleDescription(QStringLiteral("Closes the question without an answer"));
}

}  // namespace

void ShowMessageBox(QWidget* parent, const std::string& text, MessageIcon icon) {
    QMessageBox box(parent);
    RunBox(box, text, icon, QMessageBox::Ok, QMessageBox::Ok);
}

bool AskYesNoBox(QWidget* parent, const std::string& question, MessageIcon icon, Answer proposed) {
    QuestionBox box(parent);
    return RunBox(box, question, icon, QMessageBox::Yes | QMessageBox::No,
                  proposed == Answer::Yes ? QMessageBox::Yes : QMessageBox::No) == QMessageBox::Yes;
}

std::string AskTextBox(QWidget* parent, const std::string& prompt, const std::string& title,
                       const std::string& proposal) {
    const PlainPointer pointer;
    const HeldKeys keys;
    QInputDialog dialog(parent);
    dialog.setWindowTitle(QString::fromStdString(title));
    dialog.setLabelText(QString::fromStdString(prompt));
    dialog.setTextValue(QString::fromStdString(proposal));
    Describe(dialog);
    return dialog.exec() == QDialog::Accepted ? OneLine(dialog.textValue().toStdString())
                                              : std::string();
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
