#include "files/ModelFile.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <system_error>

#include "basic/Files.h"
#include "files/ForeignFile.h"
#include "files/ModelChecks.h"
#include "model/Connection.h"
#include "model/SchemaScript.h"

namespace fs = std::filesystem;

namespace quarnel02 {

void CheckModelFile(const fs::path& path, std::string_view name) {
    const ForeignFile file(path, name);
    file.RequireWhole();
    file.RequireModel();
}

void MakeModelFile(const fs::path& path, std::string_view script) {
    std::error_code error;
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        fs::remove(path.string() + suffix, error);
    }
    Translating(PathText(path), [&] {
        SQLite::Database database(PathText(path), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec("BEGIN");
        database.exec(std::string(script));
        database.exec("COMMIT");
    });
}

void CompleteModelFile(const fs::path& path) {
    Translating(PathText(path), [&] {
        SQLite::Database database(PathText(path), SQLite::OPEN_READWRITE);
        database.exec("CREATE TABLE IF NOT EXISTS Scenarios (Name TEXT, Differences TEXT) STRICT");
    });
}

void MakeEmptyModel(const fs::path& path) {
    MakeModelFile(path, SchemaScript());
}

}  // namespace quarnel02
