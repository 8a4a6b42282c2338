// A stochastic design that the planner cancels, through real events.
#include <gmock/gmock.h>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QProgressBar>
#include <QStatusBar>
#include <QTimer>
#include <QWindow>
#include <filesystem>
#include <map>

#include "app/OnShow.h"
#include "app/WindowTest.h"
#include "app/frmStatus.h"
#include "generate_model.h"
#include "support/ModelScript.h"
#include "support/Surroundings.h"

namespace quarnel02 {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

/// All that the planner has, and sees of it.
struct State {
    std::map<std::string, std::string> Files;
    std::map<std::string, std::filesystem::file_time_type> Times;
    std::vector<std::vector<PictureFigure>> Figures;
    std::vector<std::string> Shown;
};

class frmMainCancel : public test::WindowTest {
  protected:
    /// Two demand points, so that the stochastic design asks nothing.
    void StartSmall() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 50}, {200000, 50}};
        Start(model.Sql());
    }
    /// Takes a second or more.
    void StartLarge() { Start(GeneratedModelScript(40, 20, 1)); }

    void DesignFixed() {
        Dialogs.Accept();
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_1");
        ASSERT_TRUE(Window->LastDesign);
        Started.clear();
        Dialogs.Seen.clear();
    }

    /// Once the window has its shape, and no message hides what the status bar says.
    [[nodiscard]] State Look() const {
        Find<QStatusBar>("statusBar").clearMessage();
        QTest::qWait(50);
        State state;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Copy->Directory())) {
            const std::string name = entry.path().string();
            state.Times[name] = entry.last_write_time();
            state.Files[name] = entry.is_regular_file() ? ReadFile(entry.path()) : "";
        }
        state.Figures.push_back(Window->picArc.Figures());
        for (const Picture& picture : Window->picGraph) {
            state.Figures.push_back(picture.Figures());
        }
        for (const char* label : {"lblFile", "lblSaved", "lblSize", "lblDesign", "lblOutOfDate",
                                  "label_picGraph_0", "label_picArc"}) {
            const auto& shown = Find<QLabel>(label);
            state.Shown.push_back(shown.text().toStdString() + (shown.isHidden() ? " hidden" : ""));
        }
        for (const char* action :
             {"mnuEditUndo", "mnuEditRedo", "mnuViewLast", "mnuViewLastCont"}) {
            state.Shown.push_back(Caption(action) + (Item(action).isEnabled() ? "" : " grey"));
        }
        state.Shown.push_back(Title() + (IsStarred() ? "*" : ""));
        return state;
    }

    [[nodiscard]] std::string Message() const {
        return Find<QStatusBar>("statusBar").currentMessage().toStdString();
    }

    static void PostKey(const QWidget& window, Qt::Key key, bool repeated = false) {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QCoreApplication::postEvent(
                window.windowHandle(),
                new QKeyEvent(type, key, Qt::NoModifier, QString(), repeated));
        }
    }
    /// Presses the stochastic button and does that when the status window appears.
    void DesignWhile(const test::OnShow::Act& act) {
        int windows = 0;
        const test::OnShow meddler("quarnel02::frmStatus", [&](QWidget& status) {
            ++windows;
            act(status);
        });
        Click("cmdStoch");
        EXPECT_EQ(windows, 1);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_THAT(Dialogs.Seen, IsEmpty());
    }
    /// Expects that such a design is cancelled and that all is as it was.
    void ExpectCancel(const test::OnShow::Act& act) {
        QCoreApplication::processEvents();
        const State before = Look();
        DesignWhile(act);
        EXPECT_EQ(Message(), "Cancelled; model and results are as they were");
        const State after = Look();
        EXPECT_EQ(after.Files, before.Files);
        EXPECT_EQ(after.Shown, before.Shown);
        EXPECT_EQ(after.Figures, before.Figures);
        EXPECT_TRUE(after.Times == before.Times);
        EXPECT_THAT(Started, IsEmpty());
    }
};

TEST_F(frmMainCancel, EscapeCancels) {
    StartSmall();
    DesignFixed();
    ExpectCancel([](QWidget& status) { PostKey(status, Qt::Key_Escape); });
}

TEST_F(frmMainCancel, TheButtonCancels) {
    StartSmall();
    DesignFixed();
    ExpectCancel([](QWidget& status) {
        QTimer::singleShot(0, &status, [&status] {
            const auto* button = status.findChild<QPushButton*>("cmdCancel");
            QTest::mouseClick(status.windowHandle(), Qt::LeftButton, {},
                              button->mapTo(&status, button->rect().center()));
        });
    });
}

TEST_F(frmMainCancel, TheCloseBoxCancels) {
    StartSmall();
    ExpectCancel([](QWidget& status) {
        QCoreApplication::postEvent(status.windowHandle(), new QCloseEvent);
    });
}

