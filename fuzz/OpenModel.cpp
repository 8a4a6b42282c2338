// Opens arbitrary bytes as a model file, as the program does, and shows what it got. An input that
// begins like a database is a file; one that begins with "0" or "1" is a list of changes to a small
// model of SQLite or Access; any other is SQL that another program runs in a model before it is
// opened here, so that views, triggers, columns and values of all kinds are met.

#include <sqlite3.h>

#include <array>
#include <filesystem>

#include "Changes.h"
#include "Models.h"
#include "Target.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "commands/LoadModel.h"
#include "files/ModelChecks.h"
#include "files/ModelFile.h"
#include "files/ReadModel.h"
#include "files/SaveModel.h"
#include "jet/Recognise.h"
#include "sheets/InputTables.h"
#include "shell/HeadlessForm.h"
#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"

namespace quarnel02::fuzz {

namespace {

constexpr std::string_view kBefore = "the working copy before";

/// A program that means no good, with all that SQLite lets it do to its own file.
std::string ChangedBySql(std::string_view sql) {
    constexpr int steps = 200000;
    constexpr int longest = 1 << 20;
    constexpr int most_pages = 2000;
    static const std::string model = SqliteModel();
    const std::filesystem::path file = Scratch() / "hostile.mdb";
    WriteFile(file, model);
    sqlite3* database = nullptr;
    sqlite3_open(file.c_str(), &database);
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, longest);
    sqlite3_progress_handler(
        database, steps, [](void* /*context*/) { return 1; }, nullptr);
    const std::string limits = "PRAGMA synchronous = OFF; PRAGMA max_page_count = ";
    sqlite3_exec(database, (limits + std::to_string(most_pages)).c_str(), nullptr, nullptr,
                 nullptr);
    sqlite3_exec(database, std::string(sql).c_str(), nullptr, nullptr, nullptr);
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(database);
    return ReadFile(file);
}

std::string FileOf(std::string_view input) {
    static const std::array bases = {ChangeableFile(SqliteModel()), ChangeableFile(AccessModel())};
    if (IsSqliteHead(input) || jet::IsAccessHead(input)) {
        return std::string(input);
    }
    if (!input.empty() && (input[0] == '0' || input[0] == '1')) {
        return bases.at(input[0] == '0' ? 0 : 1).With(input.substr(1));
    }
    return ChangedBySql(input);
}

/// Everything that the program does with a model that it has opened, up to the first thing that it
/// has to say about it.
void Use(const WorkingCopy& copy) {
    CheckModelFile(copy.Path(), "the working copy");
    try {
        HeadlessForm form(copy.Directory());
        LoadModel(form);
        ShowDemand(form);
        const Database database = Database::Open(copy.Path());
        static_cast<void>(ReadInputTables(database));
        RequireUsableModel(database);
        static_cast<void>(LoadLineModel(database));
    } catch (const RunTimeError&) {
        return;
    }
}

void Open(const std::filesystem::path& file) {
    const WorkingCopy copy(Scratch());
    WriteFile(copy.Path(), kBefore);
    const std::string before = ReadFile(file);
    try {
        ReadModel(file, copy.Path(), "line.mdb");
    } catch (const RunTimeError& error) {
        const std::string_view text = error.what();
        Require(text.find("line.mdb") != text.npos, "a message names the file");
        Require(text.find('\n') == text.npos, "a message is one line");
        Require(ReadFile(copy.Path()) == kBefore, "a refused file leaves the old model");
        return;
    }
    Require(ReadFile(file) == before, "a file is not changed by reading it");
    Use(copy);
}

}  // namespace

std::vector<std::string> Seeds() {
    using namespace std::string_literals;
    return {
        SqliteModel(),
        AccessModel(),
        "0"s,
        "1"s,
        "0\x64\x80\1\0"s,
        "1\x64\x80\1\0"s,
        "DROP TABLE Gen; CREATE VIEW Gen AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + "
        "1 "
        "FROM n) SELECT i AS Resources FROM n;"s,
        "DROP TABLE BestPaths; CREATE VIEW BestPaths AS SELECT 1 AS Node; CREATE TRIGGER t INSTEAD "
        "OF "
        "INSERT ON BestPaths BEGIN DELETE FROM Demand; END;"s,
        "CREATE TRIGGER t AFTER UPDATE ON Gen BEGIN UPDATE Resources SET FixedCost = FixedCost * 2; END;"s,
        "CREATE TABLE n AS SELECT * FROM Tasks; DROP TABLE Tasks; CREATE TABLE Tasks (TaskId "
        "INTEGER "
        "PRIMARY KEY, Description TEXT GENERATED ALWAYS AS ('x' || TaskId) STORED) WITHOUT ROWID;"s,
        "ALTER TABLE Demand ADD COLUMN Note; ALTER TABLE Demand RENAME COLUMN Prob TO p;"s,
        "UPDATE Tasks SET Description = char(0, 7, 27, 65533); UPDATE Gen SET Days = 9e999, ACF = x'00';"s,
        "INSERT INTO Tasks SELECT value, hex(zeroblob(100)) FROM json_each('[1,2,3]');"s,
        "CREATE INDEX i ON Demand (Volume, Prob) WHERE Prob > 0; CREATE VIRTUAL TABLE f USING fts5(a);"s,
        "PRAGMA writable_schema = ON; UPDATE sqlite_master SET rootpage = 3 WHERE name = 'Gen';"s,
        "PRAGMA user_version = 2; PRAGMA application_id = 1366044722; PRAGMA journal_mode = WAL;"s};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    const std::filesystem::path file = fuzz::Scratch() / "line.mdb";
    WriteFile(file, fuzz::FileOf(fuzz::TextOf(data, size)));
    fuzz::Open(file);
    return 0;
}
