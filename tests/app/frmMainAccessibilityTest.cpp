// What a screen reader and a keyboard find in the main window, and whether its texts stand out.
#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QToolBar>
#include <functional>
#include <map>
#include <set>

#include "app/Screenshot.h"
#include "app/WindowTest.h"
#include "support/ModelScript.h"
#include "widgets/Contrast.h"

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

    using Visit = std::function<void(QAccessibleInterface&)>;
    static void Walk(QAccessibleInterface* at, const Visit& visit) {
        if (at == nullptr || !at->isValid() || at->state().invisible) {
            return;
        }
        visit(*at);
        for (int i = 0; i < at->childCount(); ++i) {
            Walk(at->child(i), visit);
        }
    }

    static std::string NameOf(QAccessibleInterface& at) {
        const QObject* object = at.object();
        return (object == nullptr ? "" : object->objectName().toStdString()) + " '" +
               at.text(QAccessible::Name).toStdString() + "' role " +
               std::to_string(static_cast<int>(at.role()));
    }

  private:
    test::PaletteKeeper m_palette;
};

/// Whether the user does something with it, or reads it.
bool IsControl(QAccessible::Role role) {
    static const std::set<QAccessible::Role> controls = {
        QAccessible::PushButton, QAccessible::CheckBox,  QAccessible::EditableText,
        QAccessible::List,       QAccessible::ListItem,  QAccessible::MenuItem,
        QAccessible::StaticText, QAccessible::ButtonMenu};
    return controls.contains(role);
}

/// Texts and entries of menus and lists are their own description.
bool NeedsDescription(QAccessible::Role role) {
    return role == QAccessible::PushButton || role == QAccessible::CheckBox ||
           role == QAccessible::EditableText || role == QAccessible::List;
}

TEST_F(frmMainAccessibility, EveryControlHasANameAndADescription) {
    StartDesigned();
    int controls = 0;
    Walk(QAccessible::queryAccessibleInterface(Window.get()), [&](QAccessibleInterface& at) {
        if (!IsControl(at.role())) {
            return;
        }
        ++controls;
        const auto* label = qobject_cast<const QLabel*>(at.object());
        const bool empty_text = label != nullptr && label->text().isEmpty();
        EXPECT_TRUE(!at.text(QAccessible::Name).isEmpty() || empty_text) << NameOf(at);
        if (NeedsDescription(at.role())) {
            EXPECT_FALSE(at.text(QAccessible::Description).isEmpty()) << NameOf(at);
        }
    });
    EXPECT_GT(controls, 50);
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

/// Tab goes through every control that can do something and comes back.
TEST_F(frmMainAccessibility, TabReachesEveryControl) {
    StartDesigned();
    std::set<QWidget*> wanted;
    for (QWidget* widget : Window->centralWidget()->findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus) != 0) {
            wanted.insert(widget);
        }
    }
    EXPECT_GT(wanted.size(), 25U);
    Box("txtProduct").setFocus(Qt::TabFocusReason);
    std::set<QWidget*> reached;
    for (std::size_t step = 0; step <= wanted.size() + 5; ++step) {
        reached.insert(QApplication::focusWidget());
        PressKey(Qt::Key_Tab);
    }
    for (QWidget* widget : wanted) {
        EXPECT_TRUE(reached.contains(widget)) << widget->objectName().toStdString();
    }
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
    constexpr double readable = 4.5;
    if (GetParam()) {
        QApplication::setPalette(test::DarkPalette());
    }
    StartDesigned();
    Type("txtDays", "199");
    PressKey(Qt::Key_Return);
    int texts = 0;
    for (const QWidget* widget : Window->findChildren<QWidget*>()) {
        const bool shows_text = qobject_cast<const QLabel*>(widget) != nullptr ||
                                qobject_cast<const QLineEdit*>(widget) != nullptr ||
                                qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                qobject_cast<const QListWidget*>(widget) != nullptr;
        if (!shows_text || !widget->isVisible() || !widget->isEnabled()) {
            continue;
        }
        ++texts;
        const bool on_base = widget->objectName().startsWith("label_pic");
        const QPalette& colours = widget->palette();
        EXPECT_GE(Contrast(colours.color(widget->foregroundRole()),
                           colours.color(on_base ? QPalette::Base : widget->backgroundRole())),
                  readable)
            << widget->objectName().toStdString();
    }
    EXPECT_GT(texts, 30);
}

INSTANTIATE_TEST_SUITE_P(Themes, TextsStandOut, ::testing::Bool(),
                         [](const auto& each) { return each.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace quarnel02
