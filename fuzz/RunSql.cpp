// Takes a text that begins with "?" as that of a record set, which is walked and changed, and any
// other as a model in SQL.

#include <sqlite3.h>

#include <filesystem>

#include "Models.h"
#include "Target.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "files/ModelFile.h"
#include "files/SqlText.h"
#include "model/Database.h"

namespace quarnel02::fuzz {

namespace {

/// Record sets are opened on texts of our own, which ask neither for other files nor for ages.
int LimitTexts(sqlite3* database, char** /*message*/, const sqlite3_api_routines* /*api*/) {
    constexpr int steps = 100000;
    constexpr int longest = 1 << 20;
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, longest);
    sqlite3_progress_handler(
        database, steps, [](void* /*context*/) { return 1; }, nullptr);
    return SQLITE_OK;
}

const Database& Model() {
    static const Database database = [] {
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(LimitTexts));
        const auto file = Scratch() / "made.seq";
        WriteFile(file, SqliteModel());
        return Database::Open(file);
    }();
    return database;
}

void ChangeRow(RecordSet& rows) {
    rows.Edit();
    rows.Set("TaskId", 7);
    rows.Update();
    rows.AddNew();
    rows.Set("TaskId", 8);
    rows.Update();
    rows.MoveToLastModified();
    rows.Delete();
}

void Walk(RecordSet rows) {
    int seen = 0;
    for (; !rows.Eof(); rows.MoveNext(), ++seen) {
        static_cast<void>(rows.Text(0));
    }
    Require(seen == rows.RecordCount(), "a record set counts its rows");
    rows.MoveFirst();
    ChangeRow(rows);
}

void OpenText(std::string_view text) {
    const Transaction undone(Model());
    Walk(Model().OpenRecordSet(text));
}

void ReadText(std::string_view text) {
    const auto file = Scratch() / "line.sql";
    const auto copy = Scratch() / "line.seq";
    WriteFile(file, text);
    ReadSqlText(file, copy, "line.sql");
    CheckModelFile(copy, "the working copy");
    WriteFile(file, SqlTextOf(copy));
    const std::string first = ReadFile(file);
    ReadSqlText(file, copy, "line.sql");
    Require(SqlTextOf(copy) == first, "a model as text gives the same text");
}

}  // namespace

std::vector<std::string> Seeds() {
    return {
        ModelRows(),
        "INSERT INTO Tasks SELECT 1, char(0); DELETE FROM Demand; -- end\n",
        "?SELECT * FROM Tasks ORDER BY TaskId DESC;",
        "?SELECT Tasks.TaskId, COUNT(*) FROM Tasks, Matrix WHERE Tasks.TaskId = Matrix.TaskId "
        "GROUP BY Tasks.TaskId;",
        "?SELECT DISTINCT TaskId FROM Matrix WHERE TaskTime > 0 ORDER BY 1",
        "?SELECT TaskId, Description FROM Tasks WHERE TaskId IN (SELECT TaskId FROM Matrix) ;\n"};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    const std::string_view input = fuzz::TextOf(data, size);
    try {
        if (input.starts_with("?SELECT ")) {
            fuzz::OpenText(input.substr(1));
        } else {
            fuzz::ReadText(input);
        }
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
