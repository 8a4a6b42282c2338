// What a screen reader and a keyboard find in the smaller windows, and whether their texts stand
// out; main window, editors and study window have tests of their own.
#include <QDialog>
#include <QTest>

#include "app/Answers.h"
#include "app/Screenshot.h"
#include "app/frmFile.h"
#include "app/frmGuide.h"
#include "app/frmReport.h"
#include "app/frmSplash.h"
#include "app/frmStatus.h"
#include "basic/Files.h"
#include "support/WindowWalk.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {
namespace {

class WindowsAccessibility : public ::testing::TestWithParam<bool> {
  protected:
    WindowsAccessibility() {
        if (GetParam()) {
            QApplication::setPalette(test::DarkPalette());
        }
    }
    static void ExpectGood(QWidget& window, int parts, int controls) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_EQ(test::ExpectAccessible(window), parts);
        EXPECT_GE(test::ExpectTextsStandOut(window), controls);
        EXPECT_EQ(test::ExpectKeyboardReachesAll(window), controls);
    }
    /// Of the next dialog, which then is closed.
    void ExpectGoodDialog(int parts, int controls) {
        m_answers.Add([parts, controls](QDialog& dialog) {
            ExpectGood(dialog, parts, controls);
            dialog.done(0);
        });
    }
    ~WindowsAccessibility() override { EXPECT_TRUE(m_answers.AllGiven()); }

    TemporaryDirectory Place;

  private:
    test::PaletteKeeper m_palette;
    test::Answers m_answers;
};

TEST_P(WindowsAccessibility, FileDialog) {
    WriteFile(Place.Path() / "a.mdb", "x");
    for (const bool open : {true, false}) {
        frmFile dialog(Place.Path(), nullptr);
        dialog.FilePath = Place.Path().string();
        dialog.SetForm(open);
        const int more = open ? 0 : 1;
        ExpectGood(dialog, 11 + 2 * more, 6 + more);
    }
}

TEST_P(WindowsAccessibility, Report) {
    WriteFile(Place.Path() / "RunRpt.txt", "A report\n");
    frmReport viewer(nullptr, QString::fromStdString((Place.Path() / "RunRpt.txt").string()));
    viewer.setAttribute(Qt::WA_DeleteOnClose, false);
    ExpectGood(viewer, 9, 6);
}

TEST_P(WindowsAccessibility, Guide) {
    frmGuide guide(nullptr);
    ExpectGood(guide, 2, 2);
}

TEST_P(WindowsAccessibility, Status) {
    frmStatus status(nullptr);
    status.SetStatus(QStringLiteral("1 of 2 Tasks Completed"));
    ExpectGood(status, 2, 1);
}

/// It has nothing to work with: any key ends it.
TEST_P(WindowsAccessibility, Splash) {
    QWidget main;
    main.show();
    auto* splash = new frmSplash(&main);
    splash->ShowOverParent();
    EXPECT_EQ(test::ExpectAccessible(*splash), 7);
    EXPECT_EQ(test::ExpectTextsStandOut(*splash), 7);
    splash->close();
}

TEST_P(WindowsAccessibility, Message) {
    ExpectGoodDialog(1, 1);
    ShowMessageBox(nullptr, "The file is damaged.", MessageIcon::Critical);
}

TEST_P(WindowsAccessibility, Question) {
    ExpectGoodDialog(2, 2);
    AskYesNoBox(nullptr, "Go on?", MessageIcon::Question, Answer::Yes);
}

TEST_P(WindowsAccessibility, InputBox) {
    ExpectGoodDialog(4, 3);
    AskTextBox(nullptr, "What is the fixed demand?", "Fixed Demand", "60000");
}

INSTANTIATE_TEST_SUITE_P(Themes, WindowsAccessibility, ::testing::Bool(),
                         [](const auto& each) { return each.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace quarnel02
