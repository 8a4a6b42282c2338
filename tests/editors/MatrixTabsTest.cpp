// Marks that are kept until OK beside values that are stored at once.
#include <gmock/gmock.h>

#include "editors/MatrixValuesTest.h"

namespace quarnel02 {
namespace {

using test::kGrid;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

/// Task 2 on resource 2 has the time 0.
class MatrixTabs : public test::MatrixValuesTest {};

TEST_F(MatrixTabs, OKOnValuesKeepsWhatCannotAndOKOnMarksDeletesIt) {
    Start(kGrid);
    EditValues([&] { Press("cmdOK"); });
    EXPECT_EQ(Matrix().size(), 4U);
    EditValues([&] {
        ClickTab(kMarks);
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11.5|3|500", "1|2|12|1|0", "2|3|23|1|10"));
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

TEST_F(MatrixTabs, ATypedZeroIsKeptByEitherOK) {
    Start(kGrid);
    EditValues([&] {
        Go(1, 2);
        TypeCell("0 | 7 | 70");
        Key(Qt::Key_Return);
        ClickTab(kMarks);
        EXPECT_FALSE(IsChecked(1, 2));
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), Contains("2|1|0|7|70"));
}

TEST_F(MatrixTabs, OKOnValuesCarriesOutTheMarksThatWereTurned) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 1, Qt::RightButton);
        Click(3, 1, Qt::RightButton);
        ClickTab(kValues);
        EXPECT_EQ(Look(1, 1), PairLook::Leaving);
        EXPECT_EQ(Matrix().size(), 4U);
        OnDialog([&] {
            EXPECT_EQ(Caption("lblTask"), "Task 3: Gamma");
            EXPECT_EQ(Caption("lblWalk"), "1 of 1");
            Put("txtTaskInfo_0", "9");
            Put("txtTaskInfo_1", "1");
            Put("txtTaskInfo_2", "2");
            Press("cmdOK");
        });
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|2|12|1|0", "2|2|0|1|0", "2|3|23|1|10", "1|3|9|1|2"));
    EXPECT_TRUE(Dialogs.AllGiven());
}

TEST_F(MatrixTabs, AValueTypedOverAMarkThatWasTakenOffSetsItAgain) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 1, Qt::RightButton);
        ClickTab(kValues);
        Go(1, 1);
        TypeCell("11.5 | 3 | 500");
        Key(Qt::Key_Return);
        EXPECT_EQ(Look(1, 1), PairLook::Can);
        ClickTab(kMarks);
        EXPECT_TRUE(IsChecked(1, 1));
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), Contains("1|1|11.5|3|500"));
}

TEST_F(MatrixTabs, CancelKeepsWhatWasTypedAndDropsTheMarks) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 1, Qt::RightButton);
        ClickTab(kValues);
        Go(3, 1);
        TypeCell("6");
        Key(Qt::Key_Return);
        Press("cmdCancel");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11.5|3|500", "1|2|12|1|0", "2|2|0|1|0", "2|3|23|1|10",
                                      "1|3|6|0|0"));
}

TEST_F(MatrixTabs, UndoKeepsMarksThatWereTurned) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 2, Qt::RightButton);
        ClickTab(kValues);
        Go(3, 1);
        TypeCell("6");
        Key(Qt::Key_Return);
        EXPECT_EQ(Look(3, 1), PairLook::Can);
        Ctrl(Qt::Key_Z);
        EXPECT_EQ(Look(3, 1), PairLook::Empty);
        EXPECT_EQ(Look(1, 2), PairLook::Marked);
        ClickTab(kMarks);
        EXPECT_THAT(Checked(), ElementsAre("1,1", "1,2", "2,1", "3,2"));
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix().size(), 4U);
}

TEST_F(MatrixTabs, UndoOfATypedCellIsItsOwnUntilItIsStored) {
    Start(kGrid);
    EditValues([&] {
        Go(3, 1);
        TypeCell("6");
        Key(Qt::Key_Return);
        Go(1, 2);
        TypeCell("7");
        Ctrl(Qt::Key_Z);
        EXPECT_EQ(Matrix().size(), 5U);
        Key(Qt::Key_Escape);
        Ctrl(Qt::Key_Z);
        EXPECT_EQ(Matrix().size(), 4U);
        Press("cmdCancel");
    });
}

TEST_F(MatrixTabs, WhatTheCellEditorStoresShowsInTheValuesAndIsNamed) {
    Start(kGrid);
    EditMatrix([&] {
        Answer("5", "6", "7");
        Click(3, 1);
        ClickTab(kValues);
        EXPECT_EQ(Text(3, 1), "5 | 6 | 7");
        Press("cmdCancel");
    });
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Edit Ben, task 3");
}

TEST_F(MatrixTabs, UndoInTheCellEditorShowsWhatIsStoredThen) {
    Start(kGrid);
    EditMatrix([&] {
        Answer("5", "6", "7");
        Click(1, 1);
        OnDialog([&] {
            EXPECT_EQ(Shown("txtTaskInfo_0"), "5");
            Command("cmdOK").setFocus();
            Ctrl(Qt::Key_Z);
            EXPECT_EQ(Shown("txtTaskInfo_0"), "11.5");
            Key(Qt::Key_Escape);
        });
        Click(1, 1);
        EXPECT_EQ(Caption("lblInfo"), "Time: 11.5 sec   Tool #: 3   Tool Cost: $500");
        ClickTab(kValues);
        EXPECT_EQ(Text(1, 1), "11.5 | 3 | 500");
        Press("cmdCancel");
    });
}

TEST_F(MatrixTabs, ClearOnValuesEmptiesTheSheetInOneNamedStep) {
    Start(kGrid);
    EditValues([&] {
        Dialogs.Press(QMessageBox::Yes);
        Press("cmdClear");
        EXPECT_EQ(Look(1, 1), PairLook::Empty);
        EXPECT_EQ(Text(1, 1), "");
        Press("cmdCancel");
    });
    EXPECT_TRUE(Matrix().empty());
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Clear matrix");
}

TEST_F(MatrixTabs, TheWalkStandsOnItsCellOnEitherTab) {
    Start(kGrid);
    EditMatrix([&] {
        Click(3, 1, Qt::RightButton);
        Click(2, 2, Qt::RightButton);
        ClickTab(kValues);
        QDialog& matrix = *Form;
        const auto at = [&](const std::string& cell) {
            OnDialog([&matrix, this, cell] {
                const auto* sheet = matrix.findChild<QTableView*>("grdValues");
                EXPECT_EQ(std::to_string(sheet->currentIndex().row() + 1) + "," +
                              std::to_string(sheet->currentIndex().column() + 1),
                          cell);
                Press("cmdCancel");
            });
        };
        at("3,1");
        at("2,2");
        Press("cmdOK");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_THAT(Matrix(), Not(Contains("1|3|0|0|0")));
}

}  // namespace
}  // namespace quarnel02
