#include "model/ModelFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "model/Connection.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

[[noreturn]] void Refuse(std::string_view name, const std::string& why,
                         const char* remedy = "Choose a model file saved by this program.") {
    throw RunTimeError(ErrorKind::NotAModel, std::string(name) + " " + why + " " + remedy);
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

void CheckKindOfFile(const fs::path& path, std::string_view name) {
    switch (KindOfFile(path)) {
        case FileKind::Missing:
            throw RunTimeError(
                ErrorKind::FileNotFound,
                std::string(name) + " does not exist. Check the name and the directory.");
        case FileKind::Directory:
            Refuse(name, "is a directory, not a model file.");
        case FileKind::Special:
            Refuse(name, "is not an ordinary file.");
        case FileKind::Ordinary:
            break;
    }
}

/// Pages of the database as its head tells, in bytes; the file may not be shorter.
std::uintmax_t StatedSize(SQLite::Database& database) {
    const auto pages = database.execAndGet("PRAGMA page_count").getInt64();
    return static_cast<std::uintmax_t>(pages * database.execAndGet("PRAGMA page_size").getInt64());
}

void CheckHead(const fs::path& path, std::string_view name) {
    constexpr std::size_t log_mark = 18;
    constexpr char keeps_log = 2;
    const std::string head = FileHead(path, name);
    if (head.empty()) {
        Refuse(name, "is empty.");
    }
    if (head.find("Standard Jet DB") != std::string::npos ||
        head.find("Standard ACE DB") != std::string::npos) {
        Refuse(name, "is a Jet (Access) database, which this program does not read.");
    }
    if (!head.starts_with("SQLite format 3")) {
        Refuse(name, "is not a model database.");
    }
    if (head.size() > log_mark && head[log_mark] == keeps_log) {
        Refuse(name,
               "was left by another program in a mode that keeps part of it in a second file "
               "(journal mode WAL).",
               "Set its journal mode to DELETE, or choose another file.");
    }
}

void CheckSound(SQLite::Database& database, const fs::path& path, std::string_view name) {
    SQLite::Statement check(database, "PRAGMA quick_check(1)");
    if (!check.executeStep() || check.getColumn(0).getString() != "ok") {
        Refuse(name, "is damaged.");
    }
    if (fs::file_size(path) < StatedSize(database)) {
        Refuse(name, "is cut short.");
    }
}

void CheckTable(SQLite::Database& database, const TableSchema& table, std::string_view name) {
    const std::string table_name(table.Name);
    SQLite::Statement info(database, "SELECT name FROM pragma_table_info(?)");
    info.bind(1, table_name);
    std::vector<std::string> columns;
    while (info.executeStep()) {
        columns.push_back(info.getColumn(0).getString());
    }
    if (columns.empty()) {
        Refuse(name, "has no table " + table_name + ".");
    }
    for (std::size_t i = 0; i < table.Columns.size(); ++i) {
        if (i >= columns.size() || !SameName(columns[i], table.Columns[i].Name)) {
            Refuse(name, "has no column " + std::string(table.Columns[i].Name) + " at place " +
                             std::to_string(i + 1) + " of table " + table_name + ".");
        }
    }
}

void CheckGenRow(SQLite::Database& database, std::string_view name) {
    const int rows = database.execAndGet("SELECT COUNT(*) FROM Gen").getInt();
    if (rows != 1) {
        Refuse(name, "has " + std::to_string(rows) +
                         " rows of production parameters in table Gen instead of one.");
    }
}

}  // namespace

void CheckModelFile(const fs::path& path, std::string_view name) {
    CheckKindOfFile(path, name);
    CheckHead(path, name);
    try {
        SQLite::Database database(PathText(path), SQLite::OPEN_READONLY, 3000);
        CheckSound(database, path, name);
        for (const TableSchema& table : ModelSchema()) {
            CheckTable(database, table, name);
        }
        CheckGenRow(database, name);
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, std::string(name));
    }
}

void MakeModelFile(const fs::path& path, std::string_view script) {
    std::error_code error;
    fs::remove(path, error);
    try {
        SQLite::Database database(PathText(path), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("BEGIN");
        database.exec(std::string(script));
        database.exec("COMMIT");
    } catch (const SQLite::Exception& failure) {
        throw Connection::Translated(failure, PathText(path));
    }
}

}  // namespace quarnel02
