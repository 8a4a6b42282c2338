// The sheet beside a record.
#include "editors/SheetTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class RecordSheetTest : public test::SheetTest {
  protected:
    void ExpectInStep(const std::string& after) const {
        const int row = Row();
        const int count = static_cast<int>(Tasks().size());
        EXPECT_EQ(Sheet().model()->rowCount(), count + 1) << after;
        EXPECT_EQ(Shown("txtTask"), Cell(row, 0)) << after;
        EXPECT_EQ(Shown("txtDescription"), Cell(row, 1)) << after;
        EXPECT_THAT(Caption("lblInfo"),
                    HasSubstr("Task " + std::to_string(row + 1) + " of " + std::to_string(count)))
            << after;
    }
};

TEST_F(RecordSheetTest, HasEveryFieldOfEveryRecord) {
    Start(
        "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 3500, 1.5, 96, 1.25, 6, 0.5),"
        " (2, 'Rob', NULL, 3, 80000, 9, 97, 2, 3, 8);");
    EditResources([&] {
        const std::vector<std::vector<std::string>> expected = {
            {"1", "Bench", "Ben", "3500", "1.5", "96", "1.25", "6", "0.5", "MNL"},
            {"2", "", "Rob", "80000", "9", "97", "2", "3", "8", "AUT"},
            {"", "", "", "", "", "", "", "", "", ""}};
        ASSERT_EQ(Sheet().model()->rowCount(), 3);
        ASSERT_EQ(Sheet().model()->columnCount(), 10);
        for (std::size_t row = 0; row < 3; ++row) {
            std::vector<std::string> cells;
            for (int column = 0; column < 10; ++column) {
                cells.push_back(Cell(static_cast<int>(row), column));
            }
            EXPECT_EQ(cells, expected.at(row)) << row;
        }
        EXPECT_EQ(Sheet().model()->headerData(5, Qt::Horizontal).toString(), "Uptime (%)");
        EXPECT_EQ(Sheet().model()->index(2, 1).data().toString(), "New resource");
        Press("cmdOK");
    });
}

TEST_F(RecordSheetTest, IsInStepWithTheRecordAfterEveryCommand) {
    Start(test::kFourTasks);
    EditTasks([&] {
        ExpectInStep("opening");
        for (const char* button : {"cmdTask_1", "cmdLast", "cmdTask_0", "cmdFirst", "cmdAddNew",
                                   "cmdInsert", "cmdDuplicate", "cmdUp", "cmdDown", "cmdSave"}) {
            Press(button);
            ExpectInStep(button);
        }
        EXPECT_EQ(Tasks().size(), 7U);
        Choose("Delete with its matrix rows");
        Press("cmdFirst");
        Press("cmdDelete");
        ExpectInStep("Delete");
        Undo();
        ExpectInStep("Undo");
        Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        ExpectInStep("Redo");
        Press("cmdLast");
        Press("cmdDeleteRows");
        ExpectInStep("Delete rows");
        At(1, 1);
        ExpectInStep("click");
        Key(Qt::Key_Down);
        EXPECT_EQ(Row(), 2);
        ExpectInStep("arrow");
        Keys("Typed");
        Key(Qt::Key_Up);
        EXPECT_EQ(Row(), 1);
        ExpectInStep("edit");
        Key(Qt::Key_N, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Row() == 2; }));
        ExpectInStep("Alt+N");
        EXPECT_EQ(Form->focusWidget(), &Sheet());
        Press("cmdOK");
    });
}

TEST_F(RecordSheetTest, StoresATypedCellAsOneStep) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Key(Qt::Key_F6);
        EXPECT_EQ(Form->focusWidget(), &Sheet());
        Keys("Fit bearing");
        EXPECT_EQ(Tasks()[0], "1|Alpha");
        EXPECT_EQ(Shown("txtDescription"), "Alpha");
        Key(Qt::Key_Return);
        EXPECT_EQ(Tasks()[0], "1|Fit bearing");
        EXPECT_EQ(Shown("txtDescription"), "Beta");
        EXPECT_EQ(LastStep(), "Undo Edit task 1");
        Undo();
        EXPECT_EQ(Tasks()[0], "1|Alpha");
        EXPECT_EQ(Cell(0, 1), "Alpha");
        EXPECT_EQ(Row(), 1);
        Key(Qt::Key_F6);
        EXPECT_EQ(Focus(), "txtDescription");
        Key(Qt::Key_Escape);
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Gamma", "4|Delta"));
}

TEST_F(RecordSheetTest, MakesATaskOfWhatIsTypedBehindTheLast) {
    Start();
    EditTasks([&] {
        Key(Qt::Key_F6);
        for (const char* task : {"Fit", "Press", "Test"}) {
            EXPECT_FALSE(Part<QLineEdit>("txtDescription").isEnabled());
            EXPECT_FALSE(Command("cmdSave").isEnabled());
            Keys(task);
            Key(Qt::Key_Return);
        }
        EXPECT_THAT(Tasks(), ElementsAre("1|Fit", "2|Press", "3|Test"));
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("A new task"));
        EXPECT_EQ(LastStep(), "Undo Add task 3");
        EXPECT_FALSE(Command("cmdTask_1").isEnabled());
        Press("cmdTask_0");
        EXPECT_EQ(Shown("txtDescription"), "Test");
        Press("cmdOK");
    });
    EXPECT_EQ(Box("txtTasks").text(), "3");
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("3"));
}

