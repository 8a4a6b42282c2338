// The viewer of reports: what is found, copied, saved and printed, by real events.
#include "app/frmReport.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTest>

#include "app/Answers.h"
#include "app/WindowMemory.h"
#include "basic/Files.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

class Report : public ::testing::Test {
  protected:
    void SetUp() override {
        WriteFile(RunReport(), "Solution\nBench 1-8\nAssist 9-12\nbench again\n");
        ShowReport(&Parent, QString::fromStdString(RunReport().string()), &Memory);
        Viewer = Parent.findChild<frmReport*>();
        QApplication::setActiveWindow(Viewer);
    }
    [[nodiscard]] std::filesystem::path File(const std::string& name) const {
        return Place.Path() / name;
    }
    [[nodiscard]] std::filesystem::path RunReport() const {
        return Application.Path() / "RunRpt.txt";
    }
    template <class Widget>
    Widget& Find(const char* name) const {
        return *Viewer->findChild<Widget*>(QLatin1String(name));
    }
    [[nodiscard]] QPlainTextEdit& Text() const { return Find<QPlainTextEdit>("txtReport"); }
    [[nodiscard]] QLineEdit& Box() const { return Find<QLineEdit>("txtFind"); }
    [[nodiscard]] std::string Found() const {
        return Find<QLabel>("lblFound").text().toStdString();
    }
    [[nodiscard]] int Line() const { return Text().textCursor().blockNumber(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(Viewer->focusWidget(), key, modifiers);
    }
    void TypePath(const std::string& name) {
        Dialogs.Add([path = File(name)](QDialog& dialog) {
            auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            box->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    TemporaryDirectory Application;
    TemporaryDirectory Place;  ///< of the user's
    WindowMemory Memory{Application.Path()};
    QWidget Parent;
    frmReport* Viewer = nullptr;
    test::Answers Dialogs;
};

TEST_F(Report, ControlFGoesToTheBoxAndTypingFinds) {
    EXPECT_TRUE(Text().hasFocus());
    Press(Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(Box().hasFocus());
    EXPECT_EQ(Found(), "");
    QTest::keyClicks(&Box(), "bench");
    EXPECT_EQ(Found(), "1 of 2");
    EXPECT_EQ(Line(), 1);
    EXPECT_EQ(Text().extraSelections().size(), 2);
    EXPECT_EQ(Text().extraSelections()[0].cursor.selectedText(), "Bench");
}

TEST_F(Report, GoesOnAndBackAndRound) {
    QTest::keyClicks(&Box(), "bench");
    Press(Qt::Key_F3);
    EXPECT_EQ(Found(), "2 of 2");
    EXPECT_EQ(Line(), 3);
    Press(Qt::Key_F3);
    EXPECT_EQ(Found(), "1 of 2");
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Found(), "2 of 2");
    QTest::mouseClick(&Find<QPushButton>("cmdPrevious"), Qt::LeftButton);
    EXPECT_EQ(Found(), "1 of 2");
    QTest::mouseClick(&Find<QPushButton>("cmdNext"), Qt::LeftButton);
    EXPECT_EQ(Found(), "2 of 2");
}

TEST_F(Report, EnterGoesOnAndDoesNotClose) {
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&Box(), "bench");
    Press(Qt::Key_Return);
    EXPECT_EQ(Found(), "2 of 2");
    EXPECT_TRUE(Viewer->isVisible());
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Found(), "1 of 2");
    Box().clear();
    QTest::keyClicks(&Box(), "n");  // more than two, or on and back were the same
    const std::string first = Found();
    Press(Qt::Key_Return);
    EXPECT_NE(Found(), first);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Found(), first);
}

TEST_F(Report, SaysWhenThereIsNone) {
    QTest::keyClicks(&Box(), "robot");
    EXPECT_EQ(Found(), "Not found");
    EXPECT_TRUE(Text().extraSelections().isEmpty());
    EXPECT_FALSE(Find<QPushButton>("cmdNext").isEnabled());
    Press(Qt::Key_F3);
    EXPECT_EQ(Found(), "Not found");
    Box().clear();
    EXPECT_EQ(Found(), "");
}

TEST_F(Report, SearchesARewrittenFileAgain) {
    QTest::keyClicks(&Box(), "bench");
    WriteFile(RunReport(), "one Bench\n");
    ShowReport(&Parent, Viewer->File());
    EXPECT_EQ(Found(), "1 of 1");
}

TEST_F(Report, CopiesAllOrWhatIsSelected) {
    QTest::mouseClick(&Find<QPushButton>("cmdCopy"), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), "Solution\nBench 1-8\nAssist 9-12\nbench again\n");
    QTextCursor word(Text().document());
    word.movePosition(QTextCursor::EndOfWord, QTextCursor::KeepAnchor);
    Text().setTextCursor(word);
    QTest::mouseClick(&Find<QPushButton>("cmdCopy"), Qt::LeftButton);
    EXPECT_EQ(QApplication::clipboard()->text(), "Solution");
}

TEST_F(Report, SavesTextAndPdf) {
    TypePath("kept");
    QTest::mouseClick(&Find<QPushButton>("cmdSave"), Qt::LeftButton);
    EXPECT_EQ(ReadFile(File("kept.txt")), ReadFile(RunReport()));
    QApplication::setActiveWindow(Viewer);
    ASSERT_TRUE(Viewer->isActiveWindow());
    TypePath("kept.pdf");
    Press(Qt::Key_S, Qt::ControlModifier);
    ASSERT_TRUE(Dialogs.AllGiven());
    EXPECT_THAT(test::RunProgram({"pdftotext", File("kept.pdf").string(), "-"}).Out,
                HasSubstr("Assist 9-12"));
    EXPECT_EQ(Memory.Text(WindowMemory::kLastDirectory).toStdString(), Place.Path().string());
}

TEST_F(Report, AFailureNamesTheFile) {
    TypePath("no/where.txt");
    Dialogs.Press(QMessageBox::Ok);
    QTest::mouseClick(&Find<QPushButton>("cmdSave"), Qt::LeftButton);
    EXPECT_THAT(Dialogs.Seen, Contains(HasSubstr("where.txt")));
}

TEST_F(Report, PrintsAfterAPreview) {
    int pages = 0;
    Dialogs.Add([&](QDialog& dialog) {
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_NE(preview, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 0; }));
        pages = preview->pageCount();
        dialog.reject();
    });
    Press(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(pages, 1);
}

TEST_F(Report, EveryControlHasANameAndIsReachedByTab) {
    QSet<QString> reached;
    for (int i = 0; i < 12; ++i) {
        reached << Viewer->focusWidget()->objectName();
        Press(Qt::Key_Tab);
    }
    for (const char* name :
         {"txtReport", "txtFind", "cmdCopy", "cmdSave", "cmdPrint", "cmdClose"}) {
        EXPECT_TRUE(reached.contains(QLatin1String(name))) << name;
        QAccessibleInterface* control = QAccessible::queryAccessibleInterface(&Find<QWidget>(name));
        EXPECT_FALSE(control->text(QAccessible::Name).isEmpty()) << name;
    }
}

}  // namespace
}  // namespace quarnel02
