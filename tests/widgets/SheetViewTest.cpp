// The sheet by its keys, on a sheet of the test's own.
#include "widgets/SheetView.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QToolTip>

#include "app/Answers.h"
#include "basic/RunTimeError.h"
#include "widgets/SheetHeader.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Cells that take every text but "bad"; rows can be added.
class PlainSheet : public SheetModel {
  public:
    explicit PlainSheet(TextBlock cells) : Cells(std::move(cells)) { Update(); }

    [[nodiscard]] TextBlock CopyBlock(const CellRange& range) const override {
        TextBlock block;
        for (std::size_t row = range.Row; row < range.Row + range.Rows; ++row) {
            block.emplace_back();
            for (std::size_t column = range.Column; column < range.Column + range.Columns;
                 ++column) {
                block.back().push_back(Cells.at(row).at(column));
            }
        }
        return block;
    }

    [[nodiscard]] std::string MissingFor(const BlockEdit& edit) const override {
        const std::size_t end = edit.Row + edit.Block.size();
        return end > Cells.size() ? std::to_string(end - Cells.size()) + " rows" : "";
    }

    Misfits SetBlock(const BlockEdit& edit) override {
        if (Locked) {
            throw RunTimeError(ErrorKind::DatabaseLocked, "The model is in use.");
        }
        TextBlock cells = Cells;
        Misfits refused;
        for (std::size_t row = 0; row < edit.Block.size(); ++row) {
            cells.resize(std::max(cells.size(), edit.Row + row + 1),
                         std::vector<std::string>(Cells.front().size()));
            for (std::size_t column = 0; column < edit.Block[row].size(); ++column) {
                const std::string& text = edit.Block[row][column];
                if (text == "bad") {
                    refused.Add({row, column,
                                 "Row " + std::to_string(edit.Row + row + 1) + ", column " +
                                     std::to_string(edit.Column + column + 1) + ": this is bad."});
                }
                cells[edit.Row + row].at(edit.Column + column) = text;
            }
        }
        if (refused.IsEmpty()) {
            Cells = cells;
            Verbs.emplace_back(edit.Verb);
            Update();
        }
        return refused;
    }

    Misfits ClearBlock(std::string_view verb, const CellRange& range) override {
        const TextBlock empty(range.Rows, std::vector<std::string>(range.Columns));
        return SetBlock({verb, range.Row, range.Column, empty});
    }

    TextBlock Cells;
    std::vector<std::string> Verbs;  ///< of the stores
    bool Locked = false;

  protected:
    [[nodiscard]] QString Text(int row, int column) const override {
        return QString::fromStdString(
            Cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)));
    }
    [[nodiscard]] QString Heading(int section, Qt::Orientation orientation) const override {
        return orientation == Qt::Vertical ? QStringLiteral("row %1").arg(section + 1)
                                           : QStringLiteral("A long heading %1").arg(section + 1);
    }

  private:
    void Update() { Show(static_cast<int>(Cells.size()), static_cast<int>(Cells.front().size())); }
};

/// Counts the presses of Escape that nobody else wanted.
class EscapeCounter : public QWidget {
  public:
    int Escapes = 0;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        Escapes += event->key() == Qt::Key_Escape ? 1 : 0;
    }
};

class Sheet : public ::testing::Test {
  protected:
    Sheet() {
        auto* side = new QHBoxLayout(&Window);
        side->addWidget(&Before);
        side->addWidget(&View);
        side->addWidget(&After);
        View.SetSheet(Model);
        View.FitColumns();
        Window.resize(700, 300);
        Window.show();
        Window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Window));
        View.setFocus();
        At(0, 0);
        QGuiApplication::clipboard()->clear();
    }

    void At(int row, int column) {
        QTest::mouseClick(View.viewport(), Qt::LeftButton, {},
                          View.visualRect(Model.index(row, column)).center());
    }
    void Select(int row, int column, int to_row, int to_column) {
        At(row, column);
        for (; row < to_row; ++row) {
            Key(Qt::Key_Down, Qt::ShiftModifier);
        }
        for (; column < to_column; ++column) {
            Key(Qt::Key_Right, Qt::ShiftModifier);
        }
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(Window.focusWidget(), key, modifiers);
    }
    void Keys(const char* text) {
        for (const char* letter = text; *letter != 0; ++letter) {
            QTest::keyClick(Window.focusWidget(), *letter);
        }
    }
    static void Clip(const std::string& text) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    }
    static std::string Clipped() { return QGuiApplication::clipboard()->text().toStdString(); }
    [[nodiscard]] std::string Place() const {
        return std::to_string(View.currentIndex().row()) + "," +
               std::to_string(View.currentIndex().column());
    }
    [[nodiscard]] QLineEdit* Editor() const {
        return qobject_cast<QLineEdit*>(Window.focusWidget());
    }

    EscapeCounter Window;
    QLineEdit Before;
    PlainSheet Model{{{"a", "b", "c"}, {"d", "e", "f"}, {"g", "h", "i"}, {"j", "k", "l"}}};
    SheetView View;
    QLineEdit After;
    test::Answers Dialogs;
};

