// The figures of the matrix in a sheet: shown, typed, deleted, copied and pasted.
#include "editors/MatrixValuesTest.h"

#include <gmock/gmock.h>

#include <QHeaderView>

#include "widgets/SheetHeader.h"

namespace quarnel02 {
namespace {

using test::kGrid;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MatrixValuesTab : public test::MatrixValuesTest {};

TEST_F(MatrixValuesTab, ShowsTimeToolAndCostAsChosen) {
    Start(kGrid);
    EditValues([&] {
        EXPECT_EQ(Focus(), "grdValues");
        EXPECT_EQ(Text(1, 1), "11.5 | 3 | 500");
        EXPECT_EQ(Caption("lblUnits"), "time (s) | tool | tool cost ($)");
        Choose("optTime");
        EXPECT_EQ(Text(1, 1), "11.5");
        EXPECT_EQ(Caption("lblUnits"), "time (s)");
        Choose("optTool");
        EXPECT_EQ(Text(1, 1), "3");
        Choose("optToolCost");
        EXPECT_EQ(Text(1, 1), "500");
        EXPECT_EQ(Text(1, 2), "");
        EXPECT_EQ(Focus(), "grdValues");
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, TypingIntoAnEmptyCellMakesThePairAtEnter) {
    Start(kGrid);
    EditValues([&] {
        Go(1, 2);
        TypeCell("7.5");
        EXPECT_EQ(Matrix().size(), 4U);
        Key(Qt::Key_Return);
        EXPECT_EQ(Matrix().back(), "2|1|7.5|0|0");
        EXPECT_EQ(Matrix().size(), 5U);
        EXPECT_EQ(Text(1, 2), "7.5 | 0 | 0");
        EXPECT_EQ(CurrentValue(), "2,2");
        ClickTab(kMarks);
        EXPECT_TRUE(IsChecked(1, 2));
        Press("cmdCancel");
    });
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Edit Prs, task 1");
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(MatrixValuesTab, PartsThatAreNotTypedStay) {
    Start(kGrid);
    EditValues([&] {
        TypeCell("8||50");
        Key(Qt::Key_Return);
        EXPECT_EQ(Matrix()[0], "1|1|8|3|50");
        TypeCell("|9");
        Key(Qt::Key_Tab);
        EXPECT_EQ(Matrix()[1], "1|2|12|9|0");
        EXPECT_EQ(CurrentValue(), "2,2");
        Choose("optToolCost");
        Go(1, 1);
        TypeCell("77");
        Key(Qt::Key_Down);
        EXPECT_EQ(Matrix()[0], "1|1|8|3|77");
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, EscapeTakesTheCellBackFirstAndClosesSecond) {
    Start(kGrid);
    EditValues([&] {
        TypeCell("8");
        Key(Qt::Key_Escape);
        EXPECT_TRUE(Form->isVisible());
        EXPECT_EQ(Text(1, 1), "11.5 | 3 | 500");
        Key(Qt::Key_Escape);
        EXPECT_FALSE(Form->isVisible());
    });
    EXPECT_EQ(Matrix()[0], "1|1|11.5|3|500");
}

TEST_F(MatrixValuesTab, EscapeTakesTheCellBackFirstFromWhereverTheFocusIs) {
    Start(kGrid);
    EditValues([&] {
        Go(1, 1);
        TypeCell("nonsense");
        Part<QPushButton>("cmdOK").setFocus();
        Key(Qt::Key_Escape);
        EXPECT_TRUE(Form->isVisible());
        EXPECT_EQ(Text(1, 1), "11.5 | 3 | 500");
        Key(Qt::Key_Escape);
        EXPECT_FALSE(Form->isVisible());
    });
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(MatrixValuesTab, DeleteRemovesPairsAndTheirMarks) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 2, Qt::RightButton);
        ClickTab(kValues);
        EXPECT_EQ(Look(1, 2), PairLook::Marked);
        Go(1, 1);
        Extend(0, 1);
        EXPECT_EQ(Matrix().size(), 4U);
        Key(Qt::Key_Delete);
        EXPECT_THAT(Matrix(), ElementsAre("1|2|12|1|0", "2|2|0|1|0", "2|3|23|1|10"));
        EXPECT_EQ(Look(1, 1), PairLook::Empty);
        EXPECT_EQ(Look(1, 2), PairLook::Empty);
        ClickTab(kMarks);
        EXPECT_THAT(Checked(), ElementsAre("2,1", "3,2"));
        Press("cmdCancel");
    });
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Clear 1 cell");
}

TEST_F(MatrixValuesTab, EmptyMarkedCannotAndLeavingPairsLookDifferent) {
    Start(kGrid);
    EditMatrix([&] {
        Click(1, 2, Qt::RightButton);
        Click(3, 2, Qt::RightButton);
        ClickTab(kValues);
        Choose("optTime");
        Go(2, 1);
        EXPECT_EQ(Look(1, 1), PairLook::Can);
        EXPECT_EQ(Look(3, 1), PairLook::Empty);
        EXPECT_EQ(Look(1, 2), PairLook::Marked);
        EXPECT_EQ(Look(2, 2), PairLook::Cannot);
        EXPECT_EQ(Look(3, 2), PairLook::Leaving);
        const auto picture = [&](int task, int resource) {
            const QRect whole = Sheet().visualRect(At(task, resource));
            return Sheet()
                .viewport()
                ->grab(QRect(whole.left() + 1, whole.top() + 1, whole.height(), whole.height() - 3))
                .toImage();
        };
        const std::array pictures = {picture(1, 1), picture(3, 1), picture(1, 2), picture(2, 2),
                                     picture(3, 2)};
        for (std::size_t one = 0; one < pictures.size(); ++one) {
            for (std::size_t other = 0; other < one; ++other) {
                EXPECT_NE(pictures.at(one), pictures.at(other)) << one << " and " << other;
            }
        }
        EXPECT_TRUE(Part<QWidget>("legend").isVisible());
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, HeadingsOfTheCurrentCellAreLitAndSayTheWholeName) {
    const std::string name = "Mount the impeller with the long wrench and check its play twice";
    Start(kGrid + ("UPDATE Tasks SET Description = '" + name + "' WHERE TaskId = 2;") +
          "UPDATE Resources SET ShortName = 'A press that has a very long name indeed' "
          "WHERE ResourceId = 2;");
    EditValues([&] {
        Go(2, 2);
        auto& rows = *qobject_cast<SheetHeader*>(Sheet().verticalHeader());
        auto& columns = *qobject_cast<SheetHeader*>(Sheet().horizontalHeader());
        EXPECT_EQ(rows.Lit(), 1);
        EXPECT_EQ(columns.Lit(), 1);
        const auto heading = [&](Qt::Orientation orientation, int role) {
            return Sheet().model()->headerData(1, orientation, role).toString().toStdString();
        };
        EXPECT_EQ(heading(Qt::Vertical, Qt::ToolTipRole), "Task 2: " + name);
        EXPECT_EQ(heading(Qt::Horizontal, Qt::ToolTipRole),
                  "Resource 2: A press that has a very long name indeed: Press (FXD)");
        EXPECT_LT(rows.width(), rows.fontMetrics().horizontalAdvance(QString::fromStdString(name)));
        EXPECT_LT(columns.sectionSize(1), 40 * columns.fontMetrics().averageCharWidth());
        EXPECT_THAT(Caption("lblCell"), HasSubstr("\u2026"));
        EXPECT_EQ(Part<QLabel>("lblCell").toolTip().toStdString(),
                  "2 " + name + " \u00D7 2 A press that has a very long name indeed");
        Press("cmdCancel");
    });
}

/// Dots stand low: above them nothing is painted at the end of a name that is cut off.
TEST_F(MatrixValuesTab, HeadingsThatAreTooLongEndInDots) {
    Start(kGrid + ("UPDATE Tasks SET Description = '" + std::string(80, 'M') + "';"));
    EditValues([&] {
        const auto& rows = *Sheet().verticalHeader();
        const int dots = rows.fontMetrics().horizontalAdvance(QChar(0x2026)) - 2;
        const auto blank = [&](int section) {
            const QRect end(rows.width() - dots - rows.fontMetrics().averageCharWidth(),
                            rows.sectionViewportPosition(section) + 3, dots,
                            rows.sectionSize(section) / 2 - 3);
            const QImage image = rows.viewport()->grab(end).toImage();
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 1; x < image.width(); ++x) {
                    if (image.pixel(x, y) != image.pixel(0, y)) {
                        return false;
                    }
                }
            }
            return image.height() > 2;
        };
        Go(1, 1);
        EXPECT_LT(rows.width(),
                  rows.fontMetrics().horizontalAdvance(QString(80, QLatin1Char('M'))));
        EXPECT_TRUE(blank(0));
        EXPECT_TRUE(blank(1));
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, ColumnsCanBeWidenedAndStaySoWhenSomethingIsStored) {
    Start(kGrid);
    EditValues([&] {
        QWidget& header = *Sheet().horizontalHeader()->viewport();
        const int before = Sheet().columnWidth(0);
        const QPoint edge(before - 1, header.height() / 2);
        QTest::mouseMove(&header, edge);
        QTest::mousePress(&header, Qt::LeftButton, Qt::NoModifier, edge);
        QTest::mouseMove(&header, edge + QPoint(30, 0));
        QTest::mouseRelease(&header, Qt::LeftButton, Qt::NoModifier, edge + QPoint(30, 0));
        EXPECT_EQ(Sheet().columnWidth(0), before + 30);
        Go(1, 2);
        TypeCell("5");
        Key(Qt::Key_Return);
        EXPECT_EQ(Matrix().size(), 5U);
        EXPECT_EQ(Sheet().columnWidth(0), before + 30);
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, ColumnsGrowForWhatIsPastedOrTypedButNotWhereTheUserHasSetThem) {
    Start(kGrid);
    EditValues([&] {
        Choose("optAllThree");
        const int narrow = 60;
        Sheet().setColumnWidth(1, narrow);
        const int before = Sheet().columnWidth(0);
        const std::string wide = "123456.5|123|1234567.25";
        Go(1, 1);
        SetClipboard(wide + "\t" + wide + "\n");
        Ctrl(Qt::Key_V);
        ASSERT_EQ(Text(1, 1), "123456.5 | 123 | 1234567.25");
        const auto needs = [&](int resource) {
            return Sheet().fontMetrics().horizontalAdvance(
                QString::fromStdString(Text(1, resource)));
        };
        EXPECT_GT(needs(1), before);
        EXPECT_GE(Sheet().columnWidth(0), needs(1));
        EXPECT_EQ(Sheet().columnWidth(1), narrow);
        Go(3, 1);
        TypeCell("123456.75|123|12345678.25");
        Key(Qt::Key_Return);
        EXPECT_GE(Sheet().columnWidth(0),
                  Sheet().fontMetrics().horizontalAdvance(QString::fromStdString(Text(3, 1))));
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, PastesABlockInOneStepThatCanBeTakenBack) {
    Start(kGrid);
    const std::vector<std::string> before = Matrix();
    EditValues([&] {
        SetClipboard("1,5\t\"2\"\r\n3\t\r\n4,25\t5\r\n");
        Choose("optTime");
        Ctrl(Qt::Key_V);
        EXPECT_THAT(Matrix(), ElementsAre("1|1|1.5|3|500", "1|2|3|1|0", "2|3|5|1|10", "2|1|2|0|0",
                                          "1|3|4.25|0|0"));
        EXPECT_EQ(Text(3, 1), "4.25");
        EXPECT_EQ(Caption("lblSum"), "5 cells: 15.75 s in all, mean 3.15");
        Ctrl(Qt::Key_Z);
        EXPECT_EQ(Matrix(), before);
        EXPECT_EQ(Text(3, 1), "");
        Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(Text(3, 1), "4.25");
        Press("cmdCancel");
    });
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Paste 6 cells");
}

TEST_F(MatrixValuesTab, ABlockThatFailsInItsLastCellChangesNothingAndNamesIt) {
    Start(kGrid);
    const std::vector<std::string> before = Matrix();
    EditValues([&] {
        SetClipboard("1\t2\n3\t4\n5\tsix\n");
        Dialogs.Press(QMessageBox::Ok);
        Ctrl(Qt::Key_V);
        EXPECT_EQ(Text(1, 1), "11.5 | 3 | 500");
        Press("cmdCancel");
    });
    EXPECT_EQ(Matrix(), before);
    EXPECT_FALSE(Item("mnuEditUndo").isEnabled());
    ASSERT_EQ(Dialogs.Seen.size(), 2U);
    EXPECT_THAT(Dialogs.Seen[1], HasSubstr("critical: Nothing was pasted.\nTask 3 (Gamma), "
                                           "resource 2 (Prs): "));
    EXPECT_THAT(Dialogs.Seen[1], HasSubstr("\"six\""));
}

TEST_F(MatrixValuesTab, ALargerBlockOffersToAddWhatIsMissing) {
    Start(kGrid);
    EditValues([&] {
        SetClipboard("1\t2\t3\n4\t5\t6\n");
        Go(3, 2);
        Dialogs.Press(QMessageBox::No);
        Ctrl(Qt::Key_V);
        EXPECT_EQ(Tasks().size(), 3U);
        EXPECT_EQ(Matrix().size(), 4U);
        Dialogs.Press(QMessageBox::Yes);
        Ctrl(Qt::Key_V);
        EXPECT_EQ(Tasks().size(), 4U);
        EXPECT_EQ(Resources().size(), 4U);
        EXPECT_EQ(Text(4, 4), "6 | 0 | 0");
        ClickTab(kMarks);
        EXPECT_EQ(Grid().model()->rowCount(), 4);
        EXPECT_TRUE(IsChecked(4, 4));
        Press("cmdCancel");
    });
    EXPECT_EQ(Dialogs.Seen.at(1),
              "question: The block is larger than the sheet: add 1 task and 2 resources?");
    EXPECT_EQ(Box("txtTasks").text(), "4");
    EXPECT_EQ(Box("txtResources").text(), "4");
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Tasks().size(), 3U);
    EXPECT_EQ(Box("txtResources").text(), "2");
}

TEST_F(MatrixValuesTab, AnEmptyModelTakesABlockWholeButNoTypedFigure) {
    Start();
    EditValues([&] {
        Go(2, 3);
        EXPECT_EQ(Look(2, 3), PairLook::Absent);
        EXPECT_EQ(Caption("lblUnits"), "The model has no task 2. Add it with View > Tasks.");
        TypeCell("5");
        Dialogs.Press(QMessageBox::Ok);
        Key(Qt::Key_Return);
        EXPECT_THAT(Tasks(), IsEmpty());
        BringToFront();
        Key(Qt::Key_Escape);
        Go(1, 1);
        SetClipboard("1\t2\n3\t4\n");
        Dialogs.Press(QMessageBox::Yes);
        Ctrl(Qt::Key_V);
        EXPECT_EQ(Sheet().model()->rowCount(), 2);
        EXPECT_EQ(Sheet().model()->columnCount(), 2);
        Press("cmdOK");
    });
    EXPECT_EQ(Dialogs.Seen.at(1),
              "critical: Task 2, resource 3: the model has no such task or resource.");
    EXPECT_EQ(Dialogs.Seen.at(2),
              "question: The block is larger than the sheet: add 2 tasks and 2 resources?");
    EXPECT_THAT(Matrix(), ElementsAre("1|1|1|0|0", "2|1|2|0|0", "1|2|3|0|0", "2|2|4|0|0"));
}

TEST_F(MatrixValuesTab, CopiesCutsAndFillsBlocks) {
    Start(kGrid);
    EditValues([&] {
        Extend(1, 1);
        Ctrl(Qt::Key_C);
        EXPECT_EQ(Clipboard(), "11.5 | 3 | 500\t\n12 | 1 | 0\t0 | 1 | 0\n");
        EXPECT_EQ(Matrix().size(), 4U);
        Go(1, 1);
        Extend(2, 0);
        Ctrl(Qt::Key_D);
        EXPECT_EQ(Text(3, 1), "11.5 | 3 | 500");
        Ctrl(Qt::Key_R);
        EXPECT_EQ(Text(3, 2), "23 | 1 | 10");
        Go(2, 1);
        Extend(0, 1);
        Ctrl(Qt::Key_R);
        EXPECT_EQ(Text(2, 2), "11.5 | 3 | 500");
        Go(3, 2);
        Ctrl(Qt::Key_X);
        EXPECT_EQ(Clipboard(), "23 | 1 | 10\n");
        EXPECT_EQ(Text(3, 2), "");
        EXPECT_EQ(Matrix().size(), 4U);
        Press("cmdCancel");
    });
    EXPECT_EQ(Item("mnuEditUndo").text().toStdString(), "&Undo Cut 1 cell");
}

TEST_F(MatrixValuesTab, TheSumSpeaksOfTheTimesThatAreSelected) {
    Start(kGrid);
    EditValues([&] {
        EXPECT_EQ(Caption("lblSum"), "");
        Extend(2, 1);
        EXPECT_EQ(Caption("lblSum"), "3 cells: 46.5 s in all, mean 15.5");
        EXPECT_EQ(Caption("lblCell"), "3 Gamma \u00D7 2 Prs");
        Press("cmdCancel");
    });
}

TEST_F(MatrixValuesTab, ATextThatDoesNotFitKeepsItsCellHoweverItIsLeft) {
    Start(kGrid);
    EditValues([&] {
        TypeCell("-5");
        Dialogs.Press(QMessageBox::Ok);
        Key(Qt::Key_Return);
        EXPECT_EQ(Selected(), "-5");
        Part<QTabBar>("tabMatrix").setFocusPolicy(Qt::NoFocus);
        Dialogs.Press(QMessageBox::Ok);
        Part<QTabBar>("tabMatrix").setCurrentIndex(kMarks);
        EXPECT_EQ(Part<QTabBar>("tabMatrix").currentIndex(), kValues);
        EXPECT_TRUE(Sheet().isVisible());
        EXPECT_EQ(Selected(), "-5");
        Dialogs.Press(QMessageBox::Ok);
        Command("cmdOK").click();
        EXPECT_TRUE(Form->isVisible());
        Dialogs.Press(QMessageBox::Ok);
        Command("cmdCancel").click();
        EXPECT_TRUE(Form->isVisible());
        TypeCell("5");
        Key(Qt::Key_Return);
        EXPECT_EQ(Matrix()[0], "1|1|5|3|500");
        Press("cmdCancel");
    });
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_EQ(Dialogs.Seen.size(), 5U);
    EXPECT_EQ(Dialogs.Seen[1],
              "critical: Task 1 (Alpha), resource 1 (Ben): task time is -5 s; it must be at "
              "least 0.");
}

TEST_F(MatrixValuesTab, BothTabsHaveTheSameCurrentCell) {
    Start(kGrid);
    EditMatrix([&] {
        Key(Qt::Key_Down);
        Key(Qt::Key_Right);
        ClickTab(kValues);
        EXPECT_EQ(CurrentValue(), "2,2");
        Key(Qt::Key_Down);
        ClickTab(kMarks);
        EXPECT_EQ(Current(), "3,2");
        EXPECT_EQ(Focus(), "picMatrix");
        EXPECT_EQ(Caption("lblInfo"), "Time: 23 sec   Tool #: 1   Tool Cost: $10");
        Press("cmdCancel");
    });
}

}  // namespace
}  // namespace quarnel02
