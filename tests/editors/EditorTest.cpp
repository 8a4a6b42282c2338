#include "editors/EditorTest.h"

#include <QApplication>

namespace quarnel02::test {

void EditorTest::OnDialog(const Steps& steps) {
    Dialogs.Add([this, steps](QDialog& dialog) {
        QDialog* outer = Form;
        Form = &dialog;
        dialog.activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &dialog; }));
        steps();
        Form = outer;
    });
}

void EditorTest::Choose(const std::string& caption) {
    Dialogs.Add([caption](QDialog& dialog) {
        for (auto* button : dialog.findChildren<QPushButton*>()) {
            if (button->text().remove(QLatin1Char('&')).toStdString() == caption) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
    });
}

void EditorTest::Edit(const std::string& item, const Steps& steps) {
    const auto before = Dialogs.Seen.size();
    OnDialog(steps);
    Item(item).trigger();
    EXPECT_GT(Dialogs.Seen.size(), before) << item << " opened nothing";
    EXPECT_THAT(Dialogs.Seen, ::testing::Not(::testing::Contains("no answer closed it")));
    Activate();
}

void EditorTest::Put(const std::string& box, const std::string& text) const {
    auto& line = Part<QLineEdit>(box);
    line.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClicks(&line, QString::fromStdString(text));
}

void EditorTest::Press(const std::string& button, int times) const {
    for (int i = 0; i < times; ++i) {
        QTest::mouseClick(&Command(button), Qt::LeftButton);
    }
}

void EditorTest::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(Form->focusWidget() == nullptr ? Form : Form->focusWidget(), key, modifiers);
}

void EditorTest::Keys(const std::string& text) const {
    QTest::keyClicks(Form->focusWidget(), QString::fromStdString(text));
}

void EditorTest::Mnemonic(const std::string& button) const {
    const QPushButton& pressed = Command(button);
    const QKeyCombination key = QKeySequence::mnemonic(pressed.text())[0];
    Key(key.key(), key.keyboardModifiers());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pressed.isDown(); }));
}

void EditorTest::Repeat(Qt::Key key) const {
    for (int i = 0; i < 3; ++i) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
        QCoreApplication::sendEvent(Form->focusWidget() == nullptr ? Form : Form->focusWidget(),
                                    &press);
    }
}

std::string EditorTest::Selected() const {
    const auto* box = qobject_cast<QLineEdit*>(Form->focusWidget());
    return box == nullptr ? "" : box->selectedText().toStdString();
}

std::string EditorTest::Focus() const {
    return Form->focusWidget() == nullptr ? "" : Form->focusWidget()->objectName().toStdString();
}

std::vector<std::string> EditorTest::Tasks() const {
    return Copy->RowsOf("SELECT * FROM Tasks;", 2);
}

std::vector<std::string> EditorTest::Resources() const {
    return Copy->RowsOf("SELECT * FROM Resources;", 10);
}

std::vector<std::string> EditorTest::Matrix() const {
    return Copy->RowsOf("SELECT * FROM Matrix;", 5);
}

}  // namespace quarnel02::test
