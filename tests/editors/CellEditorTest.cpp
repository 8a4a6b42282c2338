// The editor of one pair of a task and a resource.
#include <gmock/gmock.h>

#include "editors/MatrixTest.h"

namespace quarnel02 {
namespace {

using test::kGrid;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class frmTRInfo : public test::MatrixTest {};

TEST_F(frmTRInfo, ALeftClickOpensTheCellEditorForThePair) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            EXPECT_TRUE(Form->isModal());
            EXPECT_EQ(Caption("lblResource"), "Resource 1: Bench");
            EXPECT_EQ(Caption("lblTask"), "Task 1: Alpha");
            EXPECT_EQ(Shown("txtTaskInfo_0"), "11.5");
            EXPECT_EQ(Shown("txtTaskInfo_1"), "3");
            EXPECT_EQ(Shown("txtTaskInfo_2"), "500");
            Key(Qt::Key_Escape);
        });
        Click(1, 1);
        EXPECT_EQ(Current(), "1,1");
        Press("cmdCancel");
    });
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("dialog: Task-resource matrix", "dialog: Task on a resource"));
}

TEST_F(frmTRInfo, StoringATimeChecksTheCellAndWritesAtOnce) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            for (const char* box : {"txtTaskInfo_0", "txtTaskInfo_1", "txtTaskInfo_2"}) {
                EXPECT_EQ(Shown(box), "");
            }
            Put("txtTaskInfo_0", "7.5");
            Put("txtTaskInfo_1", "2");
            Put("txtTaskInfo_2", "1,250");
            Press("cmdOK");
        });
        Click(1, 2);
        EXPECT_TRUE(IsChecked(1, 2));
        EXPECT_EQ(Caption("lblInfo"), "Time: 7.5 sec   Tool #: 2   Tool Cost: $1250");
        EXPECT_EQ(Matrix().back(), "2|1|7.5|2|1250");
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix().size(), 5U);
}

TEST_F(frmTRInfo, StoringOverAPairEditsItsRow) {
    Start(kGrid);
    EditMatrix([&] {
        Answer("0", "4", "40");
        Click(1, 1);
        EXPECT_FALSE(IsChecked(1, 1));
        Press("cmdCancel");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|1|0|4|40", "1|2|12|1|0", "2|2|0|1|0", "2|3|23|1|10"));
}

class EmptyBox : public frmTRInfo, public ::testing::WithParamInterface<const char*> {};

TEST_P(EmptyBox, KeepsTheOthersUntilItIsFilled) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            for (const char* box : {"txtTaskInfo_0", "txtTaskInfo_1", "txtTaskInfo_2"}) {
                Put(box, std::string(GetParam()) == box ? "" : "5");
            }
            Dialogs.Press(QMessageBox::Ok);
            Press("cmdOK");
            EXPECT_TRUE(Form->isVisible());
            EXPECT_EQ(Focus(), GetParam());
            EXPECT_EQ(Matrix().size(), 4U);
            Keys("5");
            Press("cmdOK");
        });
        Click(1, 2);
        EXPECT_TRUE(IsChecked(1, 2));
        Press("cmdCancel");
    });
    ASSERT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_THAT(Dialogs.Seen[2], HasSubstr(" is empty. Enter a number"));
    EXPECT_EQ(Matrix().back(), "2|1|5|5|5");
}

INSTANTIATE_TEST_SUITE_P(All, EmptyBox,
                         ::testing::Values("txtTaskInfo_0", "txtTaskInfo_1", "txtTaskInfo_2"),
                         [](const auto& each) { return std::string(each.param); });

TEST_F(frmTRInfo, ClosesWithoutAWordWhenNothingWasTyped) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] { Press("cmdOK"); });
        Click(1, 2);
        EXPECT_FALSE(IsChecked(1, 2));
        OnDialog([&] { Form->close(); });
        Click(1, 1);
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_EQ(Matrix().size(), 4U);
}

