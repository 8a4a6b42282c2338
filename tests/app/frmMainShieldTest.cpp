// What is typed and clicked while a solve runs.
#include <gmock/gmock.h>

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWindow>

#include "app/OnShow.h"
#include "app/WindowTest.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kAskLimit = "none: Do you want to limit parallel stations?";

class frmMainShield : public test::WindowTest {
  protected:
    void StartWith(std::vector<DemandPoint> demand) {
        test::ModelScript model = test::WorkedExample();
        model.Demand = std::move(demand);
        Start(model.Sql());
        Type("txtProduct", "Pump");
        PressKey(Qt::Key_Return);
        Box("txtProduct").deselect();
    }

    /// As if the window system had sent it: to the window, to be delivered later.
    void PostKey(Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = {}) const {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QCoreApplication::postEvent(Window->windowHandle(),
                                        new QKeyEvent(type, key, modifiers, text));
        }
    }
    void PostClick(const QWidget& control) const {
        const QPointF place = control.mapTo(Window.get(), control.rect().center());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool press = type == QEvent::MouseButtonPress;
            QCoreApplication::postEvent(
                Window->windowHandle(),
                new QMouseEvent(type, place, Window->mapToGlobal(place), Qt::LeftButton,
                                press ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier));
        }
    }
    /// A letter for the box, a click on another solve, and the close box.
    void PostInput() {
        ++m_posted;
        PostKey(Qt::Key_X, QStringLiteral("x"));
        PostClick(Button("cmdContinuous_3"));
        PostClick(Box("txtDays"));
        QCoreApplication::postEvent(Window->windowHandle(), new QCloseEvent);
    }
    /// Input that arrives the very moment.
    void InputNow() {
        ++m_posted;
        QTest::keyClick(Window->windowHandle(), Qt::Key_X);
        QTest::keyClick(Window->windowHandle(), Qt::Key_N, Qt::ControlModifier);
        Window->windowHandle()->close();
    }
    void ExpectNothingHappened() {
        QTest::qWait(50);
        EXPECT_GT(m_posted, 0);
        EXPECT_EQ(Box("txtProduct").text().toStdString(), "Pump");
        EXPECT_EQ(FocusName(), "txtProduct");
        EXPECT_TRUE(Window->isVisible());
        EXPECT_EQ(Started.size(), 1U);
    }
    /// Input when the report is opened, which is the last that a solve does.
    void PostInputAtTheEnd() {
        Window->SetLauncher(std::make_unique<ReportLauncher>(ReportLauncher::Ways{
            [this](const QString& program, const QString& file) {
                Started.push_back(program.toStdString() + "|" + file.toStdString());
                PostInput();
                return true;
            },
            nullptr, nullptr}));
    }
    void SolveFixed() {
        Dialogs.Press(QMessageBox::No);
        PressKey(Qt::Key_1, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Started.empty(); }));
    }
    void SolveStochastic() {
        PressKey(Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Started.empty(); }));
    }

    int m_posted = 0;
};

TEST_F(frmMainShield, AFixedSolveTakesNoInputWhileItWorks) {
    StartWith({{100000, 100}});
    const test::OnShow meddler("QProgressBar", [this](QWidget&) {
        PostInput();
        InputNow();
    });
    SolveFixed();
    ExpectNothingHappened();
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskLimit));
}

TEST_F(frmMainShield, NothingRunsAfterAFixedSolve) {
    StartWith({{100000, 100}});
    PostInputAtTheEnd();
    SolveFixed();
    ExpectNothingHappened();
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskLimit));
}

TEST_F(frmMainShield, AStochasticSolveTakesNoInputWhileItWorks) {
    StartWith({{100000, 50}, {200000, 50}});
    const test::OnShow meddler("quarnel02::frmStatus", [this](QWidget&) {
        PostInput();
        InputNow();
    });
    SolveStochastic();
    ExpectNothingHappened();
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

TEST_F(frmMainShield, NothingRunsAfterAStochasticSolve) {
    StartWith({{100000, 50}, {200000, 50}});
    PostInputAtTheEnd();
    SolveStochastic();
    ExpectNothingHappened();
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

/// A short cut that arrives while a large model is being opened.
TEST_F(frmMainShield, NoCommandRunsInsideAnother) {
    StartWith({{100000, 50}, {200000, 50}});
    Window->RunEvent([this] {
        Click("cmdStoch");
        Item("mnuViewTasks").trigger();
    });
    EXPECT_THAT(Started, IsEmpty());
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
    SolveStochastic();
    EXPECT_EQ(Started.size(), 1U);
}

TEST_F(frmMainShield, DialogsOfASolveTakeInput) {
    StartWith({{100000, 100}});
    Dialogs.Press(QMessageBox::Yes);
    Dialogs.Type("3");
    PressKey(Qt::Key_1, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Started.empty(); }));
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
    EXPECT_NE(ReadFile(Copy->File("RunRpt.txt")).find("Station Limit: 3\n"), std::string::npos);
}

TEST_F(frmMainShield, InputCountsAgainAfterASolve) {
    StartWith({{100000, 100}});
    SolveFixed();
    QTest::keyClick(Window->windowHandle(), Qt::Key_S);
    EXPECT_EQ(Box("txtProduct").text().toStdString(), "Pumps");
    Window->windowHandle()->close();
    EXPECT_FALSE(Window->isVisible());
}

TEST_F(frmMainShield, InputCountsAgainAfterASolveThatFails) {
    StartWith({});
    Dialogs.Type("abc");
    Dialogs.Press(QMessageBox::No);
    Dialogs.Press(QMessageBox::Ok);
    PressKey(Qt::Key_1, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Dialogs.Seen.size() == 3; }));
    Activate();
    QTest::keyClick(Window->windowHandle(), Qt::Key_S);
    EXPECT_EQ(Box("txtProduct").text().toStdString(), "Pumps");
}

}  // namespace
}  // namespace quarnel02
