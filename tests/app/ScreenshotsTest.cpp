// Pictures of the windows, kept beside the test program, and what must hold on each of them.
#include <gmock/gmock.h>

#include <QFontInfo>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "app/Screenshot.h"
#include "app/WindowTest.h"
#include "app/frmGuide.h"
#include "app/frmReport.h"
#include "app/frmSplash.h"
#include "app/frmStatus.h"
#include "picture/SvgWriter.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

class Screenshots : public test::WindowTest {
  protected:
    /// The pump model, solved for two shifts and 60,000 units.
    void StartSolved() {
        Start();
        Dialogs.Type(std::string(QUARNEL02_PROGRAMS) + "/examples/pump.mdb");
        Item("mnuFileOpen").trigger();
        Window->resize(1360, 860);
        Window->SelectDemand(1);
        Dialogs.Accept();
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_2");
        ASSERT_TRUE(Dialogs.AllGiven());
        Activate();
    }

    static QImage Keep(QWidget& widget, const std::string& name) {
        return test::KeepScreenshot(widget, name);
    }

    static void ExpectNothingClipped(const QWidget& window) {
        test::ExpectNothingClipped(window, "lblPath");
    }

  private:
    test::PaletteKeeper m_palette;
};

TEST_F(Screenshots, MainWindow) {
    StartSolved();
    ExpectNothingClipped(*Window);
    const QImage image = Keep(*Window, "main");
    EXPECT_EQ(image.size(), Window->size() * Window->devicePixelRatioF());
}

TEST_F(Screenshots, MainWindowAfterAStochasticDesign) {
    StartSolved();
    Click("cmdStoch");
    QCoreApplication::processEvents();
    ExpectNothingClipped(*Window);
    Keep(*Window, "main-stochastic");
    for (const Picture& picture : Window->picGraph) {
        EXPECT_FALSE(picture.Figures().empty());
    }
}

TEST_F(Screenshots, MainWindowAsSmallAsItGets) {
    StartSolved();
    Window->resize(1, 1);
    QCoreApplication::processEvents();
    ExpectNothingClipped(*Window);
    Keep(*Window, "main-small");
    const QSize room = Window->screen()->availableSize();
    EXPECT_EQ(Window->width(), std::min(800, room.width()));
    EXPECT_LE(Window->height(), std::min(560, room.height()));
}

/// A screen of 960 x 540 logical pixels, less the title bar.
TEST_F(Screenshots, EveryControlCanBeReachedOnASmallScreen) {
    StartSolved();
    NoteDesignNow();
    Window->resize(960, 500);
    QCoreApplication::processEvents();
    Keep(*Window, "main-low");
    auto& pane = Find<QScrollArea>("scrLeft");
    EXPECT_LT(pane.viewport()->height(), pane.widget()->height());
    EXPECT_EQ(pane.verticalScrollBar()->value(), 0);
    EXPECT_LE(pane.widget()->width(), pane.viewport()->width());
    for (QWidget* control : pane.widget()->findChildren<QWidget*>()) {
        if (control->focusPolicy() == Qt::NoFocus || !control->isEnabled()) {
            continue;
        }
        control->setFocus(Qt::ShortcutFocusReason);
        const QRect place(control->mapTo(pane.viewport(), QPoint()), control->size());
        EXPECT_TRUE(pane.viewport()->rect().contains(place)) << control->objectName().toStdString();
    }
    const QRect inside = Window->rect();
    for (const char* name : {"scrArc", "picGraph_0", "picGraph_2", "chkFitWidth", "lblDesign"}) {
        const auto& control = Find<QWidget>(name);
        const QRect place(control.mapTo(Window.get(), QPoint()), control.size());
        EXPECT_TRUE(inside.contains(place)) << name;
        EXPECT_GT(place.height(), 10) << name;
    }
}

TEST_F(Screenshots, MainWindowOutOfDate) {
    StartSolved();
    NoteDesignNow();
    Type("txtDays", "199");
    PressKey(Qt::Key_Return);
    QCoreApplication::processEvents();
    ExpectNothingClipped(*Window);
    Keep(*Window, "main-out-of-date");
    EXPECT_TRUE(Find<QLabel>("lblOutOfDate").isVisible());
}

TEST_F(Screenshots, MainWindowInADarkPalette) {
    QApplication::setPalette(test::DarkPalette());
    StartSolved();
    NoteDesignNow();
    Type("txtDays", "199");
    PressKey(Qt::Key_Return);
    QCoreApplication::processEvents();
    Keep(*Window, "main-dark");
    EXPECT_LT(Window->palette().color(QPalette::Window).lightness(), 80);
    for (PictureBox* box : Window->findChildren<PictureBox*>()) {
        if (!box->isVisible()) {
            continue;
        }
        const QImage paper = box->grab().toImage();
        EXPECT_LT(paper.pixelColor(paper.width() - 3, paper.height() - 3).lightness(), 60)
            << box->objectName().toStdString();
    }
    EXPECT_NE(ToSvg(Window->picArc).find("fill=\"white\""), std::string::npos);
}

TEST_F(Screenshots, OtherWindows) {
    StartSolved();
    Dialogs.Add([](QDialog& dialog) {
        ExpectNothingClipped(dialog);
        Keep(dialog, "file");
        dialog.reject();
    });
    Item("mnuFileOpen").trigger();

    ShowReport(Window.get(), QString::fromStdString(Copy->File("RunRpt.txt").string()));
    auto& report = *Window->findChild<frmReport*>();
    Keep(report, "report");
    EXPECT_TRUE(QFontInfo(report.findChild<QPlainTextEdit*>()->font()).fixedPitch());
    Item("mnuHelpGuide").trigger();
    auto& guide = *Window->findChild<frmGuide*>();
    Keep(guide, "guide");
    for (const QWidget* window : {static_cast<QWidget*>(&report), static_cast<QWidget*>(&guide)}) {
        const QSize room = Window->screen()->availableSize();
        EXPECT_LT(window->width(), room.width());
        EXPECT_LT(window->height(), room.height());
    }

    frmStatus status(Window.get());
    status.show();
    status.SetStatus(QStringLiteral("Creating Resource Tables for Task 1 To Task 12"));
    status.SetProgress(5, 12);
    ExpectNothingClipped(status);
    Keep(status, "status");

    auto* splash = new frmSplash(Window.get());
    splash->ShowOverParent();
    ExpectNothingClipped(*splash);
    Keep(*splash, "splash");
    splash->close();
}

}  // namespace
}  // namespace quarnel02