TEST_F(frmTRInfo, EscapeTakesBackFirstAndClosesSecond) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            Put("txtTaskInfo_2", "7");
            Key(Qt::Key_Escape);
            EXPECT_TRUE(Form->isVisible());
            EXPECT_EQ(Shown("txtTaskInfo_2"), "500");
            EXPECT_EQ(Focus(), "txtTaskInfo_0");
            EXPECT_EQ(Selected(), "11.5");
            Repeat(Qt::Key_Escape);
            EXPECT_TRUE(Form->isVisible());
            Key(Qt::Key_Escape);
            EXPECT_FALSE(Form->isVisible());
        });
        Click(1, 1);
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix()[0], "1|1|11.5|3|500");
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

TEST_F(frmTRInfo, TheCloseBoxAsksBeforeItDropsWhatWasTyped) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            Put("txtTaskInfo_0", "7");
            Dialogs.Press(QMessageBox::No);
            Form->close();
            EXPECT_TRUE(Form->isVisible());
            EXPECT_EQ(Shown("txtTaskInfo_0"), "7");
            Dialogs.Press(QMessageBox::Yes);
            Form->close();
            EXPECT_FALSE(Form->isVisible());
        });
        Click(1, 1);
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.at(2), "question: Close without storing what was typed?");
    EXPECT_EQ(Dialogs.Seen.size(), 4U);
    EXPECT_EQ(Matrix()[0], "1|1|11.5|3|500");
}

TEST_F(frmTRInfo, LongNamesMakeRoomInsteadOfSqueezingTheBoxes) {
    std::string words;
    for (int word = 0; word < 60; ++word) {
        words += "Mount impeller ";
    }
    Start(kGrid + ("UPDATE Tasks SET Description = '" + words + "' WHERE TaskId = 1;"));
    EditMatrix([&] {
        const auto look = [&](int& box) {
            const auto& label = Part<QLabel>("lblTask");
            EXPECT_GE(label.height(), label.heightForWidth(label.width()));
            box = Part<QLineEdit>("txtTaskInfo_0").height();
            EXPECT_GE(box, Part<QLineEdit>("txtTaskInfo_0").sizeHint().height());
        };
        int box = 0;
        OnDialog([&] {
            look(box);
            Form->resize(Form->minimumWidth(), 10);
            QCoreApplication::processEvents();
            look(box);
            Key(Qt::Key_Escape);
        });
        Click(1, 1);
        Press("cmdCancel");
    });
}

TEST_F(frmTRInfo, ATextThatIsNoNumberIsRefusedAndCanBeMended) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            Put("txtTaskInfo_0", "5");
            Put("txtTaskInfo_1", "five");
            Put("txtTaskInfo_2", "1");
            Dialogs.Press(QMessageBox::Ok);
            Press("cmdOK");
            EXPECT_EQ(Focus(), "txtTaskInfo_1");
            EXPECT_EQ(Shown("txtTaskInfo_1"), "five");
            EXPECT_EQ(Matrix().size(), 4U);
            Put("txtTaskInfo_1", "5");
            Press("cmdOK");
        });
        Click(1, 2);
        EXPECT_TRUE(IsChecked(1, 2));
        Press("cmdCancel");
    });
    ASSERT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_THAT(Dialogs.Seen[2], HasSubstr("critical: Tool number: \"five\""));
    EXPECT_EQ(Matrix().back(), "2|1|5|5|1");
}

TEST_F(frmTRInfo, EnterGoesThroughTheCellEditorAndStores) {
    Start(kGrid);
    EditMatrix([&] {
        Key(Qt::Key_Right);
        OnDialog([&] {
            EXPECT_EQ(Focus(), "txtTaskInfo_0");
            Keys("8");
            Key(Qt::Key_Return);
            EXPECT_EQ(Focus(), "txtTaskInfo_1");
            Keys("1");
            Key(Qt::Key_Return);
            EXPECT_EQ(Focus(), "txtTaskInfo_2");
            Keys("90");
            Key(Qt::Key_Return);
            EXPECT_EQ(Focus(), "cmdOK");
            Key(Qt::Key_Return);
        });
        Key(Qt::Key_Return);
        EXPECT_TRUE(IsChecked(1, 2));
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix().back(), "2|1|8|1|90");
}

}  // namespace
}  // namespace quarnel02
