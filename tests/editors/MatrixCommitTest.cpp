// What closing and clearing the matrix editor do to the store.
#include <gmock/gmock.h>

#include "editors/MatrixTest.h"

namespace quarnel02 {
namespace {

using test::kGrid;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class MatrixCommit : public test::MatrixTest {};

TEST_F(MatrixCommit, CommittingDeletesTheRowsOfUncheckedPairsAndRebuildsTheArcs) {
    Start(kGrid);
    Copy->Open().OpenRecordSet("SELECT * FROM Arcs;").Delete();
    EditMatrix([&] {
        Click(2, 1, Qt::RightButton);
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11.5|3|500", "2|3|23|1|10"));
    // 3 tasks: 4 x 3 / 2 = 6 arcs; task 1 on resource 1 and task 3 on resource 2 make 2 pathways
    EXPECT_EQ(Copy->RowsOf("SELECT * FROM Arcs;", 1).size(), 6U);
    EXPECT_EQ(Copy->RowsOf("SELECT * FROM Pathways;", 1).size(), 2U);
    EXPECT_FALSE(Window->Current().Changed);
}

TEST_F(MatrixCommit, CancellingKeepsWhatTheCellEditorStoredAndDeletesNothing) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 1, Qt::RightButton);
        Answer("6", "1", "0");
        Click(1, 2);
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix().size(), 5U);
    EditMatrix([&] {
        EXPECT_THAT(Checked(), ElementsAre("1,1", "1,2", "2,1", "3,2"));
        Key(Qt::Key_Escape);
    });
}

TEST_F(MatrixCommit, CommittingAsksForMarkedPairsByResourceThenTask) {
    Start(kGrid);
    std::vector<std::string> asked;
    EditMatrix([&] {
        Click(1, 2, Qt::RightButton);
        Click(2, 2, Qt::RightButton);
        Click(3, 1, Qt::RightButton);
        const auto ask = [&](const std::string& time) {
            OnDialog([&asked, this, time] {
                asked.push_back(Caption("lblTask") + ", " + Caption("lblResource"));
                Put("txtTaskInfo_0", time);
                Put("txtTaskInfo_1", "1");
                Put("txtTaskInfo_2", "2");
                Press("cmdOK");
            });
        };
        ask("31");
        ask("12");
        ask("22");
        Press("cmdOK");
    });
    EXPECT_THAT(asked,
                ElementsAre("Task 3: Gamma, Resource 1: Bench", "Task 1: Alpha, Resource 2: Press",
                            "Task 2: Beta, Resource 2: Press"));
    EXPECT_THAT(Matrix(), UnorderedElementsAre("1|1|11.5|3|500", "1|2|12|1|0", "2|2|22|1|2",
                                               "2|3|23|1|10", "1|3|31|1|2", "2|1|12|1|2"));
}

TEST_F(MatrixCommit, APairLeftOpenWhileCommittingStaysWithoutARowAndTheWalkGoesOn) {
    Start(kGrid);
    EditMatrix([&] {
        Click(3, 1, Qt::RightButton);
        Click(1, 2, Qt::RightButton);
        Click(2, 2, Qt::RightButton);
        OnDialog([&] { Key(Qt::Key_Escape); });
        OnDialog([&] { Press("cmdOK"); });
        Answer("22", "1", "2");
        Press("cmdOK");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11.5|3|500", "1|2|12|1|0", "2|2|22|1|2", "2|3|23|1|10"));
}

TEST_F(MatrixCommit, TheWalkSaysHowFarItIsAndASingleCellDoesNot) {
    Start(kGrid);
    std::vector<std::string> places;
    EditMatrix([&] {
        OnDialog([&] {
            EXPECT_FALSE(Part<QLabel>("lblWalk").isVisible());
            EXPECT_FALSE(Command("cmdStop").isVisible());
            Key(Qt::Key_Escape);
        });
        Click(1, 1);
        Click(3, 1, Qt::RightButton);
        Click(1, 2, Qt::RightButton);
        Click(2, 2, Qt::RightButton);
        for (int pair = 0; pair < 3; ++pair) {
            OnDialog([&] {
                EXPECT_TRUE(Part<QLabel>("lblWalk").isVisible());
                places.push_back(Caption("lblWalk"));
                Press("cmdCancel");
            });
        }
        Press("cmdOK");
    });
    EXPECT_THAT(places, ElementsAre("1 of 3", "2 of 3", "3 of 3"));
}

TEST_F(MatrixCommit, StopAskingKeepsWhatIsStoredAndTheOtherMarks) {
    Start(kGrid);
    EditMatrix([&] {
        Click(2, 1, Qt::RightButton);
        Click(3, 1, Qt::RightButton);
        Click(1, 2, Qt::RightButton);
        Click(2, 2, Qt::RightButton);
        Answer("31", "1", "2");
        OnDialog([&] { Press("cmdStop"); });
        Press("cmdOK");
        EXPECT_TRUE(Form->isVisible());
        EXPECT_THAT(Checked(), ElementsAre("1,1", "1,2", "2,2", "3,1", "3,2"));
        EXPECT_THAT(Matrix(),
                    ElementsAre("1|1|11.5|3|500", "2|2|0|1|0", "2|3|23|1|10", "1|3|31|1|2"));
        Answer("12", "1", "2");
        OnDialog([&] {
            EXPECT_EQ(Caption("lblWalk"), "2 of 2");
            Press("cmdCancel");
        });
        Press("cmdOK");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_EQ(Matrix().back(), "2|1|12|1|2");
}

TEST_F(MatrixCommit, StopAskingStoresWhatWasTypedOrStaysWithAMessage) {
    Start(kGrid);
    EditMatrix([&] {
        Click(3, 1, Qt::RightButton);
        Click(1, 2, Qt::RightButton);
        OnDialog([&] {
            Put("txtTaskInfo_0", "31");
            Dialogs.Press(QMessageBox::Ok);
            Press("cmdStop");
            EXPECT_TRUE(Form->isVisible());
            EXPECT_EQ(Focus(), "txtTaskInfo_1");
            Put("txtTaskInfo_1", "1");
            Put("txtTaskInfo_2", "2");
            Press("cmdStop");
        });
        Press("cmdOK");
        EXPECT_TRUE(Form->isVisible());
        EXPECT_THAT(Checked(), ElementsAre("1,1", "1,2", "2,1", "3,1", "3,2"));
        Press("cmdCancel");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_EQ(Matrix().back(), "1|3|31|1|2");
}

TEST_F(MatrixCommit, ClearAsksAndOnNoChangesNothing) {
    Start(kGrid);
    EditMatrix([&] {
        Dialogs.Press(QMessageBox::No);
        Press("cmdClear");
        EXPECT_THAT(Checked(), ElementsAre("1,1", "2,1", "3,2"));
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.at(1), "question: Clear all Resource-Task information?");
    EXPECT_EQ(Matrix().size(), 4U);
}

TEST_F(MatrixCommit, ClearProposesNo) {
    Start(kGrid);
    EditMatrix([&] {
        Dialogs.Accept();
        Press("cmdClear");
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.at(1), "question: Clear all Resource-Task information?");
    EXPECT_EQ(Matrix().size(), 4U);
}

TEST_F(MatrixCommit, ClearOnYesDeletesEveryRowAndMark) {
    Start(kGrid + std::string("INSERT INTO Matrix VALUES (9, 9, 9, 9, 9);"));
    EditMatrix([&] {
        Click(1, 2, Qt::RightButton);
        Dialogs.Press(QMessageBox::Yes);
        Press("cmdClear");
        EXPECT_THAT(Checked(), IsEmpty());
        EXPECT_EQ(Caption("lblInfo"), test::kNoRow);
        Press("cmdCancel");
    });
    EXPECT_THAT(Matrix(), IsEmpty());
}

}  // namespace
}  // namespace quarnel02
