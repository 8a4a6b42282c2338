// What a screen reader and a keyboard find in the main window, and whether its texts stand out.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QToolBar>
#include <map>
#include <set>

#include "app/Screenshot.h"
#include "app/WindowTest.h"
#include "support/ModelScript.h"
#include "support/WindowWalk.h"

namespace quarnel02 {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class frmMainAccessibility : public test::WindowTest {
  protected:
    void StartDesigned() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 50}, {200000, 50}};
        Start(model.Sql() + "UPDATE Gen SET Tasks = 2;");
        Window->resize(1300, 900);
        Click("cmdStoch");
        Activate();
        Window->SelectDemand(0);
        Window->RunEvent([] {});
    }

  private:
    test::PaletteKeeper m_palette;
};

/// Entries of menus and lists, too.
TEST_F(frmMainAccessibility, EveryControlHasANameAndADescription) {
    StartDesigned();
    EXPECT_GT(test::ExpectAccessible(*Window), 50);
    int entries = 0;
    test::WalkTree(
        QAccessible::queryAccessibleInterface(Window.get()), [&](QAccessibleInterface& at) {
            if (at.role() == QAccessible::MenuItem || at.role() == QAccessible::ListItem) {
                ++entries;
                EXPECT_FALSE(at.text(QAccessible::Name).isEmpty()) << "entry " << entries;
            }
        });
    EXPECT_GT(entries, 5);
}

TEST_F(frmMainAccessibility, EveryPictureHasAnAlternativeInWords) {
    StartDesigned();
    for (const char* name : {"picArc", "picGraph_0", "picGraph_1", "picGraph_2", "picGraph_3"}) {
        QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(&Find<QWidget>(name));
        ASSERT_NE(picture, nullptr);
        EXPECT_FALSE(picture->text(QAccessible::Name).isEmpty()) << name;
        EXPECT_FALSE(picture->text(QAccessible::Description).isEmpty()) << name;
    }
    const auto words = [&](const char* name) {
        return Find<QWidget>(name).accessibleDescription().toStdString();
    };
    EXPECT_THAT(words("picGraph_0"), HasSubstr("Cycle Time:"));
    EXPECT_THAT(words("picArc"), HasSubstr("2 tasks"));
    EXPECT_THAT(words("picArc"), HasSubstr("Capacity "));
    Item("mnuFileNew").trigger();
    EXPECT_THAT(words("picGraph_0"), IsEmpty());
}

TEST_F(frmMainAccessibility, TabReachesEveryControl) {
    StartDesigned();
    Box("txtProduct").setFocus(Qt::TabFocusReason);
    EXPECT_GE(test::ExpectKeyboardReachesAll(*Window), 24);
}

TEST_F(frmMainAccessibility, TheFirstPageIsReachedToo) {
    Start();
    EXPECT_GT(test::ExpectAccessible(*Window), 40);
    Box("txtProduct").setFocus(Qt::TabFocusReason);
    EXPECT_GE(test::ExpectKeyboardReachesAll(*Window), 20);
}

/// A tool bar is for the mouse: what it does can be done by keys too.
TEST_F(frmMainAccessibility, EveryToolIsInAMenuOrHasAButtonWithAShortCut) {
    Start();
    std::set<QAction*> in_menus;
    for (const QMenu* menu : Window->findChildren<QMenu*>()) {
        for (QAction* action : menu->actions()) {
            in_menus.insert(action);
        }
    }
    const std::map<std::string, std::string> buttons = {{"actShifts_1", "cmdContinuous_1"},
                                                        {"actShifts_2", "cmdContinuous_2"},
                                                        {"actShifts_3", "cmdContinuous_3"},
                                                        {"actStochastic", "cmdStoch"}};
    for (QAction* action : Find<QToolBar>("toolBar").actions()) {
        if (action->isSeparator() || in_menus.contains(action)) {
            continue;
        }
        const auto button = buttons.find(action->objectName().toStdString());
        ASSERT_NE(button, buttons.end()) << action->objectName().toStdString();
        EXPECT_FALSE(Button(button->second).shortcut().isEmpty());
    }
}

class TextsStandOut : public frmMainAccessibility, public ::testing::WithParamInterface<bool> {};

TEST_P(TextsStandOut, FromTheirPaper) {
    if (GetParam()) {
        QApplication::setPalette(test::DarkPalette());
    }
    StartDesigned();
    Type("txtDays", "199");
    PressKey(Qt::Key_Return);
    EXPECT_GT(test::ExpectTextsStandOut(*Window), 30);
}

INSTANTIATE_TEST_SUITE_P(Themes, TextsStandOut, ::testing::Bool(),
                         [](const auto& each) { return each.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace quarnel02
