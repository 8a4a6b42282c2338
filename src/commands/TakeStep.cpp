#include "commands/TakeStep.h"

#include "commands/LoadModel.h"
#include "model/InputDigest.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

/// An editor has Gen count its records when it closes, so between two steps of one visit they are
/// not counted yet. What a model began with stays, whatever its counts.
void CountRecordsAfter(const InputTables& before, const Database& database, bool isStart) {
    InputTables now = ReadInputTables(database);
    const bool others =
        now.Tasks.size() != before.Tasks.size() || now.Resources.size() != before.Resources.size();
    if (others && !isStart) {
        CountRecords(now);
        WriteInputTables(database, now);
    }
}

}  // namespace

void TakeStep(MainForm& form, EditHistory& history, HistoryStep step) {
    const auto line = [&] { return DesignDigest(form.OpenWorkingCopy()); };
    const std::uint64_t before = line();
    const InputTables tables = ReadInputTables(form.OpenWorkingCopy());
    (history.*step)();
    CountRecordsAfter(tables, form.OpenWorkingCopy(), !history.CanUndo());
    if (line() != before) {
        ShowInputs(form);
    }
}

}  // namespace quarnel02