TEST_F(Sheet, TypingReplacesTheTextAndEnterStoresItAndGoesDown) {
    Keys("Zed");
    EXPECT_TRUE(View.IsEditing());
    EXPECT_EQ(Model.Cells[0][0], "a");
    EXPECT_EQ(Place(), "0,0");
    Key(Qt::Key_Return);
    EXPECT_FALSE(View.IsEditing());
    EXPECT_EQ(Model.Cells[0][0], "Zed");
    EXPECT_EQ(Place(), "1,0");
    EXPECT_EQ(Window.focusWidget(), &View);
    EXPECT_THAT(Model.Verbs, ElementsAre("Edit"));
}

TEST_F(Sheet, F2EditsWhatStandsThere) {
    Key(Qt::Key_F2);
    ASSERT_TRUE(View.IsEditing());
    EXPECT_EQ(Editor()->text(), "a");
    Key(Qt::Key_End);
    Keys("bc");
    EXPECT_EQ(Model.Cells[0][0], "a");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Model.Cells[0][0], "abc");
    EXPECT_EQ(Place(), "0,1");
}

TEST_F(Sheet, EnterBehindARunOfTabsGoesBackToWhereItBegan) {
    At(0, 1);
    Keys("1");
    Key(Qt::Key_Tab);
    Keys("2");
    Key(Qt::Key_Return);
    EXPECT_EQ(Place(), "1,1");
    Key(Qt::Key_Return);
    EXPECT_EQ(Place(), "2,1");
    EXPECT_THAT(Model.Cells[0], ElementsAre("a", "1", "2"));
}

TEST_F(Sheet, TabGoesOnBehindTheLastColumnAndShiftGoesBack) {
    At(0, 2);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Place(), "1,0");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Place(), "0,2");
    At(3, 2);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Place(), "3,2");
    Key(Qt::Key_Return);
    EXPECT_EQ(Place(), "3,2");
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Place(), "2,2");
}

TEST_F(Sheet, ArrowsUpAndDownStoreWhatIsBeingTyped) {
    At(1, 0);
    Keys("x");
    Key(Qt::Key_Up);
    Keys("y");
    Key(Qt::Key_Down);
    EXPECT_EQ(Place(), "1,0");
    EXPECT_EQ(Model.Cells[0][0] + Model.Cells[1][0], "yx");
}

TEST_F(Sheet, EscapeTakesTheCellBackAndOnlyThenReachesTheWindow) {
    Keys("Zed");
    Key(Qt::Key_Escape);
    EXPECT_FALSE(View.IsEditing());
    EXPECT_EQ(Model.Cells[0][0], "a");
    EXPECT_THAT(Model.Verbs, IsEmpty());
    EXPECT_THAT(Window.Escapes, 0);
    Key(Qt::Key_Escape);
    EXPECT_THAT(Window.Escapes, 1);
    EXPECT_FALSE(View.IsEditing());
}

TEST_F(Sheet, AnUnchangedTextIsNotStored) {
    Key(Qt::Key_F2);
    Key(Qt::Key_Return);
    EXPECT_THAT(Model.Verbs, IsEmpty());
    EXPECT_EQ(Place(), "1,0");
}

