// The matrix form and the cell editor.
#include <gmock/gmock.h>

#include <QHeaderView>
#include <QHelpEvent>
#include <QTableView>

#include "editors/EditorTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr const char* kDashes = "Time: -- sec   Tool #: ---   Tool Cost: $----";

/// Three tasks, two resources; of the five stored pairs one has the time 0.
constexpr const char* kGrid =
    "UPDATE Gen SET Tasks = 3, Resources = 2;"
    "INSERT INTO Tasks VALUES (1, 'Alpha'), (2, 'Beta'), (3, 'Gamma');"
    "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 0, 0, 100, 1, 1, 1),"
    " (2, 'Prs', 'Press', 1, 0, 0, 100, 1, 1, 1);"
    "INSERT INTO Matrix VALUES (1, 1, 11.5, 3, 500), (1, 2, 12, 1, 0), (2, 2, 0, 1, 0),"
    " (2, 3, 23, 1, 10);";

class frmMatrix : public test::EditorTest {
  protected:
    QTableView& Grid() const { return Part<QTableView>("picMatrix"); }
    QModelIndex Cell(int task, int resource) const {
        return Grid().model()->index(task - 1, resource - 1);
    }
    bool IsChecked(int task, int resource) const {
        return Cell(task, resource).data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked;
    }
    /// "task,resource" of every checked cell.
    std::vector<std::string> Checked() const {
        std::vector<std::string> cells;
        for (int task = 1; task <= Grid().model()->rowCount(); ++task) {
            for (int resource = 1; resource <= Grid().model()->columnCount(); ++resource) {
                if (IsChecked(task, resource)) {
                    cells.push_back(std::to_string(task) + "," + std::to_string(resource));
                }
            }
        }
        return cells;
    }
    void Click(int task, int resource, Qt::MouseButton button = Qt::LeftButton) const {
        Grid().scrollTo(Cell(task, resource));
        QTest::mouseClick(Grid().viewport(), button, Qt::NoModifier,
                          Grid().visualRect(Cell(task, resource)).center());
    }
    /// Fills the cell editor, which the next step opens, and presses its OK.
    void Answer(const std::string& time, const std::string& tool, const std::string& cost) {
        OnDialog([=, this] {
            Put("txtTaskInfo_0", time);
            Put("txtTaskInfo_1", tool);
            Put("txtTaskInfo_2", cost);
            Press("cmdOK");
        });
    }
    std::string Heading(Qt::Orientation orientation, int number, int role) const {
        return Grid().model()->headerData(number - 1, orientation, role).toString().toStdString();
    }
    std::string Current() const {
        return std::to_string(Grid().currentIndex().row() + 1) + "," +
               std::to_string(Grid().currentIndex().column() + 1);
    }
};

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
        EXPECT_EQ(Caption("lblInfo"), kDashes);
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

TEST_F(frmMatrix, ALeftClickOpensTheCellEditorForThePair) {
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

TEST_F(frmMatrix, StoringATimeChecksTheCellAndWritesAtOnce) {
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

TEST_F(frmMatrix, StoringOverAPairEditsItsRow) {
    Start(kGrid);
    EditMatrix([&] {
        Answer("0", "4", "40");
        Click(1, 1);
        EXPECT_FALSE(IsChecked(1, 1));
        Press("cmdCancel");
    });
    EXPECT_THAT(Matrix(), ElementsAre("1|1|0|4|40", "1|2|12|1|0", "2|2|0|1|0", "2|3|23|1|10"));
}

class EmptyBox : public frmMatrix, public ::testing::WithParamInterface<const char*> {};

TEST_P(EmptyBox, MeansThatNothingIsStored) {
    Start(kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            for (const char* box : {"txtTaskInfo_0", "txtTaskInfo_1", "txtTaskInfo_2"}) {
                Put(box, std::string(GetParam()) == box ? "" : "5");
            }
            Press("cmdOK");
        });
        Click(1, 2);
        EXPECT_FALSE(IsChecked(1, 2));
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix().size(), 4U);
    EXPECT_TRUE(Dialogs.AllGiven());
}

INSTANTIATE_TEST_SUITE_P(All, EmptyBox,
                         ::testing::Values("txtTaskInfo_0", "txtTaskInfo_1", "txtTaskInfo_2"),
                         [](const auto& each) { return std::string(each.param); });

TEST_F(frmMatrix, ATextThatIsNoNumberIsRefusedAndCanBeMended) {
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

TEST_F(frmMatrix, EnterGoesThroughTheCellEditorAndStores) {
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

TEST_F(frmMatrix, CommittingDeletesTheRowsOfUncheckedPairsAndRebuildsTheArcs) {
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
    EXPECT_FALSE(Window->Changed);
}

TEST_F(frmMatrix, CancellingKeepsWhatTheCellEditorStoredAndDeletesNothing) {
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

TEST_F(frmMatrix, CommittingAsksForMarkedPairsByResourceThenTask) {
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

TEST_F(frmMatrix, APairLeftOpenWhileCommittingStaysWithoutARowAndTheWalkGoesOn) {
    Start(kGrid);
    EditMatrix([&] {
        Click(3, 1, Qt::RightButton);
        Click(1, 2, Qt::RightButton);
        Click(2, 2, Qt::RightButton);
        OnDialog([&] { Key(Qt::Key_Escape); });
        OnDialog([&] {
            Put("txtTaskInfo_0", "5");
            Press("cmdOK");
        });
        Answer("22", "1", "2");
        Press("cmdOK");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11.5|3|500", "1|2|12|1|0", "2|2|22|1|2", "2|3|23|1|10"));
}

TEST_F(frmMatrix, ClearAsksAndOnNoChangesNothing) {
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

TEST_F(frmMatrix, ClearOnYesDeletesEveryRowAndMark) {
    Start(kGrid + std::string("INSERT INTO Matrix VALUES (9, 9, 9, 9, 9);"));
    EditMatrix([&] {
        Click(1, 2, Qt::RightButton);
        Dialogs.Press(QMessageBox::Yes);
        Press("cmdClear");
        EXPECT_THAT(Checked(), IsEmpty());
        EXPECT_EQ(Caption("lblInfo"), kDashes);
        Press("cmdCancel");
    });
    EXPECT_THAT(Matrix(), IsEmpty());
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
