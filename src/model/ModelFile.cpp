#include "model/ModelFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <system_error>

#include "basic/Files.h"
#include "model/Connection.h"
#include "model/FileHead.h"
#include "model/SchemaScript.h"
#include "model/SoundModel.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// Pages of the database as its head tells, in bytes; the file may not be shorter.
std::uintmax_t StatedSize(SQLite::Database& database) {
    const auto pages = database.execAndGet("PRAGMA page_count").getInt64();
    return static_cast<std::uintmax_t>(pages * database.execAndGet("PRAGMA page_size").getInt64());
}

}  // namespace

void CheckModelFile(const fs::path& path, std::string_view name) {
    RequireDatabaseHead(path, name);
    try {
        SQLite::Database database(PathText(path), SQLite::OPEN_READONLY, kBusyMilliseconds);
        RequireSound(database, name);
        if (fs::file_size(path) < StatedSize(database)) {
            RefuseFile(name, "is cut short.");
        }
        RequireModelTables(database, name);
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, std::string(name));
    }
}

void MakeModelFile(const fs::path& path, std::string_view script) {
    std::error_code error;
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        fs::remove(path.string() + suffix, error);
    }
    try {
        SQLite::Database database(PathText(path), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("BEGIN");
        database.exec(std::string(script));
        database.exec("COMMIT");
    } catch (const SQLite::Exception& failure) {
        throw Connection::Translated(failure, PathText(path));
    }
}

void MakeEmptyModel(const fs::path& path) {
    MakeModelFile(path, SchemaScript());
}

}  // namespace quarnel02