TEST_F(RecordSheetTest, MakesAResourceFieldByFieldWithTab) {
    Start();
    EditResources([&] {
        Key(Qt::Key_F6);
        for (const char* name : {"Bench", "Robot"}) {
            for (const char* text : {name, "Sh", "2,000", "1.5", "95", "1.25", "4", "0.5"}) {
                Keys(text);
                Key(Qt::Key_Tab);
            }
            Keys("a");
            Key(Qt::Key_Return);
        }
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre("1|Sh|Bench|3|2000|1.5|95|1.25|4|0.5",
                                         "2|Sh|Robot|3|2000|1.5|95|1.25|4|0.5"));
}

TEST_F(RecordSheetTest, OffersToAddTheTasksThatAPasteNeeds) {
    Start(test::kFourTasks);
    std::string block;
    for (int task = 1; task <= 12; ++task) {
        block += "Task " + std::to_string(task) + "\r\n";
    }
    EditTasks([&] {
        Clip(block);
        At(3, 1);
        Dialogs.Press(QMessageBox::No);
        Paste();
        EXPECT_EQ(Dialogs.Seen.back(),
                  "question: The block is larger than the sheet: add 11 tasks?");
        EXPECT_EQ(Tasks().size(), 4U);
        Dialogs.Press(QMessageBox::Yes);
        Paste();
        EXPECT_EQ(Tasks().size(), 15U);
        EXPECT_EQ(Tasks()[3], "4|Task 1");
        EXPECT_EQ(Tasks()[14], "15|Task 12");
        EXPECT_EQ(LastStep(), "Undo Paste 12 cells");
        ExpectInStep("paste");
        Undo();
        EXPECT_EQ(Tasks().size(), 4U);
        ExpectInStep("undo");
        Press("cmdOK");
    });
}

TEST_F(RecordSheetTest, TakesQuotedLinesAndDecimalCommas) {
    Start(test::kFourTasks);
    EditResources([&] {
        Clip("\"Bench\nwith \"\"vice\"\"\"\tBV\t1000,5\t2,25\t95\n");
        At(0, 1);
        Paste();
        Press("cmdOK");
    });
    EXPECT_EQ(Resources()[0], "1|BV|Bench with \"vice\"|0|1000.5|2.25|95|1|1|1");
}

TEST_F(RecordSheetTest, APasteThatFailsInItsLastCellChangesNothing) {
    Start(test::kFourTasks);
    const auto before = Resources();
    EditResources([&] {
        Clip("Bench\tB\t100\t1\t95\nPress\tP\t200\t2\t101");
        At(0, 1);
        Dialogs.Press(QMessageBox::Ok);
        Paste();
        EXPECT_EQ(Dialogs.Seen.back(),
                  "critical: Nothing was pasted.\nRow 2 (R2), Uptime (%): uptime is 101 %; it "
                  "must be above 0 and at most 100.");
        EXPECT_EQ(Resources(), before);
        EXPECT_EQ(LastStep(), "Undo");
        EXPECT_EQ(Shown("txtDescription"), "One");
        Press("cmdOK");
    });
    EXPECT_EQ(Resources(), before);
}

TEST_F(RecordSheetTest, ClearsTextsAndSetsFiguresToThoseOfANewRecord) {
    Start("INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 2, 3500, 1.5, 96, 1.25, 6, 0.5);");
    EditResources([&] {
        At(0, 1);
        Key(Qt::Key_Space, Qt::ShiftModifier);
        Key(Qt::Key_Escape);
        At(0, 1);
        Key(Qt::Key_End, Qt::ShiftModifier);
        Key(Qt::Key_Delete);
        EXPECT_EQ(LastStep(), "Undo Clear 9 cells");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre("1|||0|0|0|100|1|1|1"));
}

TEST_F(RecordSheetTest, CopiesRecordsToTheClipboard) {
    Start(test::kFourTasks);
    EditTasks([&] {
        At(1, 0);
        Key(Qt::Key_A, Qt::ControlModifier);
        Key(Qt::Key_C, Qt::ControlModifier);
        EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(),
                    HasSubstr("1\tAlpha\n2\tBeta\n3\tGamma\n4\tDelta"));
        Press("cmdOK");
    });
    EXPECT_EQ(LastStep(), "Undo");
}

TEST_F(RecordSheetTest, RefusesAClipboardBeyondTheLimit) {
    Start(test::kFourTasks);
    const auto before = Resources();
    EditResources([&] {
        Key(Qt::Key_F6);
        const std::string most(1'000'000 - 1, '\t');
        Dialogs.Press(QMessageBox::Ok);
        Clip(most);
        Paste();
        EXPECT_THAT(Dialogs.Seen.back(),
                    HasSubstr("Row 1 (R1), Fixed cost ($): fixed cost is empty"));
        Dialogs.Press(QMessageBox::Ok);
        Clip(most + '\t');
        Paste();
        EXPECT_THAT(Dialogs.Seen.back(), HasSubstr("holds more than 1,000,000 cells"));
        Press("cmdOK");
    });
    EXPECT_EQ(Resources(), before);
}

TEST_F(RecordSheetTest, LeavesBehindARefusedTextByEscapeFromAnyBox) {
    Start(test::kFourTasks);
    EditResources([&] {
        constexpr int fixed_cost = 3;
        Key(Qt::Key_F6);
        Sheet().setCurrentIndex(Sheet().model()->index(0, fixed_cost));
        Keys("nonsense");
        Part<QLineEdit>("txtGoTo").setFocus();
        ASSERT_TRUE(Sheet().IsEditing());
        Key(Qt::Key_Escape);
        EXPECT_FALSE(Sheet().IsEditing());
        EXPECT_TRUE(Form->isVisible());
        EXPECT_EQ(Cell(0, fixed_cost), "0");
        Key(Qt::Key_Escape);
        EXPECT_FALSE(Form->isVisible());
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

}  // namespace
}  // namespace quarnel02
