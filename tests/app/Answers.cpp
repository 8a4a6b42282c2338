#include "app/Answers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace quarnel02::test {

namespace {

std::string IconName(QMessageBox::Icon icon) {
    switch (icon) {
        case QMessageBox::NoIcon:
            return "none";
        case QMessageBox::Information:
            return "information";
        case QMessageBox::Warning:
            return "warning";
        case QMessageBox::Critical:
            return "critical";
        case QMessageBox::Question:
            return "question";
    }
    return "?";
}

std::string Description(const QDialog& dialog) {
    if (const auto* box = qobject_cast<const QMessageBox*>(&dialog)) {
        return IconName(box->icon()) + ": " + box->text().toStdString();
    }
    const std::string title = dialog.windowTitle().toStdString();
    if (const auto* input = qobject_cast<const QInputDialog*>(&dialog)) {
        return "input[" + title + "|" + input->textValue().toStdString() +
               "]: " + input->labelText().toStdString();
    }
    return "dialog: " + title;
}

}  // namespace

Answers::Answers() {
    qApp->installEventFilter(this);
}

Answers::~Answers() {
    qApp->removeEventFilter(this);
}

void Answers::Press(QMessageBox::StandardButton button) {
    Add([button](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        QAbstractButton* pressed = box == nullptr ? nullptr : box->button(button);
        if (pressed != nullptr) {
            QTest::mouseClick(pressed, Qt::LeftButton);
        }
    });
}

void Answers::Type(const std::string& text) {
    Add([text](QDialog& dialog) {
        auto* line = dialog.findChild<QLineEdit*>();
        if (line == nullptr) {
            return;
        }
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, QString::fromStdString(text));
        QTest::keyClick(line, Qt::Key_Return);
    });
}

void Answers::Accept() {
    Add([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
}

void Answers::Escape() {
    Add([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

bool Answers::eventFilter(QObject* watched, QEvent* event) {
    auto* dialog = qobject_cast<QDialog*>(watched);
    const bool asks = dialog != nullptr && dialog->objectName() != "frmStatus";
    if (asks && event->type() == QEvent::Show && dialog->isModal()) {
        QTimer::singleShot(0, dialog, [this, dialog] { Give(*dialog); });
    }
    return false;
}

void Answers::Give(QDialog& dialog) {
    const QPointer<QDialog> open(&dialog);
    Seen.push_back(Description(dialog));
    if (!m_answers.empty()) {
        const Answer answer = m_answers.front();
        m_answers.pop_front();
        answer(dialog);
    }
    if (open && open->isVisible()) {
        Seen.push_back("no answer closed it");
        open->reject();
    }
}

}  // namespace quarnel02::test