TEST_F(Sheet, ATextThatDoesNotFitStaysInItsEditorWithAMessage) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down}) {
        Keys("bad");
        Dialogs.Press(QMessageBox::Ok);
        Key(key);
        EXPECT_EQ(Dialogs.Seen.back(), "critical: Row 1, column 1: this is bad.");
        ASSERT_TRUE(View.IsEditing());
        EXPECT_EQ(Editor()->selectedText(), "bad");
        EXPECT_EQ(Place(), "0,0");
        EXPECT_EQ(Model.Cells[0][0], "a");
    }
    Key(Qt::Key_Escape);
    EXPECT_FALSE(View.IsEditing());
    EXPECT_EQ(Dialogs.Seen.size(), 3U);
}

TEST_F(Sheet, LeavingItStoresTheTextOrLeavesItInItsEditor) {
    Keys("fine");
    After.setFocus();
    EXPECT_EQ(Model.Cells[0][0], "fine");
    EXPECT_FALSE(View.IsEditing());
    EXPECT_EQ(Window.focusWidget(), &After);
    View.setFocus();
    Keys("bad");
    After.setFocus();
    ASSERT_TRUE(View.IsEditing());
    EXPECT_EQ(Window.focusWidget(), &After);
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
    Dialogs.Press(QMessageBox::Ok);
    EXPECT_FALSE(View.FinishEditing());
    EXPECT_EQ(Editor()->selectedText(), "bad");
    Dialogs.Press(QMessageBox::Ok);
    QTest::mouseClick(View.viewport(), Qt::LeftButton, {},
                      View.visualRect(Model.index(2, 2)).center());
    EXPECT_TRUE(View.IsEditing());
    EXPECT_EQ(Place(), "0,0");
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
}

TEST_F(Sheet, AStoreThatFailsKeepsTheText) {
    Model.Locked = true;
    Keys("x");
    Dialogs.Press(QMessageBox::Ok);
    Key(Qt::Key_Return);
    EXPECT_THAT(Dialogs.Seen, ElementsAre("critical: The model is in use."));
    EXPECT_TRUE(View.IsEditing());
    Model.Locked = false;
    Key(Qt::Key_Return);
    EXPECT_EQ(Model.Cells[0][0], "x");
}

TEST_F(Sheet, BlocksGoThroughTheClipboardAsTabbedText) {
    Model.Cells[0] = {"a \"b\"\tc", "two\nlines", ""};
    Select(0, 0, 1, 2);
    Key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipped().substr(0, 28), "\"a \"\"b\"\"\tc\"\t\"two\nlines\"\t\nd\te");
    At(2, 0);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Model.Cells[2], Model.Cells[0]);
    EXPECT_THAT(Model.Cells[3], ElementsAre("d", "e", "f"));
    EXPECT_THAT(Model.Verbs, ElementsAre("Paste"));
    const CellRange pasted = View.SelectedBlock();
    EXPECT_EQ(pasted.Row, 2U);
    EXPECT_EQ(pasted.Rows, 2U);
    EXPECT_EQ(pasted.Columns, 3U);
}

TEST_F(Sheet, OneCellIsPastedOverTheWholeSelection) {
    Clip("7\r\n");
    Select(1, 1, 3, 2);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Model.Cells,
              (TextBlock{{"a", "b", "c"}, {"d", "7", "7"}, {"g", "7", "7"}, {"j", "7", "7"}}));
}

TEST_F(Sheet, CutCopiesAndClears) {
    Select(0, 0, 0, 1);
    Key(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(ReadTabbed(Clipped()), (TextBlock{{"a", "b"}}));
    EXPECT_THAT(Model.Cells[0], ElementsAre("", "", "c"));
    EXPECT_THAT(Model.Verbs, ElementsAre("Cut"));
}

TEST_F(Sheet, DeleteClearsTheSelectionWithoutEditing) {
    Select(1, 0, 2, 0);
    Key(Qt::Key_Delete);
    EXPECT_FALSE(View.IsEditing());
    EXPECT_EQ(Model.Cells[1][0] + Model.Cells[2][0] + Model.Cells[3][0], "j");
    EXPECT_THAT(Model.Verbs, ElementsAre("Clear"));
}

TEST_F(Sheet, FillsDownAndRight) {
    Select(0, 0, 2, 1);
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Model.Cells,
              (TextBlock{{"a", "b", "c"}, {"a", "b", "f"}, {"a", "b", "i"}, {"j", "k", "l"}}));
    Select(2, 1, 3, 2);
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(Model.Cells,
              (TextBlock{{"a", "b", "c"}, {"a", "b", "f"}, {"a", "b", "b"}, {"j", "k", "k"}}));
    EXPECT_THAT(Model.Verbs, ElementsAre("Fill", "Fill"));
}

