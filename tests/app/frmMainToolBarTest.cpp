// The tool bar: what it offers, that it does what the menus do, and how it fits.
#include <gmock/gmock.h>

#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "app/Screenshot.h"
#include "app/WindowTest.h"
#include "basic/Files.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class frmMainToolBar : public test::WindowTest {
  protected:
    QToolBar& Bar() const { return Find<QToolBar>("toolBar"); }
    QToolButton& ButtonOf(const char* action) const {
        auto* button = qobject_cast<QToolButton*>(Bar().widgetForAction(&Item(action)));
        EXPECT_NE(button, nullptr) << action;
        return *button;
    }
    void StartWithAModel() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 100}};
        Start(model.Sql());
    }
};

TEST_F(frmMainToolBar, OffersFileEditorsAndDesigns) {
    Start();
    std::vector<std::string> texts;
    for (const QAction* action : Bar().actions()) {
        texts.push_back(action->isSeparator() ? "|" : action->iconText().toStdString());
        if (!action->isSeparator()) {
            EXPECT_FALSE(action->icon().isNull()) << texts.back();
            EXPECT_FALSE(action->toolTip().isEmpty()) << texts.back();
        }
    }
    EXPECT_THAT(texts, ElementsAre("New", "Open", "Save", "|", "Undo", "Redo", "|", "Tasks",
                                   "Resources", "Matrix", "|", "1 Shift", "2 Shifts", "3 Shifts",
                                   "Stochastic", "|", "Study"));
}

TEST_F(frmMainToolBar, UndoStaysShortWhileTheMenuNamesTheStep) {
    Start();
    EXPECT_FALSE(ButtonOf("mnuEditUndo").isEnabled());
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(ButtonOf("mnuEditUndo").text(), "Undo");
    EXPECT_NE(Caption("mnuEditUndo"), "&Undo");
    ASSERT_TRUE(ButtonOf("mnuEditUndo").isEnabled());
    QTest::mouseClick(&ButtonOf("mnuEditUndo"), Qt::LeftButton);
    EXPECT_EQ(Box("txtDays").text(), "250");
}

TEST_F(frmMainToolBar, AShiftDesignsWithWhatWasTypedLast) {
    StartWithAModel();
    Type("txtDays", "125");
    EXPECT_FALSE(std::filesystem::exists(Copy->File("RunRpt.txt")));
    Dialogs.Press(QMessageBox::No);
    QTest::mouseClick(&ButtonOf("actShifts_1"), Qt::LeftButton);
    // 125 days x 1 shift x 28800 s / 100000 units = 36 s.
    EXPECT_THAT(ReadFile(Copy->File("RunRpt.txt")), HasSubstr("Max Cycle Time:  36.00\n"));
}

TEST_F(frmMainToolBar, SaysThatThereIsNothingToSave) {
    Start();
    QTest::mouseClick(&ButtonOf("mnuFileSave"), Qt::LeftButton);
    EXPECT_EQ(Find<QStatusBar>("statusBar").currentMessage(), "There are no changes to save");
    EXPECT_TRUE(Dialogs.Seen.empty());
}

TEST_F(frmMainToolBar, TextsStandWhereThereIsRoomForAll) {
    Start();
    Window->resize(1800, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(Bar().toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    Window->resize(800, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(Bar().toolButtonStyle(), Qt::ToolButtonIconOnly);
    for (const QAction* action : Bar().actions()) {
        EXPECT_TRUE(Bar().widgetForAction(const_cast<QAction*>(action))->isVisible());
    }
    Window->resize(1800, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(Bar().toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
}

/// Lightness of the strongest ink of an icon.
int Ink(const QIcon& icon, bool light_paper) {
    const QImage image = icon.pixmap(24, 24).toImage();
    int extreme = light_paper ? 255 : 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() > 200) {
                extreme = light_paper ? std::min(extreme, pixel.lightness())
                                      : std::max(extreme, pixel.lightness());
            }
        }
    }
    return extreme;
}

TEST_F(frmMainToolBar, IconsAreDrawnInTheColourOfTheTheme) {
    const test::PaletteKeeper keeper;
    Start();
    EXPECT_LT(Ink(Item("mnuFileNew").icon(), true), 100);
    QApplication::setPalette(test::DarkPalette());
    QCoreApplication::processEvents();
    EXPECT_GT(Ink(Item("mnuFileNew").icon(), false), 200);
}

TEST_F(frmMainToolBar, IconsOfWhatCannotBeDoneAreGrey) {
    Start();
    const QIcon icon = Item("mnuEditUndo").icon();
    const QImage usual = icon.pixmap(24, 24, QIcon::Normal).toImage();
    const QImage grey = icon.pixmap(24, 24, QIcon::Disabled).toImage();
    int strong = 0;
    int inked = 0;
    for (int y = 0; y < grey.height(); ++y) {
        for (int x = 0; x < grey.width(); ++x) {
            if (grey.pixelColor(x, y).alpha() == 255 && usual.pixelColor(x, y).alpha() == 255) {
                ++inked;
                strong += usual.pixelColor(x, y) == grey.pixelColor(x, y) ? 1 : 0;
            }
        }
    }
    EXPECT_GT(inked, 10);
    EXPECT_EQ(strong, 0);
}

}  // namespace
}  // namespace quarnel02
