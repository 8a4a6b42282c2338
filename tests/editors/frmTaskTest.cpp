// The task editor.
#include <gmock/gmock.h>

#include "editors/EditorTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// Four tasks; two resources that can do all of them, told apart by their times.
constexpr const char* kFourTasks =
    "UPDATE Gen SET Tasks = 4, Resources = 2;"
    "INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta'), (3, 'Gamma'), (4, 'Delta');"
    "INSERT INTO Resources VALUES (1, 'R1', 'One', 0, 0, 0, 100, 1, 1, 1),"
    " (2, 'R2', 'Two', 0, 0, 0, 100, 1, 1, 1);"
    "INSERT INTO Matrix VALUES (1, 1, 11, 1, 0), (1, 2, 12, 1, 0), (1, 3, 13, 1, 0),"
    " (1, 4, 14, 1, 0), (2, 4, 24, 1, 0), (2, 2, 22, 1, 0);";

class frmTask : public test::EditorTest {
  protected:
    [[nodiscard]] std::string Record() const {
        return Shown("txtTask") + "|" + Shown("txtDescription");
    }
};

TEST_F(frmTask, OpensOnTheFirstRecord) {
    Start(kFourTasks);
    EditTasks([&] {
        EXPECT_TRUE(Form->isModal());
        EXPECT_EQ(Record(), "1|Alpha");
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("Task 1 of 4"));
        Press("cmdOK");
    });
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Tasks"));
}

TEST_F(frmTask, NextAndPreviousStayOnTheLastAndFirstTask) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdTask_0");
        EXPECT_EQ(Record(), "1|Alpha");
        Press("cmdTask_1", 3);
        EXPECT_EQ(Record(), "4|Delta");
        Press("cmdTask_1");
        EXPECT_EQ(Record(), "4|Delta");
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("Task 4 of 4"));
        Press("cmdTask_0");
        EXPECT_EQ(Record(), "3|Gamma");
        Press("cmdOK");
    });
}

TEST_F(frmTask, AnEmptyTableWaitsForAddNew) {
    Start();
    EditTasks([&] {
        EXPECT_EQ(Record(), "|");
        for (const char* button : {"cmdTask_0", "cmdTask_1", "cmdSave", "cmdDelete"}) {
            EXPECT_FALSE(Command(button).isEnabled()) << button;
        }
        EXPECT_FALSE(Part<QLineEdit>("txtDescription").isEnabled());
        EXPECT_EQ(Focus(), "cmdAddNew");
        Key(Qt::Key_Return);
        EXPECT_EQ(Record(), "1|   ");
        for (const char* button : {"cmdSave", "cmdDelete"}) {
            EXPECT_TRUE(Command(button).isEnabled()) << button;
        }
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|   "));
    EXPECT_EQ(Box("txtTasks").text(), "1");
}

TEST_F(frmTask, AnEmptyTableClosesWithACountOfZero) {
    Start("UPDATE Gen SET Tasks = 7;");
    EditTasks([&] { Press("cmdOK"); });
    EXPECT_EQ(Box("txtTasks").text(), "0");
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("0"));
    EXPECT_THAT(Copy->RowsOf("SELECT * FROM Arcs;", 1), IsEmpty());
}

TEST_F(frmTask, AnEmptyTableSaysSoAndHasNothingToSave) {
    Start();
    EditTasks([&] {
        EXPECT_EQ(Caption("lblInfo"), "There is no task yet. Press Add New.");
        EXPECT_EQ(Command("cmdSave").text(), "&Save");
        EXPECT_FALSE(Command("cmdSave").font().bold());
        EXPECT_FALSE(Command("cmdSave").isEnabled());
        Press("cmdOK");
    });
    EditResources([&] {
        EXPECT_EQ(Caption("lblInfo"), "There is no resource yet. Press Add New.");
        EXPECT_EQ(Command("cmdSave").text(), "&Save");
        EXPECT_FALSE(Command("cmdSave").font().bold());
        Press("cmdOK");
    });
}

TEST_F(frmTask, EveryStepLeavesTheDescriptionReadyToBeTypedOver) {
    Start(kFourTasks);
    EditTasks([&] {
        const auto expect = [&](const std::string& description) {
            EXPECT_EQ(Focus(), "txtDescription");
            EXPECT_EQ(Selected(), description);
        };
        expect("Alpha");
        Press("cmdTask_1");
        expect("Beta");
        Press("cmdTask_0");
        expect("Alpha");
        Press("cmdSave");
        expect("Alpha");
        Choose("Delete alone");
        Press("cmdDelete");
        expect("Beta");
        Press("cmdOK");
    });
}

TEST_F(frmTask, AShortCutLeavesTheFocusInItsBox) {
    Start(kFourTasks);
    EditTasks([&] {
        Part<QLineEdit>("txtTask").setFocus();
        Mnemonic("cmdTask_1");
        EXPECT_EQ(Record(), "2|Beta");
        EXPECT_EQ(Focus(), "txtTask");
        EXPECT_EQ(Selected(), "2");
        Press("cmdOK");
    });
}

TEST_F(frmTask, AddNewAppendsBehindTheLast) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdAddNew");
        EXPECT_EQ(Record(), "5|   ");
        EXPECT_EQ(Focus(), "txtDescription");
        EXPECT_EQ(Part<QLineEdit>("txtDescription").selectedText(), "   ");
        Press("cmdTask_0");
        EXPECT_EQ(Record(), "4|Delta");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Gamma", "4|Delta", "5|   "));
}