TEST_F(Sheet, ASingleCellIsFilledFromAboveOrFromTheLeft) {
    At(3, 2);
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(Model.Cells[3][2], "i");
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(Model.Cells[3][2], "k");
    At(0, 0);
    Key(Qt::Key_D, Qt::ControlModifier);
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(Model.Verbs.size(), 2U);
}

TEST_F(Sheet, APasteThatFailsInItsLastCellChangesNothing) {
    const TextBlock before = Model.Cells;
    Clip("1\t2\n3\tbad\n");
    Dialogs.Press(QMessageBox::Ok);
    At(1, 1);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("critical: Nothing was pasted.\nRow 3, column 3: this is bad."));
    EXPECT_EQ(Model.Cells, before);
    EXPECT_THAT(Model.Verbs, IsEmpty());
    EXPECT_EQ(Place(), "1,1");
}

TEST_F(Sheet, ABlockThatIsTooLargeIsPastedWithTheMissingRowsOrNotAtAll) {
    const TextBlock before = Model.Cells;
    Clip("1\n2\n3\n");
    At(3, 0);
    Dialogs.Press(QMessageBox::No);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("question: The block is larger than the sheet: add 2 rows?"));
    EXPECT_EQ(Model.Cells, before);
    EXPECT_THAT(Model.Verbs, IsEmpty());
}

TEST_F(Sheet, EnterAcceptsTheOfferOfMissingRows) {
    Clip("1\n2\n3\n");
    At(3, 0);
    Dialogs.Add([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    Key(Qt::Key_V, Qt::ControlModifier);
    ASSERT_EQ(Model.Cells.size(), 6U);
    EXPECT_EQ(Model.Cells[3][0] + Model.Cells[4][0] + Model.Cells[5][0], "123");
    EXPECT_EQ(View.model()->rowCount(), 6);
}

TEST_F(Sheet, AnEmptyClipboardPastesNothing) {
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(Model.Verbs, IsEmpty());
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

TEST_F(Sheet, TheEditorHasTheClipboardForItself) {
    Clip("paste");
    Keys("x");
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Editor()->text(), "xpaste");
    EXPECT_THAT(Model.Verbs, IsEmpty());
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Editor()->text(), "x");
    Key(Qt::Key_Delete);
    EXPECT_TRUE(View.IsEditing());
}

TEST_F(Sheet, ControlAndTabLeaveIt) {
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Window.focusWidget(), &After);
    View.setFocus();
    Key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Window.focusWidget(), &Before);
}

TEST_F(Sheet, HeadingsOfTheCurrentCellAreLitAndNameThemselves) {
    auto* columns = qobject_cast<SheetHeader*>(View.horizontalHeader());
    auto* rows = qobject_cast<SheetHeader*>(View.verticalHeader());
    At(2, 1);
    EXPECT_EQ(rows->Lit(), 2);
    EXPECT_EQ(columns->Lit(), 1);
    const auto colour = [&](QHeaderView& header, int section) {
        const QImage image = header.viewport()->grab().toImage();
        const QPoint middle = header.orientation() == Qt::Horizontal
                                  ? QPoint(header.sectionViewportPosition(section) + 2, 2)
                                  : QPoint(2, header.sectionViewportPosition(section) + 2);
        return image.pixelColor(middle);
    };
    EXPECT_EQ(colour(*columns, 1), View.palette().color(QPalette::Highlight));
    EXPECT_NE(colour(*columns, 0), View.palette().color(QPalette::Highlight));
    EXPECT_EQ(colour(*rows, 2), View.palette().color(QPalette::Highlight));
    At(2, 0);
    EXPECT_NE(colour(*columns, 1), View.palette().color(QPalette::Highlight));
    EXPECT_EQ(Model.headerData(1, Qt::Horizontal, Qt::ToolTipRole), "A long heading 2");
    EXPECT_EQ(columns->sectionResizeMode(0), QHeaderView::Interactive);
    EXPECT_EQ(columns->textElideMode(), Qt::ElideRight);
}