/// In the middle of the work, with run files in the directory and a step of undo.
TEST_F(frmMainCancel, CancelsInTheMiddleOfTheWork) {
    StartLarge();
    Click("cmdStoch");
    Activate();
    Type("txtDays", "123");
    PressKey(Qt::Key_Return);
    ASSERT_EQ(Caption("mnuEditUndo").substr(0, 6), "&Undo ");
    Started.clear();
    std::size_t files = 0;
    int share = 0;
    std::string step;
    ExpectCancel([&](QWidget& status) {
        auto* looks = new QTimer(&status);
        QObject::connect(looks, &QTimer::timeout, &status, [&, looks] {
            files = test::NamesIn(Copy->Directory()).size();
            const auto* bar = status.findChild<QProgressBar*>("prgStatus");
            share = 100 * bar->value() / std::max(1, bar->maximum());  // none at first
            step = status.findChild<QLabel*>("lblStatus")->text().toStdString();
            if (files > 10 && share > 0) {
                looks->stop();
                PostKey(status, Qt::Key_Escape);
            }
        });
        looks->start(10);
    });
    EXPECT_GT(files, 10U);
    EXPECT_GT(share, 0);
    EXPECT_LT(share, 100);
    EXPECT_THAT(step, HasSubstr("Task"));
}

TEST_F(frmMainCancel, TheNextDesignIsMade) {
    StartSmall();
    ExpectCancel([](QWidget& status) { PostKey(status, Qt::Key_Escape); });
    DesignWhile([](QWidget&) {});
    ASSERT_TRUE(Window->LastDesign);
    EXPECT_THAT(Window->LastDesign->Caption, HasSubstr("Capacity "));
    EXPECT_EQ(Started.size(), 1U);
}

/// Nobody meant the window that has just come up under a key that is held.
TEST_F(frmMainCancel, HeldEscapeAndEnterDoNotCancel) {
    StartSmall();
    DesignWhile([](QWidget& status) {
        PostKey(status, Qt::Key_Escape, true);
        PostKey(status, Qt::Key_Return);
        PostKey(status, Qt::Key_Enter);
    });
    EXPECT_TRUE(Window->LastDesign);
}

/// Rows without a volume are left out, which a notice says of the results that are shown.
TEST_F(frmMainCancel, ANoticeOfTheResultsComesBack) {
    test::ModelScript model = test::WorkedExample();
    model.Demand = {{100000, 50}, {200000, 50}};
    Start(model.Sql() + "INSERT INTO Demand VALUES (NULL, 0);");
    Click("cmdStoch");
    const std::string notice = Message();
    ASSERT_NE(notice, "");
    DesignWhile([](QWidget& status) { PostKey(status, Qt::Key_Escape); });
    EXPECT_EQ(Message(), notice);
}

TEST_F(frmMainCancel, TheReportOfTheLastFixedDesignIsNotTakenForThatOfACancelledOne) {
    StartSmall();
    Click("cmdStoch");
    Activate();
    Type("txtDays", "123");
    PressKey(Qt::Key_Return);
    DesignFixed();
    const std::string mark = Caption("mnuViewLast");
    EXPECT_THAT(mark, HasSubstr("out of date"));
    ExpectCancel([](QWidget& status) { PostKey(status, Qt::Key_Escape); });
    EXPECT_EQ(Caption("mnuViewLast"), mark);
}

/// A fixed design is too short to be cancelled: Escape does nothing while it works.
TEST_F(frmMainCancel, EscapeDuringAFixedDesignDoesNothing) {
    StartSmall();
    DesignFixed();
    Item("mnuViewEnlarge").trigger();
    const std::string enlarged = Caption("mnuViewEnlarge");
    EXPECT_EQ(enlarged, "Show all box&es");
    int posted = 0;
    const test::OnShow meddler("QProgressBar", [&](QWidget&) {
        ++posted;
        PostKey(*Window, Qt::Key_Escape);
        QTest::keyClick(Window->windowHandle(), Qt::Key_Escape);
    });
    Dialogs.Accept();
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_2");
    EXPECT_GT(posted, 0);
    EXPECT_EQ(Caption("mnuViewEnlarge"), enlarged);
    ASSERT_TRUE(Window->LastDesign);
    EXPECT_THAT(Window->LastDesign->Caption, HasSubstr("2 shifts"));
}

TEST_F(frmMainCancel, TheStatusWindowSaysShareAndTimeLeft) {
    StartSmall();
    frmStatus status(Window.get());
    status.show();
    const auto text = [&](const char* label) {
        return status.findChild<QLabel*>(label)->text().toStdString();
    };
    const auto* bar = status.findChild<QProgressBar*>("prgStatus");
    EXPECT_FALSE(bar->isTextVisible());
    status.SetProgress(1, 4);
    EXPECT_EQ(bar->text(), "25%");
    EXPECT_TRUE(bar->isTextVisible());
    EXPECT_EQ(text("lblTimeLeft"), "");
    QTest::qWait(1100);
    status.SetProgress(2, 4);
    EXPECT_THAT(text("lblTimeLeft"), MatchesRegex("About [2-9] s left"));
    EXPECT_FALSE(status.IsCancelled());
    QTest::keyClick(&status, Qt::Key_Escape);
    EXPECT_TRUE(status.IsCancelled());
    EXPECT_TRUE(status.isVisible());
    EXPECT_EQ(text("lblStatus"), "Cancelling...");
}

}  // namespace
}  // namespace quarnel02