TEST_F(frmTask, AddNewAfterAHandEditedNumberMayDuplicateIt) {
    Start(kFourTasks);
    EditTasks([&] {
        Put("txtTask", "5");
        Press("cmdSave");
        Press("cmdAddNew");
        EXPECT_EQ(Record(), "5|   ");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("5|Alpha", "2|Beta", "3|Gamma", "4|Delta", "5|   "));
}

TEST_F(frmTask, SaveWritesBothFieldsAndStays) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdTask_1");
        Put("txtTask", "1,200");
        Put("txtDescription", "Fit the seal's ring");
        Press("cmdSave");
        EXPECT_EQ(Record(), "1200|Fit the seal's ring");
        Press("cmdTask_1");
        EXPECT_EQ(Record(), "3|Gamma");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "1200|Fit the seal's ring", "3|Gamma", "4|Delta"));
}

TEST_F(frmTask, EverythingThatLeavesARecordStoresWhatWasTyped) {
    Start(kFourTasks);
    EditTasks([&] {
        Put("txtDescription", "One");
        EXPECT_EQ(Tasks()[0], "1|Alpha");
        Press("cmdTask_1");
        EXPECT_EQ(Record(), "2|Beta");
        EXPECT_EQ(Tasks()[0], "1|One");
        Put("txtDescription", "Two");
        Press("cmdTask_0");
        EXPECT_EQ(Tasks()[1], "2|Two");
        Put("txtTask", "10");
        Press("cmdAddNew");
        EXPECT_EQ(Record(), "5|   ");
        EXPECT_EQ(Tasks()[0], "10|One");
        Put("txtDescription", "Five");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("10|One", "2|Two", "3|Gamma", "4|Delta", "5|Five"));
}

TEST_F(frmTask, DeletingARecordDropsWhatWasTypedIntoIt) {
    Start("INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta');");
    EditTasks([&] {
        Put("txtTask", "none");
        Press("cmdDelete");
        EXPECT_EQ(Record(), "1|Beta");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Beta"));
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(frmTask, ShowsThatThereIsSomethingToSave) {
    Start(kFourTasks);
    EditTasks([&] {
        const auto& save = Command("cmdSave");
        const auto& box = Part<QLineEdit>("txtDescription");
        EXPECT_FALSE(save.font().bold());
        Put("txtDescription", "Other");
        EXPECT_EQ(save.text(), "&Save *");
        EXPECT_TRUE(save.font().bold());
        EXPECT_TRUE(box.font().bold());
        EXPECT_FALSE(Part<QLineEdit>("txtTask").font().bold());
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("Not saved"));
        Put("txtDescription", "Alpha");
        EXPECT_EQ(save.text(), "&Save");
        EXPECT_FALSE(box.font().bold());
        Put("txtDescription", "Other");
        Press("cmdSave");
        EXPECT_EQ(save.text(), "&Save");
        EXPECT_THAT(Caption("lblInfo"), testing::Not(HasSubstr("Not saved")));
        Press("cmdOK");
    });
}

TEST_F(frmTask, ATextThatIsNoNumberIsRefusedWithOneMessage) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdTask_1");
        Put("txtTask", "two");
        Put("txtDescription", "Kept in the box");
        Dialogs.Press(QMessageBox::Ok);
        Press("cmdSave");
        EXPECT_EQ(Record(), "two|Kept in the box");
        EXPECT_EQ(Focus(), "txtTask");
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Gamma", "4|Delta"));
        Put("txtTask", "2");
        Press("cmdSave");
        Press("cmdOK");
    });
    ASSERT_EQ(Dialogs.Seen.size(), 2U);
    EXPECT_THAT(Dialogs.Seen[1],
                testing::AllOf(HasSubstr("critical: Task number"), HasSubstr("\"two\"")));
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Kept in the box", "3|Gamma", "4|Delta"));
}

TEST_F(frmTask, ANumberBeyond16BitsIsRefused) {
    Start(kFourTasks);
    EditTasks([&] {
        Put("txtTask", "32768");
        Dialogs.Press(QMessageBox::Ok);
        Press("cmdSave");
        EXPECT_EQ(Record(), "32768|Alpha");
        Key(Qt::Key_Escape);
        EXPECT_EQ(Record(), "1|Alpha");
        Press("cmdOK");
    });
    EXPECT_EQ(Dialogs.Seen[1],
              "critical: Task number is 32768; it must be a whole number from 1 to 32767.");
    EXPECT_THAT(Tasks()[0], "1|Alpha");
}

