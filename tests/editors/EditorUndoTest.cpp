// Undo and redo inside the editors: one stack with the main window.
#include <gmock/gmock.h>

#include "editors/EditorTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;

class EditorUndo : public test::EditorTest {
  protected:
    void Undo() const { Key(Qt::Key_Z, Qt::ControlModifier); }
    void Redo() const { Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    void StartWithTasks() {
        Start("UPDATE Gen SET Tasks = 2; INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta');");
    }
};

TEST_F(EditorUndo, TakesBackWhatWasStoredAndShowsIt) {
    StartWithTasks();
    EditTasks([&] {
        Put("txtDescription", "Other");
        Press("cmdSave");
        ASSERT_THAT(Tasks(), ElementsAre("1|Other", "2|Beta"));
        Undo();
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta"));
        EXPECT_EQ(Shown("txtDescription"), "Alpha");
        Redo();
        EXPECT_THAT(Tasks(), ElementsAre("1|Other", "2|Beta"));
        EXPECT_EQ(Shown("txtDescription"), "Other");
        Press("cmdOK");
    });
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Edit task 1");
}

TEST_F(EditorUndo, OfAnAddedRecordGoesBackToOneThatIsThere) {
    StartWithTasks();
    EditTasks([&] {
        Press("cmdAddNew");
        ASSERT_EQ(Tasks().size(), 3U);
        Undo();
        EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta"));
        EXPECT_EQ(Shown("txtDescription"), "Beta");
        Press("cmdOK");
    });
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "2");
}

TEST_F(EditorUndo, OfABoxThatIsBeingTypedInIsItsOwn) {
    StartWithTasks();
    EditTasks([&] {
        Put("txtDescription", "Other");
        Press("cmdSave");
        Put("txtDescription", "Third");
        Undo();
        EXPECT_THAT(Tasks(), ElementsAre("1|Other", "2|Beta"));
        Key(Qt::Key_Escape);
    });
}

TEST_F(EditorUndo, InTheMainWindowTakesBackAddingARecordWithItsCountInOneStep) {
    StartWithTasks();
    EditTasks([&] {
        Press("cmdAddNew");
        Press("cmdOK");
    });
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "3");
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "2");
    EXPECT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta"));
    EXPECT_FALSE(Item("mnuEditUndo").isEnabled());
    EXPECT_FALSE(IsStarred());
}

TEST_F(EditorUndo, OfOneOfTheRecordsAddedLeavesTheCountOfTheOthers) {
    StartWithTasks();
    EditTasks([&] {
        Press("cmdAddNew");
        Press("cmdAddNew");
        Press("cmdOK");
    });
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "4");
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "3");
    EXPECT_EQ(Tasks().size(), 3U);
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("3"));
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "2");
}

TEST_F(EditorUndo, OfAnEditOfAnAddedRecordLeavesItCounted) {
    StartWithTasks();
    EditTasks([&] {
        Press("cmdAddNew");
        Put("txtDescription", "Gamma");
        Press("cmdSave");
        Press("cmdOK");
    });
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "3");
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("3"));
    Item("mnuEditRedo").trigger();
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("3"));
    Item("mnuEditUndo").trigger();
    Item("mnuEditUndo").trigger();
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("2"));
    EXPECT_FALSE(Item("mnuEditUndo").isEnabled());
}

TEST_F(EditorUndo, InAnotherEditorCountsTheRecordsThatItBringsBack) {
    StartWithTasks();
    EditTasks([&] {
        Press("cmdAddNew");
        Press("cmdDelete");
        ASSERT_THAT(Tasks(), ElementsAre("1|Alpha", "2|Beta"));
        Press("cmdOK");
    });
    EditMatrix([&] {
        Undo();
        EXPECT_EQ(Tasks().size(), 3U);
        Press("cmdCancel");
    });
    EXPECT_THAT(Copy->RowsOf("SELECT Tasks FROM Gen;", 1), ElementsAre("3"));
    EXPECT_EQ(Box("txtTasks").text().toStdString(), "3");
}

TEST_F(EditorUndo, ReachesFromAnEditorIntoTheParameters) {
    StartWithTasks();
    Type("txtDays", "111");
    EditTasks([&] {
        Undo();
        EXPECT_EQ(Box("txtDays").text().toStdString(), "250");
        Press("cmdOK");
    });
}

TEST_F(EditorUndo, TakesBackClearingTheMatrix) {
    Start(
        "UPDATE Gen SET Tasks = 1, Resources = 1; INSERT INTO Tasks VALUES (1, 'Alpha');"
        "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 0, 0, 100, 1, 1, 1);"
        "INSERT INTO Matrix VALUES (1, 1, 11.5, 3, 500);");
    const std::vector<std::string> before = Matrix();
    EditMatrix([&] {
        Dialogs.Press(QMessageBox::Yes);
        Press("cmdClear");
        ASSERT_TRUE(Matrix().empty());
        Form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Form));
        Undo();
        EXPECT_EQ(Matrix(), before);
        Press("cmdOK");
    });
    EXPECT_EQ(Matrix(), before);
}

}  // namespace
}  // namespace quarnel02
