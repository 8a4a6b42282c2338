#include "files/ModelChecks.h"

#include <array>
#include <fstream>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "jet/Recognise.h"
#include "model/Schema.h"
#include "model/Select.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

void RequireTable(sqlite3* database, const TableSchema& table, std::string_view name) {
    const std::string table_name(table.Name);
    const auto columns =
        Select(database, "SELECT name FROM pragma_table_info('" + table_name + "')").All;
    if (columns.empty()) {
        RefuseFile(name, "has no table " + table_name + ".");
    }
    for (std::size_t i = 0; i < table.Columns.size(); ++i) {
        if (i >= columns.size() ||
            !SameName(std::get<std::string>(columns[i].Fields[0]), table.Columns[i].Name)) {
            RefuseFile(name, "has no column " + std::string(table.Columns[i].Name) + " at place " +
                                 std::to_string(i + 1) + " of table " + table_name + ".");
        }
    }
}

}  // namespace

void RefuseFile(std::string_view name, const std::string& why, const char* remedy) {
    throw RunTimeError(ErrorKind::NotAModel, std::string(name) + " " + why + " " + remedy);
}

void RequireOrdinaryFile(const fs::path& path, std::string_view name) {
    switch (KindOfFile(path)) {
        case FileKind::Missing:
            throw RunTimeError(
                ErrorKind::FileNotFound,
                std::string(name) + " does not exist. Check the name and the directory.");
        case FileKind::Directory:
            RefuseFile(name, "is a directory, not a model file.");
        case FileKind::Special:
            RefuseFile(name, "is not an ordinary file.");
        case FileKind::Ordinary:
            break;
    }
}

std::string FileHead(const fs::path& path, std::string_view name) {
    std::ifstream file(path, std::ios::binary);
    std::array<char, 32> head{};
    if (!file) {
        throw RunTimeError(ErrorKind::FileAccess,
                           "Cannot read " + std::string(name) + ". Check the file's rights.");
    }
    file.read(head.data(), head.size());
    return {head.data(), static_cast<std::size_t>(file.gcount())};
}

bool IsSqliteHead(std::string_view head) {
    return head.starts_with("SQLite format 3");
}

void RequireDatabaseHead(const fs::path& path, std::string_view name) {
    constexpr std::size_t log_mark = 18;
    constexpr char keeps_log = 2;
    RequireOrdinaryFile(path, name);
    const std::string head = FileHead(path, name);
    if (head.empty()) {
        RefuseFile(name, "is empty.");
    }
    if (jet::IsAccessHead(head)) {
        RefuseFile(name, "is a Jet (Access) database, not one of this program's own.");
    }
    if (!IsSqliteHead(head)) {
        RefuseFile(name, "is not a model database.");
    }
    if (head.size() > log_mark && head[log_mark] == keeps_log) {
        RefuseFile(name,
                   "was left by another program in a mode that keeps part of it in a second file "
                   "(journal mode WAL).",
                   "Set its journal mode to DELETE, or choose another file.");
    }
}

void RequireSound(sqlite3* database, std::string_view name) {
    const auto report = Select(database, "PRAGMA integrity_check(1)").All;
    if (report.empty() || report[0].Fields[0] != Value("ok")) {
        RefuseFile(name, "is damaged.");
    }
}

void RequireGenRow(std::int64_t rows, std::string_view name) {
    if (rows != 1) {
        RefuseFile(name, "has " + std::to_string(rows) +
                             " rows of production parameters in table Gen instead of one.");
    }
}

void RequireModelTables(sqlite3* database, std::string_view name) {
    for (const TableSchema& table : ModelSchema()) {
        RequireTable(database, table, name);
    }
    RequireGenRow(WholeNumber(database, "SELECT COUNT(*) FROM Gen"), name);
}

}  // namespace quarnel02