TEST_F(frmTask, DeletingATaskNumbersTheOthersAnewAndLeavesTheMatrixRowsTheirNumbers) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdTask_1");
        Choose("Delete alone");
        Press("cmdDelete");
        EXPECT_EQ(Record(), "2|Gamma");
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("Task 2 of 3"));
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Gamma", "3|Delta"));
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11|1|0", "1|2|12|1|0", "1|3|13|1|0", "2|2|22|1|0"));
    EXPECT_EQ(Box("txtTasks").text(), "3");
}

TEST_F(frmTask, DeletingTheLastTaskShowsTheOneBeforeIt) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdTask_1", 3);
        Press("cmdDelete");
        EXPECT_EQ(Record(), "3|Gamma");
        Press("cmdDelete");
        EXPECT_EQ(Record(), "2|Beta");
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11|1|0", "1|2|12|1|0", "2|2|22|1|0"));
}

TEST_F(frmTask, DeletingMakesHandEditedNumbersDenseInRecordOrder) {
    Start(kFourTasks);
    EditTasks([&] {
        Put("txtTask", "90");
        Press("cmdSave");
        Press("cmdTask_1", 2);
        Choose("Delete alone");
        Press("cmdDelete");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Delta"));
}

TEST_F(frmTask, TheOnlyTaskIsResetInsteadOfDeleted) {
    Start(
        "UPDATE Gen SET Tasks = 1; INSERT INTO Tasks VALUES (7, 'Alone');"
        "INSERT INTO Matrix VALUES (1, 1, 5, 1, 0), (1, 2, 5, 1, 0);");
    EditTasks([&] {
        EXPECT_EQ(Record(), "7|Alone");
        Choose("Delete alone");
        Press("cmdDelete");
        EXPECT_EQ(Record(), "1|   ");
        Press("cmdOK");
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|   "));
    EXPECT_THAT(Matrix(), ElementsAre("1|1|5|1|0"));
}

TEST_F(frmTask, ClosingWritesTheCountAndRebuildsTheArcs) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdAddNew");
        EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("4"));
        EXPECT_EQ(Box("txtTasks").text(), "4");
        Press("cmdOK");
    });
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("5"));
    EXPECT_EQ(Box("txtTasks").text(), "5");
    // 5 tasks: 6 x 5 / 2 = 15 arcs
    EXPECT_EQ(Copy->RowsOf("SELECT * FROM Arcs;", 1).size(), 15U);
    EXPECT_FALSE(Window->Current().Changed);
}

TEST_F(frmTask, EscapeAndTheCloseBoxCloseLikeOK) {
    Start(kFourTasks);
    EditTasks([&] {
        Press("cmdAddNew");
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(Box("txtTasks").text(), "5");
    EditTasks([&] {
        Press("cmdAddNew");
        Form->close();
    });
    EXPECT_EQ(Box("txtTasks").text(), "6");
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("6"));
}

TEST_F(frmTask, ClosingAddsTheRowOfGenWhenItIsMissing) {
    Start(kFourTasks);
    EditTasks([&] {
        RecordSet gen = Copy->Open().OpenRecordSet("SELECT * FROM Gen;");
        gen.Delete();
        Press("cmdOK");
    });
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks, Resources FROM Gen;", 2), ElementsAre("4|0"));
}

TEST_F(frmTask, MoreTasksThanANetworkCanHaveAreReportedOnceByTheEditorAndOnceByTheMenu) {
    std::string rows = "UPDATE Gen SET Tasks = 255; INSERT INTO Tasks VALUES (1, 'x')";
    for (int task = 2; task <= 255; ++task) {
        rows += ", (" + std::to_string(task) + ", 'x')";
    }
    Start(rows + ";");
    EditTasks([&] {
        Press("cmdAddNew");
        Dialogs.Press(QMessageBox::Ok);
        Dialogs.Press(QMessageBox::Ok);
        Press("cmdOK");
    });
    ASSERT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_THAT(Dialogs.Seen[1], HasSubstr("critical: Tasks: the model has 256 tasks"));
    EXPECT_EQ(Dialogs.Seen[2], Dialogs.Seen[1]);
}

TEST_F(frmTask, NoMnemonicIsUsedTwice) {
    Start(kFourTasks);
    const auto keys_are_unique = [&] {
        std::vector<std::string> keys;
        for (const auto* label : Form->findChildren<QLabel*>()) {
            keys.push_back(QKeySequence::mnemonic(label->text()).toString().toStdString());
        }
        for (const auto* button : Form->findChildren<QAbstractButton*>()) {
            keys.push_back(QKeySequence::mnemonic(button->text()).toString().toStdString());
        }
        std::erase(keys, "");
        EXPECT_GE(keys.size(), 2U);
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
        Key(Qt::Key_Escape);
    };
    EditTasks(keys_are_unique);
    EditResources(keys_are_unique);
    EditMatrix(keys_are_unique);
}

}  // namespace
}  // namespace quarnel02
