// What closing an editor does to the network, and what happens when the store cannot be used.
#include <gmock/gmock.h>

#include "editors/MatrixTest.h"
#include "editors/frmTask.h"
#include "support/RawStore.h"

namespace quarnel02 {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

class ClosedEditor : public test::MatrixTest {
  protected:
    void StartMarked(const char* script = test::kGrid) {
        Start(script);
        RecordSet pathways = Copy->Open().OpenRecordSet("SELECT * FROM Pathways;");
        for (; !pathways.Eof(); pathways.MoveNext()) {
            pathways.Edit();
            pathways.Set("Feasible", 4);
            pathways.Update();
        }
        EXPECT_THAT(Marks(), Contains("4"));
    }
    /// As a solve leaves them: 4 on the chosen pathways.
    [[nodiscard]] std::vector<std::string> Marks() const {
        return Copy->RowsOf("SELECT Feasible FROM Pathways;", 1);
    }
    void CloseBy(const std::string& way) {
        if (way == "close box") {
            Form->close();
        } else if (way == "Escape") {
            Key(Qt::Key_Escape);
        } else {
            Press(way);
        }
    }
};

TEST_F(ClosedEditor, KeepsTheMarksWhenNothingWasChanged) {
    StartMarked();
    const auto marks = Marks();
    for (const char* way : {"cmdOK", "Escape", "close box"}) {
        EditResources([&] {
            Press("cmdRes_1");
            Press("cmdSave");
            CloseBy(way);
        });
        EXPECT_EQ(Marks(), marks) << way;
    }
    for (const char* way : {"cmdCancel", "Escape", "close box"}) {
        EditMatrix([&] {
            Click(1, 2, Qt::RightButton);
            CloseBy(way);
        });
        EXPECT_EQ(Marks(), marks) << way;
    }
}

TEST_F(ClosedEditor, OfTasksKeepsTheMarksWhenNothingWasChanged) {
    StartMarked();
    quarnel02::frmTask editor(*Window, Window->History(), Window.get());
    OnDialog([&] {
        Press("cmdSave");
        Press("cmdOK");
    });
    editor.exec();
    EXPECT_FALSE(editor.ChangedModel());
    EXPECT_THAT(Marks(), Each("4"));
}

TEST_F(ClosedEditor, OfTasksSaysThatItChangedTheModel) {
    StartMarked();
    quarnel02::frmTask editor(*Window, Window->History(), Window.get());
    OnDialog([&] {
        Put("txtDescription", "Other");
        Press("cmdSave");
        Key(Qt::Key_Escape);
    });
    editor.exec();
    EXPECT_TRUE(editor.ChangedModel());
    EXPECT_THAT(Marks(), Not(Contains("4")));
}

TEST_F(ClosedEditor, RebuildsTheNetworkAfterAChangeHoweverItIsClosed) {
    int uptime = 50;
    for (const char* way : {"cmdOK", "Escape", "close box"}) {
        StartMarked();
        EditResources([&] {
            Put("txtUptime", std::to_string(++uptime));
            Press("cmdSave");
            EXPECT_THAT(Marks(), Each("4"));
            CloseBy(way);
        });
        EXPECT_THAT(Marks(), Not(Contains("4"))) << way;
    }
}

TEST_F(ClosedEditor, OfTheMatrixRebuildsTheNetworkAfterAChangeHoweverItIsClosed) {
    for (const char* way : {"cmdOK", "cmdCancel", "Escape", "close box"}) {
        StartMarked(
            "UPDATE Gen SET Tasks = 1, Resources = 2;"
            "INSERT INTO Tasks VALUES (1, 'Alpha');"
            "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 0, 0, 100, 1, 1, 1),"
            " (2, 'Prs', 'Press', 1, 0, 0, 100, 1, 1, 1);"
            "INSERT INTO Matrix VALUES (1, 1, 11.5, 3, 500);");
        EditMatrix([&] {
            Answer("7", "1", "0");
            Click(1, 2);
            EXPECT_THAT(Marks(), ElementsAre("4")) << way;
            CloseBy(way);
        });
        EXPECT_THAT(Marks(), SizeIs(2)) << way;
        EXPECT_THAT(Marks(), Not(Contains("4"))) << way;
    }
}

TEST_F(ClosedEditor, LeavesNoPathwaysAfterClearAndCancel) {
    StartMarked();
    EditMatrix([&] {
        Dialogs.Press(QMessageBox::Yes);
        Press("cmdClear");
        Press("cmdCancel");
    });
    EXPECT_THAT(Marks(), IsEmpty());
}

TEST_F(ClosedEditor, IsFinishedOnce) {
    StartMarked();
    EditResources([&] {
        Press("cmdAddNew");
        Press("cmdOK");
        Form->reject();
        Form->close();
    });
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Resources"));
    EXPECT_EQ(Box("txtResources").text(), "3");
}

class LockedStore : public ClosedEditor {
  protected:
    /// Runs the step while another program holds the working copy, and expects the message.
    void WhileLocked(const Steps& step, const std::string& lock = "IMMEDIATE") {
        test::RawStore other(Copy->File());
        other.Run("BEGIN " + lock);
        Dialogs.Press(QMessageBox::Ok);
        step();
        EXPECT_TRUE(Dialogs.AllGiven());
        EXPECT_THAT(Dialogs.Seen.back(), HasSubstr("critical: "));
        EXPECT_TRUE(Form->isVisible());
        other.Run("ROLLBACK");
    }
};

TEST_F(LockedStore, KeepsAnEditorOpenUntilItCanBeClosed) {
    StartMarked();
    EditResources([&] {
        Press("cmdAddNew");
        WhileLocked([&] { Press("cmdOK"); });
        Put("txtDescription", "Still here");
        Press("cmdSave");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), SizeIs(3));
    EXPECT_THAT(Resources(), Contains(HasSubstr("Still here")));
    EXPECT_EQ(Box("txtResources").text(), "3");
    EXPECT_THAT(Copy->RowsOf("SELECT Resources FROM Gen;", 1), ElementsAre("3"));
    EXPECT_THAT(Marks(), Not(Contains("4")));
}

TEST_F(LockedStore, KeepsTheMatrixOpenUntilTheNetworkIsRebuilt) {
    StartMarked();
    EditMatrix([&] {
        Answer("7", "1", "0");
        Click(1, 2);
        WhileLocked([&] { Press("cmdCancel"); });
        Press("cmdCancel");
    });
    EXPECT_THAT(Marks(), Not(Contains("4")));
}

TEST_F(LockedStore, DropsNothingThatWasTyped) {
    StartMarked();
    EditResources([&] {
        Press("cmdRes_1");
        Put("txtDescription", "Typed");
        for (const char* button : {"cmdSave", "cmdAddNew", "cmdDelete"}) {
            WhileLocked([&] { Press(button); }, "EXCLUSIVE");
            EXPECT_EQ(Shown("txtDescription"), "Typed") << button;
            EXPECT_EQ(Command("cmdSave").text(), "&Save *") << button;
        }
        Press("cmdSave");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(),
                ElementsAre("1|Ben|Bench|0|0|0|100|1|1|1", "2|Prs|Typed|1|0|0|100|1|1|1"));
}

TEST_F(LockedStore, KeepsTheCellEditorOpenWithItsTexts) {
    StartMarked();
    EditMatrix([&] {
        OnDialog([&] {
            Put("txtTaskInfo_0", "7");
            Put("txtTaskInfo_1", "2");
            Put("txtTaskInfo_2", "3");
            WhileLocked([&] { Press("cmdOK"); });
            EXPECT_EQ(Shown("txtTaskInfo_0"), "7");
            Press("cmdOK");
        });
        Click(1, 2);
        EXPECT_TRUE(IsChecked(1, 2));
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), Contains("2|1|7|2|3"));
}

}  // namespace
}  // namespace quarnel02
