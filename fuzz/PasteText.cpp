// Pastes arbitrary text from the clipboard into each of the sheets. The first three letters say the
// sheet, and the row and column of the first cell.

#include <algorithm>

#include "Models.h"
#include "Target.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "sheets/MatrixSheet.h"
#include "sheets/RecordCells.h"
#include "sheets/RecordOrder.h"

namespace quarnel02::fuzz {

namespace {

constexpr std::size_t kMostAdded = 50;

const InputTables& Model() {
    static const InputTables tables = [] {
        const auto file = Scratch() / "made.seq";
        WriteFile(file, SqliteModel());
        return ReadInputTables(Database::Open(file));
    }();
    return tables;
}

struct Target {
    unsigned Sheet = 0;
    std::size_t Row = 0;
    std::size_t Column = 0;
};

InputTables Widened(RecordKind kind, std::size_t count) {
    return AddRecords(Model(), kind, std::min(count, kMostAdded)).Tables;
}

CellEdit PasteRecords(RecordKind kind, const Target& at, const TextBlock& block) {
    const InputTables wide = Widened(kind, MissingRecords(Model(), kind, at.Row, block));
    CellEdit edit = SetRecordCells(wide, kind, at.Row, at.Column, block);
    Require(edit.Refused.IsEmpty() || edit.Tables == wide, "nothing is half pasted");
    static_cast<void>(RecordTexts(edit.Tables, kind, {0, 0, block.size() + 1, 12}));
    return edit;
}

CellEdit PasteMatrix(ShownFigure figure, const Target& at, const TextBlock& block) {
    const MissingPairs missing = MissingForMatrix(Model(), at.Row, at.Column, block);
    InputTables wide = Widened(RecordKind::Tasks, missing.Tasks);
    wide =
        AddRecords(std::move(wide), RecordKind::Resources, std::min(missing.Resources, kMostAdded))
            .Tables;
    CellEdit edit = SetMatrixCells(wide, figure, at.Row, at.Column, block);
    Require(edit.Refused.IsEmpty() || edit.Tables == wide, "nothing is half pasted");
    const MatrixSheet sheet(edit.Tables);
    static_cast<void>(sheet.Texts({0, 0, sheet.Rows(), sheet.Columns()}, figure));
    return edit;
}

CellEdit Paste(const Target& at, const TextBlock& block) {
    switch (at.Sheet) {
        case 0:
            return PasteRecords(RecordKind::Tasks, at, block);
        case 1:
            return PasteRecords(RecordKind::Resources, at, block);
        default:
            return PasteMatrix(static_cast<ShownFigure>(at.Sheet - 2), at, block);
    }
}

}  // namespace

std::vector<std::string> Seeds() {
    return {"000Drill\nPress\n\"two\nlines\"\t",
            "112Bench\tBy hand\tManual\t1,200\t0.5\t99\t1.2\t0\t1\r\nRobot\t\tRobot\t80.000,5",
            "20012.5\t3\n\t7,25",
            "311\"1\"\"2\"\t\t\r\r",
            "41112\t13\n14",
            "50012.5 | 3 | 400\t| |5",
            "101\xC3\x96l\t1e999\tNaN\t-0\t1e-320\t1 234,5"};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    constexpr std::size_t head = 3;
    constexpr unsigned sheets = 6;
    constexpr unsigned reach = 12;
    if (size < head) {
        return 0;
    }
    const fuzz::Target at{data[0] % sheets, data[1] % reach, data[2] % reach};
    const TextBlock block = ReadTabbed(fuzz::TextOf(data, size).substr(head));
    fuzz::Require(ReadTabbed(WriteTabbed(block)) == block, "cells that are copied are pasted");
    try {
        const CellEdit edit = fuzz::Paste(at, block);
        fuzz::Require(edit.Refused.IsEmpty() || !edit.Refused.Message("Refused.").empty(),
                      "a refusal says why");
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
