#include "app/WindowTest.h"

#include <QApplication>

#include "files/ModelFile.h"

namespace quarnel02::test {

void WindowTest::Start(const std::string& script) {
    Copy = std::make_unique<TestModel>();
    std::filesystem::remove(Copy->File("blank.seq"));
    MakeModelFile(Copy->File("blank.seq"), ReadFile(QUARNEL02_SCHEMA_FILE) + script);
    Window = std::make_unique<frmMain>(Copy->Directory());
    Window->SetLauncher(std::make_unique<ReportLauncher>(ReportLauncher::Ways{
        [this](const QString& program, const QString& file) {
            Started.push_back(program.toStdString() + "|" + file.toStdString());
            return true;
        },
        nullptr, nullptr}));
    ASSERT_TRUE(Window->StartUp());
    Window->show();
    Activate();
}

void WindowTest::Activate() {
    Window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
}

void WindowTest::Type(const std::string& box, const std::string& text) {
    QLineEdit& line = Box(box);
    line.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClicks(&line, QString::fromStdString(text));
}

void WindowTest::PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus == nullptr ? Window.get() : focus, key, modifiers);
}

void WindowTest::Click(const std::string& button) {
    QTest::mouseClick(&Button(button), Qt::LeftButton);
}

void WindowTest::OpenMenu(const std::string& menu) {
    auto& shown = Find<QMenu>(menu);
    shown.popup(Window->mapToGlobal(QPoint(10, 10)));
    shown.close();
}

std::vector<std::string> WindowTest::DemandLines() const {
    std::vector<std::string> lines;
    for (int i = 0; i < Demand().count(); ++i) {
        lines.push_back(Demand().item(i)->text().toStdString());
    }
    return lines;
}

std::string WindowTest::Gen() const {
    return Copy->RowsOf("SELECT * FROM Gen;", 8).at(0);
}

std::vector<std::string> WindowTest::DemandRows() const {
    return Copy->RowsOf("SELECT * FROM Demand;", 2);
}

std::string WindowTest::FocusName() const {
    const QWidget* focus = Window->focusWidget();
    return focus == nullptr ? "" : focus->objectName().toStdString();
}

std::string WindowTest::Title() const {
    return Window->windowTitle().remove(QStringLiteral("[*]")).toStdString();
}

void WindowTest::NoteDesignNow(const std::string& caption) {
    ASSERT_TRUE(Window->RunEvent([&] {
        Window->LastDesign =
            NewDesign(Window->OpenWorkingCopy(), caption, Window->Text(TextBox::txtProduct));
    }));
}

}  // namespace quarnel02::test
