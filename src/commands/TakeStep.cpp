#include "commands/TakeStep.h"

#include "commands/LoadModel.h"
#include "model/InputDigest.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

InputTables Counted(InputTables tables) {
    CountRecords(tables);
    return tables;
}

/// An editor has Gen count its records when it closes, so between two steps of one visit they are
/// not counted yet. What a model began with stays, whatever its counts.
void KeepCounted(const InputTables& before, const Database& database, bool isStart) {
    if (!isStart && before == Counted(before)) {
        WriteInputTables(database, Counted(ReadInputTables(database)));
    }
}

}  // namespace

void TakeStep(MainForm& form, EditHistory& history, HistoryStep step) {
    const auto line = [&] { return DesignDigest(form.OpenWorkingCopy()); };
    const std::uint64_t before = line();
    const InputTables tables = ReadInputTables(form.OpenWorkingCopy());
    (history.*step)();
    KeepCounted(tables, form.OpenWorkingCopy(), !history.CanUndo());
    if (line() != before) {
        ShowInputs(form);
    }
}

}  // namespace quarnel02
