// The grid of tasks and resources.
#include <gmock/gmock.h>

#include <QHeaderView>
#include <QHelpEvent>

#include "editors/MatrixTest.h"

namespace quarnel02 {
namespace {

using test::kGrid;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class frmMatrix : public test::MatrixTest {};

TEST_F(frmMatrix, ChecksTheCellsWithAStoredTimeAboveZero) {
    Start(kGrid);
    EditMatrix([&] {
        EXPECT_TRUE(Form->isModal());
        EXPECT_EQ(Grid().model()->rowCount(), 3);
        EXPECT_EQ(Grid().model()->columnCount(), 2);
        EXPECT_THAT(Checked(), ElementsAre("1,1", "2,1", "3,2"));
        Press("cmdCancel");
    });
}

TEST_F(frmMatrix, PaintsTheCheckMarkIntoCheckedCellsOnly) {
    Start(kGrid);
    EditMatrix([&] {
        Grid().setCurrentIndex(Cell(3, 1));
        const auto cell = [&](int task, int resource) {
            const QRect inner = Grid().visualRect(Cell(task, resource)).adjusted(2, 2, -2, -2);
            return Grid().viewport()->grab(inner).toImage();
        };
        EXPECT_NE(cell(1, 1), cell(1, 2));
        EXPECT_EQ(cell(1, 1), cell(2, 1));
        EXPECT_EQ(cell(1, 2), cell(2, 2));
        EXPECT_FALSE(Part<QWidget>("imgCheck").size().isEmpty());
        Press("cmdCancel");
    });
}

TEST_F(frmMatrix, HeadingsNameTasksAndResources) {
    Start(kGrid);
    EditMatrix([&] {
        EXPECT_EQ(Heading(Qt::Vertical, 2, Qt::DisplayRole), "2  Beta");
        EXPECT_EQ(Heading(Qt::Vertical, 2, Qt::ToolTipRole), "Task 2: Beta");
        EXPECT_EQ(Heading(Qt::Horizontal, 2, Qt::DisplayRole), "2\nPrs");
        EXPECT_EQ(Heading(Qt::Horizontal, 2, Qt::ToolTipRole), "Resource 2: Prs: Press (FXD)");
        Press("cmdCancel");
    });
}

TEST_F(frmMatrix, AModelWithoutTasksAndResourcesShowsTenByEightCellsThatTakeNothing) {
    Start();
    EditMatrix([&] {
        EXPECT_EQ(Grid().model()->rowCount(), 10);
        EXPECT_EQ(Grid().model()->columnCount(), 8);
        Click(4, 5);
        EXPECT_EQ(Caption("lblInfo"), "The model has no task 4. Add it with View > Tasks.");
        Click(4, 5, Qt::RightButton);
        Key(Qt::Key_Return);
        Key(Qt::Key_Space);
        EXPECT_THAT(Checked(), IsEmpty());
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), IsEmpty());
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Task-resource matrix"));
}

TEST_F(frmMatrix, TasksWithoutResourcesAreShownAgainstEightColumns) {
    Start("INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta');");
    EditMatrix([&] {
        EXPECT_EQ(Grid().model()->rowCount(), 2);
        EXPECT_EQ(Grid().model()->columnCount(), 8);
        Click(1, 3);
        EXPECT_EQ(Caption("lblInfo"), "The model has no resource 3. Add it with View > Resources.");
        Press("cmdCancel");
    });
}

TEST_F(frmMatrix, AnOrphanedRowCanBeUnmarkedAndGoesWithOK) {
    Start("INSERT INTO Matrix VALUES (3, 2, 9, 1, 0);");
    EditMatrix([&] {
        EXPECT_THAT(Checked(), ElementsAre("2,3"));
        Click(2, 3, Qt::RightButton);
        EXPECT_THAT(Checked(), IsEmpty());
        Click(2, 3, Qt::RightButton);
        EXPECT_THAT(Checked(), IsEmpty());
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), IsEmpty());
}

TEST_F(frmMatrix, TheLineFollowsSelectionAndPointer) {
    Start(kGrid);
    EditMatrix([&] {
        EXPECT_EQ(Caption("lblInfo"), "Time: 11.5 sec   Tool #: 3   Tool Cost: $500");
        EXPECT_EQ(Caption("lblPair"), "Task 1: Alpha\nResource 1: Ben: Bench (MNL)");
        Key(Qt::Key_Right);
        EXPECT_EQ(Caption("lblInfo"), test::kNoRow);
        Key(Qt::Key_Down);
        EXPECT_EQ(Caption("lblInfo"), "Time: 0 sec   Tool #: 1   Tool Cost: $0");
        const QPoint place = Grid().visualRect(Cell(3, 2)).center();
        QHelpEvent rest(QEvent::ToolTip, place, Grid().viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(Grid().viewport(), &rest);
        EXPECT_EQ(Caption("lblInfo"), "Time: 23 sec   Tool #: 1   Tool Cost: $10");
        EXPECT_EQ(Current(), "2,2");
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(Grid().viewport(), &leave);
        EXPECT_EQ(Caption("lblInfo"), "Time: 0 sec   Tool #: 1   Tool Cost: $0");
        Press("cmdCancel");
    });
}

TEST_F(frmMatrix, ARightClickAndSpaceOnlyToggleTheMark) {
    Start(kGrid);
    EditMatrix([&] {
        Click(2, 1, Qt::RightButton);
        EXPECT_FALSE(IsChecked(2, 1));
        EXPECT_EQ(Current(), "2,1");
        Key(Qt::Key_Space);
        EXPECT_TRUE(IsChecked(2, 1));
        Key(Qt::Key_Space);
        EXPECT_FALSE(IsChecked(2, 1));
        EXPECT_EQ(Matrix().size(), 4U);
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix().size(), 4U);
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(frmMatrix, AClickIsPressedAndReleasedOnCells) {
    Start(kGrid);
    EditMatrix([&] {
        Grid().setMinimumHeight(400);
        QCoreApplication::processEvents();
        const QPoint cell = Grid().visualRect(Cell(2, 1)).center();
        const QPoint beside(cell.x(), Grid().viewport()->height() - 3);
        ASSERT_FALSE(Grid().indexAt(beside).isValid());
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            QTest::mouseRelease(Grid().viewport(), button, Qt::NoModifier, cell);
            QTest::mousePress(Grid().viewport(), button, Qt::NoModifier, beside);
            QTest::mouseRelease(Grid().viewport(), button, Qt::NoModifier, cell);
            QTest::mousePress(Grid().viewport(), button, Qt::NoModifier, cell);
            QTest::mouseRelease(Grid().viewport(), button, Qt::NoModifier, beside);
            QTest::mouseRelease(Grid().viewport(), button, Qt::NoModifier, cell);
        }
        EXPECT_TRUE(IsChecked(2, 1));
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(frmMatrix, HomeEndAndArrowsMoveAsInATable) {
    Start(kGrid);
    EditMatrix([&] {
        Key(Qt::Key_End);
        EXPECT_EQ(Current(), "1,2");
        Key(Qt::Key_Home);
        EXPECT_EQ(Current(), "1,1");
        Key(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(Current(), "3,2");
        Key(Qt::Key_PageUp);
        EXPECT_EQ(Current(), "1,2");
        Key(Qt::Key_PageDown);
        EXPECT_EQ(Current(), "3,2");
        Key(Qt::Key_Left);
        EXPECT_EQ(Current(), "3,1");
        Press("cmdCancel");
    });
}

TEST_F(frmMatrix, HandEditedNumbersLeaveTheirCellsWithoutATask) {
    Start(kGrid + std::string("UPDATE Tasks SET TaskId = 9 WHERE TaskId = 3;"));
    EditMatrix([&] {
        Click(3, 1);
        EXPECT_EQ(Caption("lblInfo"), "The model has no task 3. Add it with View > Tasks.");
        EXPECT_EQ(Heading(Qt::Vertical, 3, Qt::DisplayRole), "3  ");
        Press("cmdOK");
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_EQ(Matrix().size(), 3U);
}

TEST_F(frmMatrix, HeadingsStayInSightInALargeGrid) {
    std::string rows;
    for (int task = 1; task <= 50; ++task) {
        rows += "INSERT INTO Tasks VALUES (" + std::to_string(task) + ", 'Task');";
    }
    for (int resource = 1; resource <= 25; ++resource) {
        rows += "INSERT INTO Resources (ResourceId) VALUES (" + std::to_string(resource) + ");";
    }
    Start(rows);
    EditMatrix([&] {
        Answer("5", "1", "0");
        Click(50, 25);
        EXPECT_TRUE(IsChecked(50, 25));
        EXPECT_TRUE(Grid().viewport()->rect().contains(Grid().visualRect(Cell(50, 25)).center()));
        EXPECT_TRUE(Grid().verticalHeader()->isVisible());
        EXPECT_TRUE(Grid().horizontalHeader()->isVisible());
        EXPECT_EQ(Grid().verticalHeader()->x(), Grid().frameWidth());
        Press("cmdOK");
    });
    EXPECT_THAT(Matrix(), ElementsAre("25|50|5|1|0"));
}

}  // namespace
}  // namespace quarnel02
