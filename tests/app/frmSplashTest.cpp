// The splash and status windows.
#include <gmock/gmock.h>

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "app/frmSplash.h"
#include "app/frmStatus.h"

namespace quarnel02 {
namespace {

class frmSplashWindow : public ::testing::Test {
  protected:
    frmSplashWindow() {
        Main.resize(600, 400);
        Main.show();
        Splash = new frmSplash(&Main);
        Splash->ShowOverParent();
    }

    [[nodiscard]] QWidget* Part(const char* name) const {
        return Splash->findChild<QWidget*>(QString::fromLatin1(name));
    }
    /// A closed splash deletes itself.
    bool IsGone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return Splash.isNull();
    }

    QMainWindow Main;
    QPointer<frmSplash> Splash;
};

TEST_F(frmSplashWindow, ShowsTheVersion) {
    const auto* version = Splash->findChild<QLabel*>(QStringLiteral("lblVersion"));
    EXPECT_EQ(version->text(), "Version 1.2.3");
}

TEST_F(frmSplashWindow, StandsInTheMiddleOfTheMainWindow) {
    const QPoint apart = Splash->geometry().center() - Main.geometry().center();
    EXPECT_LE(apart.manhattanLength(), 2);
}

TEST_F(frmSplashWindow, GoesWhenItsTimerFires) {
    auto* timer = Splash->findChild<QTimer*>(QStringLiteral("tmrQuitMe"));
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_NEAR(timer->interval(), 2000, 500);
    timer->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsGone(); }));
}

TEST_F(frmSplashWindow, GoesOnAKey) {
    QTest::keyClick(Splash, Qt::Key_Space);
    EXPECT_TRUE(IsGone());
}

TEST_F(frmSplashWindow, GoesOnAKeyForTheMainWindow) {
    QTest::keyClick(&Main, Qt::Key_Space);
    EXPECT_TRUE(IsGone());
}

TEST_F(frmSplashWindow, NeverHasTheKeyboard) {
    EXPECT_TRUE(Splash->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(Splash->testAttribute(Qt::WA_ShowWithoutActivating));
}

/// The first page has links where the splash stood: a click that comes a moment too late, and the
/// second one of a double click, are not meant for them.
TEST_F(frmSplashWindow, AClickThatComesTooLateReachesNothing) {
    auto* link = new QPushButton(&Main);
    link->setGeometry(Main.rect());
    link->show();
    int clicks = 0;
    QObject::connect(link, &QPushButton::clicked, [&] { ++clicks; });
    const QPoint below = Main.mapFromGlobal(Splash->geometry().center());
    const auto click = [&](const QPoint& at) {
        QTest::mouseClick(Main.windowHandle(), Qt::LeftButton, {}, at);
    };
    Splash->findChild<QTimer*>(QStringLiteral("tmrQuitMe"))->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsGone(); }));
    click(below);
    EXPECT_EQ(clicks, 0);
    click(QPoint(3, 3));
    EXPECT_EQ(clicks, 1) << "beside the splash";
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    click(below);
    EXPECT_EQ(clicks, 2);
}

TEST_F(frmSplashWindow, GivesTheKeyboardToTheMainWindowOnAClick) {
    QMainWindow other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    QTest::mouseClick(Part("Label2"), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Main));
}

TEST_F(frmSplashWindow, LeavesTheKeyboardWhereItIsWhenItsTimeIsUp) {
    QMainWindow other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Splash->findChild<QTimer*>(QStringLiteral("tmrQuitMe"))->start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return IsGone(); }));
    EXPECT_TRUE(other.isActiveWindow());
}

class EveryPart : public frmSplashWindow, public ::testing::WithParamInterface<const char*> {};

TEST_P(EveryPart, GoesOnAClick) {
    ASSERT_NE(Part(GetParam()), nullptr);
    QTest::mouseClick(Part(GetParam()), Qt::LeftButton);
    EXPECT_TRUE(IsGone());
}

INSTANTIATE_TEST_SUITE_P(Parts, EveryPart,
                         ::testing::Values("Frame1", "Image1", "imgLogo", "lblVersion",
                                           "lblPlatform", "lblCompanyProduct", "Label1", "Label2"),
                         [](const auto& each) { return std::string(each.param); });

TEST(frmStatusWindow, ShowsItsTextAndProgress) {
    frmStatus status(nullptr);
    status.show();
    status.SetStatus(QStringLiteral("2 of 3 Tasks Completed"));
    status.SetProgress(2, 3);
    EXPECT_EQ(status.findChild<QLabel*>(QStringLiteral("lblStatus"))->text(),
              "2 of 3 Tasks Completed");
    const auto* bar = status.findChild<QProgressBar*>();
    EXPECT_EQ(bar->value(), 2);
    EXPECT_EQ(bar->maximum(), 3);
}

TEST(frmStatusWindow, DoesNotCloseOnEscape) {
    frmStatus status(nullptr);
    status.show();
    QTest::keyClick(&status, Qt::Key_Escape);
    EXPECT_TRUE(status.isVisible());
}

TEST(frmStatusWindow, IsCancelledOnceAndSaysSo) {
    frmStatus status(nullptr);
    status.show();
    auto* cancel = status.findChild<QPushButton*>(QStringLiteral("cmdCancel"));
    EXPECT_TRUE(cancel->isEnabled());
    EXPECT_FALSE(status.IsCancelled());
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_TRUE(status.IsCancelled());
    EXPECT_FALSE(cancel->isEnabled());
    EXPECT_EQ(status.findChild<QLabel*>(QStringLiteral("lblStatus"))->text(), "Cancelling...");
}

TEST(frmSplashTime, BeginsWhenItIsSeen) {
    QMainWindow main;
    auto* splash = new frmSplash(&main);
    const auto* timer = splash->findChild<QTimer*>(QStringLiteral("tmrQuitMe"));
    QTest::qWait(500);  // the timer is a coarse one
    const int left = timer->remainingTime();
    EXPECT_LT(left, timer->interval() - 300);
    static_cast<void>(splash->grab());
    EXPECT_GT(timer->remainingTime(), left + 200);
    QTest::qWait(500);
    const int later = timer->remainingTime();
    static_cast<void>(splash->grab());
    EXPECT_LE(timer->remainingTime(), later) << "painted again it begins no more";
}

}  // namespace
}  // namespace quarnel02