TEST_F(Sheet, WidthsAndCurrentCellStayWhenItGrows) {
    View.setColumnWidth(1, 177);
    At(3, 1);
    Clip("1\n2\n");
    Dialogs.Press(QMessageBox::Yes);
    Key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(View.columnWidth(1), 177);
    EXPECT_EQ(Place(), "3,1");
}

TEST_F(Sheet, ACellThatIsCutOffShowsItsTextAsAToolTip) {
    Model.Cells[0][0] = "A text that is longer than its column";
    View.setColumnWidth(0, 60);
    const auto rest = [&](int column) {
        const QPoint place = View.visualRect(Model.index(0, column)).center();
        QHelpEvent event(QEvent::ToolTip, place, View.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(View.viewport(), &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(rest(0), "<p>A text that is longer than its column</p>");
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    EXPECT_EQ(rest(1), "");
}

TEST_F(Sheet, AGuardKeepsKeysClicksAndTheMenuFromDoingAnything) {
    bool may = false;
    View.SetGuard([&] { return may; });
    Clip("7");
    for (int round = 0; round < 2; ++round) {
        Keys("x");
        EXPECT_EQ(View.IsEditing(), may);
        View.CancelEditing();
        Key(Qt::Key_Down);
        EXPECT_EQ(Place(), may ? "1,0" : "0,0");
        QTest::mouseClick(View.viewport(), Qt::LeftButton, {},
                          View.visualRect(Model.index(2, 2)).center());
        EXPECT_EQ(Place(), may ? "2,2" : "0,0");
        Key(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(Model.Verbs.size(), may ? 1U : 0U);
        QTest::mouseClick(View.verticalHeader()->viewport(), Qt::LeftButton, {}, QPoint(4, 4));
        EXPECT_EQ(View.SelectedBlock().Columns, may ? 3U : 1U);
        may = true;
    }
}

TEST_F(Sheet, ShiftExtendsTheSelectionFromWhereEnterCameTo) {
    Key(Qt::Key_Return);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    const CellRange block = View.SelectedBlock();
    EXPECT_EQ(block.Row, 1U);
    EXPECT_EQ(block.Column, 1U);
    EXPECT_EQ(block.Rows, 2U);
    EXPECT_EQ(block.Columns, 1U);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(Place(), "2,0");
    EXPECT_EQ(View.SelectedBlock().Rows, 1U);
}

TEST_F(Sheet, AClickWithShiftExtendsTheSelection) {
    At(2, 2);
    Key(Qt::Key_Left);
    QTest::mouseClick(View.viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      View.visualRect(Model.index(0, 0)).center());
    const CellRange block = View.SelectedBlock();
    EXPECT_EQ(block.Row, 0U);
    EXPECT_EQ(block.Rows, 3U);
    EXPECT_EQ(block.Columns, 2U);
}

TEST_F(Sheet, TellsWhenTheCurrentRowChanges) {
    std::vector<int> rows;
    QObject::connect(&View, &SheetView::CurrentRowChanged, &View,
                     [&](int row) { rows.push_back(row); });
    Key(Qt::Key_Right);
    EXPECT_THAT(rows, IsEmpty());
    Key(Qt::Key_Down);
    View.GoToRow(3);
    View.GoToRow(3);
    EXPECT_EQ(Place(), "3,1");
    View.SelectRows(1, 2, 2);
    EXPECT_THAT(rows, ElementsAre(1, 3, 2));
    EXPECT_EQ(View.SelectedBlock().Row, 1U);
    EXPECT_EQ(View.SelectedBlock().Rows, 2U);
}

TEST_F(Sheet, TheMenuOffersWhatTheKeysDo) {
    std::vector<std::string> offers;
    for (const QAction* action : View.actions()) {
        offers.push_back(action->text().remove(QLatin1Char('&')).toStdString() + " " +
                         action->shortcut().toString().toStdString());
    }
    EXPECT_EQ(View.contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_THAT(offers, ElementsAre("Cut Ctrl+X", "Copy Ctrl+C", "Paste Ctrl+V", "Fill Down Ctrl+D",
                                    "Fill Right Ctrl+R", "Clear Del"));
}

}  // namespace
}  // namespace quarnel02
