// The order of records: moved, inserted, copied and deleted with their matrix rows.
#include "editors/SheetTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class RecordOrder : public test::SheetTest {
  protected:
    void SelectRows(int first, int last) const {
        At(first, 1);
        for (int row = first; row < last; ++row) {
            Key(Qt::Key_Down, Qt::ShiftModifier);
        }
    }
    [[nodiscard]] std::vector<std::string> Descriptions() const {
        return Copy->RowsOf("SELECT Description FROM Tasks;", 1);
    }
    /// "task time", by the task's description.
    [[nodiscard]] std::vector<std::string> Times() const {
        return Copy->RowsOf(
            "SELECT Tasks.Description, Matrix.TaskTime FROM Tasks, Matrix"
            " WHERE Matrix.TaskId = Tasks.TaskId ORDER BY Matrix.TaskTime;",
            2);
    }
};

TEST_F(RecordOrder, MovesARecordWithItsMatrixRowsByKeys) {
    Start(test::kFourTasks);
    const auto times = Times();
    EditTasks([&] {
        Key(Qt::Key_Down, Qt::AltModifier);
        EXPECT_THAT(Tasks(), ElementsAre("1|Beta", "2|Alpha", "3|Gamma", "4|Delta"));
        EXPECT_EQ(Times(), times);
        EXPECT_EQ(Shown("txtTask") + Shown("txtDescription"), "2Alpha");
        EXPECT_EQ(Selected(), "Alpha");
        EXPECT_EQ(LastStep(), "Undo Move 1 task down");
        Key(Qt::Key_Up, Qt::AltModifier);
        Key(Qt::Key_Up, Qt::AltModifier);
        EXPECT_THAT(Descriptions(), ElementsAre("Alpha", "Beta", "Gamma", "Delta"));
        EXPECT_EQ(Times(), times);
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, MovesASelectionThatStaysSelected) {
    Start(test::kFourTasks);
    const auto times = Times();
    EditTasks([&] {
        SelectRows(1, 2);
        Key(Qt::Key_Up, Qt::AltModifier);
        EXPECT_THAT(Descriptions(), ElementsAre("Beta", "Gamma", "Alpha", "Delta"));
        EXPECT_EQ(LastStep(), "Undo Move 2 tasks up");
        EXPECT_EQ(Row(), 1);
        Key(Qt::Key_Down, Qt::AltModifier);
        Key(Qt::Key_Down, Qt::AltModifier);
        EXPECT_THAT(Descriptions(), ElementsAre("Alpha", "Delta", "Beta", "Gamma"));
        EXPECT_EQ(Sheet().SelectedBlock().Row, 2U);
        EXPECT_EQ(Sheet().SelectedBlock().Rows, 2U);
        EXPECT_EQ(Times(), times);
        Undo();
        EXPECT_THAT(Descriptions(), ElementsAre("Alpha", "Beta", "Gamma", "Delta"));
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, InsertsAsManyAsAreSelected) {
    Start(test::kFourTasks);
    const auto times = Times();
    EditTasks([&] {
        SelectRows(1, 2);
        Key(Qt::Key_I, Qt::ControlModifier);
        EXPECT_THAT(Tasks(),
                    ElementsAre("1|Alpha", "2|   ", "3|   ", "4|Beta", "5|Gamma", "6|Delta"));
        EXPECT_EQ(Times(), times);
        EXPECT_EQ(LastStep(), "Undo Insert 2 tasks");
        EXPECT_EQ(Row(), 1);
        EXPECT_EQ(Form->focusWidget(), &Sheet());
        Press("cmdOK");
    });
    EXPECT_EQ(Box("txtTasks").text(), "6");
}

TEST_F(RecordOrder, DuplicatesWithMatrixRows) {
    Start(test::kFourTasks);
    EditResources([&] {
        Press("cmdRes_1");
        Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(Shown("txtResource") + Shown("txtDescription"), "3Two");
        EXPECT_EQ(LastStep(), "Undo Duplicate 1 resource");
        Press("cmdOK");
    });
    EXPECT_EQ(Resources().size(), 3U);
    EXPECT_THAT(Matrix(), ::testing::IsSupersetOf({"3|4|24|1|0", "3|2|22|1|0", "2|4|24|1|0"}));
}

TEST_F(RecordOrder, DeletesASelectionWithItsMatrixRows) {
    Start(test::kFourTasks);
    EditTasks([&] {
        SelectRows(1, 2);
        Key(Qt::Key_Minus, Qt::ControlModifier);
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Delta"));
        EXPECT_THAT(Matrix(), ElementsAre("1|1|11|1|0", "1|2|14|1|0", "2|2|24|1|0"));
        EXPECT_EQ(LastStep(), "Undo Delete 2 tasks with matrix rows");
        EXPECT_EQ(Row(), 1);
        Undo();
        EXPECT_EQ(Tasks().size(), 4U);
        Press("cmdOK");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(RecordOrder, DeleteTakesTheMatrixRowsAlongByDefault) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Press("cmdTask_1");
        Dialogs.Add([&](QDialog& dialog) {
            EXPECT_EQ(Tasks().size(), 4U);
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        });
        Press("cmdDelete");
        EXPECT_EQ(Dialogs.Seen.back(),
                  "question: Delete task 2 (Beta)? It has 2 rows in the matrix.\n\nDeleted alone, "
                  "it leaves the matrix rows under their numbers: 3 rows will change owner to "
                  "another task, 2 rows will be deleted.");
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Gamma", "3|Delta"));
        EXPECT_THAT(Matrix(), ElementsAre("1|1|11|1|0", "1|2|13|1|0", "1|3|14|1|0", "2|3|24|1|0"));
        EXPECT_EQ(LastStep(), "Undo Delete task 2 with its matrix rows");
        EXPECT_EQ(Selected(), "Gamma");
        Undo();
        EXPECT_EQ(Tasks().size(), 4U);
        EXPECT_EQ(Matrix().size(), 6U);
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, DeleteCanBeCancelled) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Dialogs.Escape();
        Press("cmdDelete");
        EXPECT_EQ(Tasks().size(), 4U);
        EXPECT_EQ(Shown("txtDescription"), "Alpha");
        EXPECT_EQ(LastStep(), "Undo");
        Press("cmdOK");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

TEST_F(RecordOrder, DeleteDoesNotAskWhereTheMatrixStaysTheSame) {
    Start(test::kFourTasks);
    EditTasks([&] {
        Press("cmdLast");
        Press("cmdDelete");
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta", "3|Gamma"));
        EXPECT_EQ(LastStep(), "Undo Delete task 4");
        Press("cmdOK");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(RecordOrder, SaysWhatResourcesLose) {
    Start(test::kFourTasks);
    EditResources([&] {
        Press("cmdRes_1");
        Dialogs.Escape();
        Press("cmdDelete");
        EXPECT_THAT(Dialogs.Seen.back(), HasSubstr("2 rows will belong to no resource."));
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, StepsAreGreyAtTheEnds) {
    Start(test::kFourTasks);
    EditTasks([&] {
        const auto enabled = [&] {
            std::string states;
            for (const char* button : {"cmdFirst", "cmdTask_0", "cmdTask_1", "cmdLast"}) {
                states += Command(button).isEnabled() ? '1' : '0';
            }
            return states;
        };
        EXPECT_EQ(enabled(), "0011");
        Press("cmdTask_1");
        EXPECT_EQ(enabled(), "1111");
        Key(Qt::Key_End, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Row() == 3; }));
        EXPECT_EQ(enabled(), "1100");
        EXPECT_EQ(Focus(), "txtDescription");
        Key(Qt::Key_Home, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Row() == 0; }));
        EXPECT_EQ(Selected(), "Alpha");
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, GoesToANumberOrThroughNames) {
    Start(test::kFourTasks);
    EditTasks([&] {
        const auto go = [&](const std::string& text) {
            Key(Qt::Key_G, Qt::AltModifier);
            EXPECT_EQ(Focus(), "txtGoTo");
            Keys(text);
            EXPECT_NE(Selected(), text);
            Key(Qt::Key_Return);
        };
        go("3");
        EXPECT_EQ(Selected(), "Gamma");
        go("TA");
        EXPECT_EQ(Selected(), "Delta");
        go("ta");
        EXPECT_EQ(Selected(), "Beta");
        Dialogs.Press(QMessageBox::Ok);
        go("omega");
        EXPECT_EQ(Dialogs.Seen.back(),
                  "information: No task has the number or the name \"omega\".");
        EXPECT_EQ(Shown("txtDescription"), "Beta");
        EXPECT_EQ(Focus(), "txtGoTo");
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, EveryCommandIsInTheMenuOfTheSheet) {
    Start(test::kFourTasks);
    EditTasks([&] {
        std::vector<std::string> keys;
        for (const QAction* action : Sheet().actions()) {
            keys.push_back(action->shortcut().toString().toStdString());
        }
        EXPECT_THAT(keys, ElementsAre("Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+D", "Ctrl+R", "Del", "",
                                      "Ctrl+I", "Ctrl+Shift+D", "Ctrl+-", "Alt+Up", "Alt+Down"));
        Press("cmdOK");
    });
}

TEST_F(RecordOrder, TabGoesThroughTheRecordToTheSheetAndOn) {
    Start(test::kFourTasks);
    EditTasks([&] {
        std::vector<std::string> order;
        for (int step = 0; step < 10 && Form->focusWidget() != &Sheet(); ++step) {
            order.push_back(Focus());
            Key(Qt::Key_Tab);
        }
        EXPECT_THAT(order, ElementsAre("txtDescription", "cmdSave", "cmdAddNew", "cmdDelete",
                                       "cmdTask_1", "cmdLast", "txtGoTo"));
        EXPECT_EQ(Form->focusWidget(), &Sheet());
        Key(Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(Focus(), "cmdInsert");
        Press("cmdOK");
    });
}

}  // namespace
}  // namespace quarnel02
