// What is copied from a sheet and pasted into one is the same again, on the way that a spreadsheet
// takes: cells to text, text to cells.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>

#include "basic/OneLine.h"
#include "sheets/AnyModel.h"
#include "sheets/MatrixSheet.h"

namespace quarnel02 {
namespace {

/// Any model without the largest of all numbers, whose text, rounded, is larger still.
InputTables AnyShownModel() {
    InputTables tables = *test::AnyModel();
    for (const InputTable& table : AllInputTables()) {
        for (InputRow& row : tables.*table.Rows) {
            std::replace(row.begin(), row.end(), Value(std::numeric_limits<double>::max()),
                         Value(1e300));
        }
    }
    return tables;
}

CellRange Whole(const InputTables& tables) {
    return {0, 0, tables.Tasks.size(), tables.Resources.size()};
}

TextBlock Copied(const InputTables& tables, ShownFigure figure) {
    return MatrixSheet(tables).Texts(Whole(tables), figure);
}

/// Line ends as Windows has them; those inside of quotes are the cell's own.
std::string WithCrLf(const std::string& text) {
    std::string result;
    bool quoted = false;
    for (const char letter : text) {
        quoted = quoted != (letter == '"');
        result += letter == '\n' && !quoted ? "\r\n" : std::string(1, letter);
    }
    return result;
}

CellEdit Pasted(InputTables tables, ShownFigure figure, const std::string& clipboard) {
    return SetMatrixCells(std::move(tables), figure, 0, 0, ReadTabbed(clipboard));
}

RC_GTEST_PROP(Clipboard, TheMatrixComesBackAfterItWasClearedHoweverLinesEnd, ()) {
    const InputTables tables = AnyShownModel();
    const auto figure = *rc::gen::element(ShownFigure::Time, ShownFigure::Tool,
                                          ShownFigure::ToolCost, ShownFigure::AllThree);
    const TextBlock before = Copied(tables, figure);
    std::string clipboard = WriteTabbed(before);
    switch (*rc::gen::inRange(0, 3)) {
        case 1:
            clipboard = WithCrLf(clipboard);
            break;
        case 2:
            clipboard.resize(clipboard.size() - (clipboard.empty() ? 0 : 1));
            break;
        default:
            break;
    }
    const CellEdit edit = Pasted(ClearMatrixCells(tables, Whole(tables)).Tables, figure, clipboard);
    RC_ASSERT(edit.Refused.IsEmpty());
    RC_ASSERT(Copied(edit.Tables, figure) == before);
}

RC_GTEST_PROP(Clipboard, TextsOfRecordsComeBackAsOneLineEach, ()) {
    const InputTables tables = AnyShownModel();
    const auto kind = *rc::gen::element(RecordKind::Tasks, RecordKind::Resources);
    const CellRange whole{0, 0, 99, ColumnsOf(kind).size()};
    TextBlock expected = RecordTexts(tables, kind, whole);
    const TextBlock block = ReadTabbed(WithCrLf(WriteTabbed(expected)));
    for (auto& row : expected) {
        std::transform(row.begin(), row.end(), row.begin(), OneLine);
    }
    const CellEdit edit =
        SetRecordCells(ClearRecordCells(tables, kind, whole).Tables, kind, 0, 0, block);
    RC_ASSERT(edit.Refused.IsEmpty());
    RC_ASSERT(RecordTexts(edit.Tables, kind, whole) == expected);
}

std::string WithComma(std::string number) {
    std::replace(number.begin(), number.end(), '.', ',');
    return number;
}

RC_GTEST_PROP(Clipboard, DecimalCommasGiveTheSameFiguresWhereOneOfThemIsUnmistakable, ()) {
    const InputTables empty = test::EmptyMatrixModel(4, 3);
    TextBlock points(4, std::vector<std::string>(3));
    for (auto& row : points) {
        for (std::string& cell : row) {
            cell = NumberText(*rc::gen::inRange(0, 2'000'000) / 1000.0) + " | 3 | 400.5";
        }
    }
    TextBlock commas = points;
    for (auto& row : commas) {
        std::transform(row.begin(), row.end(), row.begin(), WithComma);
    }
    const CellEdit edit = Pasted(empty, ShownFigure::AllThree, WriteTabbed(commas));
    RC_ASSERT(edit.Refused.IsEmpty());
    RC_ASSERT(edit.Tables == Pasted(empty, ShownFigure::AllThree, WriteTabbed(points)).Tables);
    RC_ASSERT(Copied(edit.Tables, ShownFigure::AllThree) == points);
}

TEST(Clipboard, QuotedFiguresAndEmptyCellsAreTakenAsTheyStand) {
    const CellEdit edit = Pasted(test::SmallModel(), ShownFigure::Time,
                                 "\"1,5\"\t\"\"\r\n\t\"2\n\"\r\n\"0,25\"\t3\r\n");
    ASSERT_TRUE(edit.Refused.IsEmpty());
    EXPECT_EQ(Copied(edit.Tables, ShownFigure::Time),
              (TextBlock{{"1.5", ""}, {"", "2"}, {"0.25", "3"}}));
}

TEST(Clipboard, TenThousandCellsComeBack) {
    constexpr int side = 100;
    InputTables tables = test::EmptyMatrixModel(side, side);
    const InputTables empty = tables;
    for (int task = 1; task <= side; ++task) {
        for (int resource = 1; resource <= side; ++resource) {
            if ((task + resource) % 7 != 0) {
                tables.Matrix.push_back(
                    test::PairRow(task, resource, task + resource / 8.0, resource, task * 10));
            }
        }
    }
    const std::string clipboard = WriteTabbed(Copied(tables, ShownFigure::AllThree));
    EXPECT_EQ(Pasted(empty, ShownFigure::AllThree, clipboard).Tables, tables);
    EXPECT_EQ(Pasted(empty, ShownFigure::AllThree, WithCrLf(clipboard)).Tables, tables);
    const CellEdit last = Pasted(empty, ShownFigure::AllThree, clipboard + "1 | 2 | -3\n");
    EXPECT_EQ(last.Refused.Count(), 1U);
    EXPECT_EQ(last.Tables, empty);
}

}  // namespace
}  // namespace quarnel02
