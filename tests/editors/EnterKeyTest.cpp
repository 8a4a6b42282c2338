// Enter in boxes and on buttons: one press, one step.
#include <gmock/gmock.h>

#include "editors/MatrixTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kTwoByTwo =
    "UPDATE Gen SET Tasks = 2, Resources = 2;"
    "INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta');"
    "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 10, 20, 90, 1, 1, 1),"
    " (2, 'Prs', 'Press', 1, 0, 0, 100, 1, 1, 1);";

class EnterKey : public test::MatrixTest {};

TEST_F(EnterKey, StoresATaskOnItsSecondPress) {
    Start(kTwoByTwo);
    EditTasks([&] {
        Keys("First");
        Key(Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdSave");
        EXPECT_EQ(Tasks()[0], "1|Alpha");
        EXPECT_EQ(Command("cmdSave").text(), "&Save *");
        Key(Qt::Key_Enter);
        EXPECT_EQ(Tasks()[0], "1|First");
        Press("cmdOK");
    });
}

TEST_F(EnterKey, GoesThroughAResourceAndStoresItAtTheEnd) {
    Start(kTwoByTwo);
    EditResources([&] {
        const std::vector<std::string> before = Resources();
        Part<QLineEdit>("txtResource").setFocus();
        for (const char* text : {"7", "Long", "Sh", "100", "2", "80", "1.5", "3", "4"}) {
            Keys(text);
            Key(Qt::Key_Return);
            EXPECT_EQ(Resources(), before) << text;
        }
        EXPECT_EQ(Focus(), "picRes");
        Keys("p");
        Key(Qt::Key_Return);
        Repeat(Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdSave");
        EXPECT_EQ(Resources(), before);
        Key(Qt::Key_Return);
        EXPECT_EQ(Resources()[0], "7|Sh|Long|2|100|2|80|1.5|3|4");
        Press("cmdOK");
    });
}

TEST_F(EnterKey, LeavesTheBoxItCameFromUnselected) {
    Start(kTwoByTwo);
    EditTasks([&] {
        auto& number = Part<QLineEdit>("txtTask");
        number.setFocus();
        EXPECT_EQ(number.selectedText(), "1");
        Key(Qt::Key_Return);
        EXPECT_EQ(Focus(), "txtDescription");
        EXPECT_EQ(number.selectedText(), "");
        Press("cmdOK");
    });
}

TEST_F(EnterKey, HeldDownMovesOnByOneBox) {
    Start(kTwoByTwo);
    EditTasks([&] {
        Part<QLineEdit>("txtTask").setFocus();
        Key(Qt::Key_Return);
        Repeat(Qt::Key_Return);
        EXPECT_EQ(Focus(), "txtDescription");
        Keys("First");
        Key(Qt::Key_Return);
        Repeat(Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdSave");
        EXPECT_EQ(Tasks()[0], "1|Alpha");
        Press("cmdOK");
    });
}

TEST_F(EnterKey, HeldDownCountsOnceWhereThePlatformDoesNotMarkItsRepeats) {
    Start(kTwoByTwo);
    EditTasks([&] {
        Part<QLineEdit>("txtTask").setFocus();
        const auto send = [&](QEvent::Type type, quint64 moment) {
            QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier);
            event.setTimestamp(moment);
            QCoreApplication::sendEvent(Form->focusWidget(), &event);
        };
        send(QEvent::KeyPress, 1000);
        EXPECT_EQ(Focus(), "txtDescription");
        for (const quint64 moment : {1660U, 1700U, 1740U}) {
            send(QEvent::KeyRelease, moment);
            send(QEvent::KeyPress, moment);
            EXPECT_EQ(Focus(), "txtDescription");
        }
        send(QEvent::KeyRelease, 1750);
        send(QEvent::KeyPress, 1900);
        EXPECT_EQ(Focus(), "cmdSave");
        Press("cmdOK");
    });
}

TEST_F(EnterKey, PressesEveryFocusedButton) {
    Start(kTwoByTwo);
    EditTasks([&] {
        const auto enter = [&](const std::string& button) {
            Command(button).setFocus();
            Key(Qt::Key_Return);
        };
        enter("cmdTask_1");
        EXPECT_EQ(Shown("txtDescription"), "Beta");
        enter("cmdTask_0");
        EXPECT_EQ(Shown("txtDescription"), "Alpha");
        enter("cmdAddNew");
        EXPECT_EQ(Tasks().size(), 3U);
        enter("cmdDelete");
        EXPECT_EQ(Tasks().size(), 2U);
        enter("cmdOK");
    });
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Tasks"));
}

TEST_F(EnterKey, HeldDownOnTheGridOpensOneCell) {
    Start(kTwoByTwo);
    EditMatrix([&] {
        OnDialog([&] {
            Repeat(Qt::Key_Return);
            EXPECT_EQ(Focus(), "txtTaskInfo_0");
            Key(Qt::Key_Escape);
        });
        Key(Qt::Key_Return);
        Repeat(Qt::Key_Return);
        Repeat(Qt::Key_Escape);
        EXPECT_TRUE(Form->isVisible());
        Key(Qt::Key_Space);
        Repeat(Qt::Key_Space);
        EXPECT_THAT(Checked(), ElementsAre("1,1"));
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

TEST_F(EnterKey, PutsEveryFigureOfTheCommitWalkInItsBox) {
    Start(kTwoByTwo);
    EditMatrix([&] {
        for (const auto key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up}) {
            Key(Qt::Key_Space);
            Key(key);
        }
        EXPECT_EQ(Checked().size(), 4U);
        for (std::size_t cell = 0; cell < 4; ++cell) {
            OnDialog([cell, this] {
                Repeat(Qt::Key_Return);
                for (int box = 0; box < 3; ++box) {
                    EXPECT_EQ(Focus(), "txtTaskInfo_" + std::to_string(box));
                    Keys(std::to_string(10 * (cell + 1)) + std::to_string(box + 1));
                    Key(Qt::Key_Return);
                    EXPECT_EQ(Matrix().size(), cell);
                }
                EXPECT_EQ(Focus(), "cmdOK");
                Key(Qt::Key_Return);
            });
        }
        Press("cmdOK");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_THAT(Matrix(), ElementsAre("1|1|101|102|103", "1|2|201|202|203", "2|1|301|302|303",
                                      "2|2|401|402|403"));
}

}  // namespace
}  // namespace quarnel02
