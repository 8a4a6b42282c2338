#include "files/ModelImage.h"

#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>

#include <new>
#include <string>

#include "basic/Files.h"
#include "files/ModelChecks.h"
#include "model/Connection.h"
#include "model/SchemaScript.h"
#include "model/Select.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

SQLite::Database OpenInMemory() {
    // Of a database behind this name the bytes can be had without another copy.
    SQLite::Database database("file:model?vfs=memdb",
                              SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_URI);
    database.exec("PRAGMA temp_store = MEMORY");
    return database;
}

/// Nothing is undone in an image: one that fails is dropped.
void SkipJournal(SQLite::Database& database) {
    database.exec("PRAGMA journal_mode = OFF");
}

}  // namespace

ModelImage::ModelImage() : m_database(OpenInMemory()) {
    SkipJournal(m_database);
    m_database.exec("BEGIN");
    m_database.exec(std::string(SchemaScript()));
    m_database.exec("COMMIT");
}

ModelImage::ModelImage(const fs::path& file, std::string_view name) : m_database(OpenInMemory()) {
    Translating(std::string(name), [&] {
        // Writing is for a journal that a killed program has left, which is played back first.
        SQLite::Database source(PathText(fs::absolute(file)), SQLite::OPEN_READWRITE,
                                kBusyMilliseconds);
        source.exec("BEGIN");
        source.execAndGet("SELECT COUNT(*) FROM sqlite_master");
        SQLite::Backup(m_database, source).executeStep();
        SkipJournal(m_database);
    });
}

void ModelImage::Fill(const TableSchema& table,
                      const std::function<void(const AddRow& add)>& rows) {
    m_database.exec("BEGIN");
    m_database.exec("DELETE FROM " + std::string(table.Name));
    SQLite::Statement insert(m_database, InsertText(table.Name, NamesOf(table)));
    rows([&](const std::vector<Value>& row) { Execute(insert, row); });
    m_database.exec("COMMIT");
}

void ModelImage::ReadRows(const TableSchema& table,
                          const std::function<void(const std::vector<Value>&)>& action) const {
    const ReadStatement rows =
        Prepare(m_database.getHandle(), "SELECT " + Joined(NamesOf(table)) + " FROM " +
                                            std::string(table.Name) + " NOT INDEXED");
    std::vector<Value> values(table.Columns.size());
    for (; Step(rows); action(values)) {
        for (std::size_t field = 0; field < values.size(); ++field) {
            values[field] = FieldOf(rows, static_cast<int>(field));
        }
    }
}

void ModelImage::RequireWhole(const std::string& name) const {
    Translating(name, [&] {
        RequireSound(m_database.getHandle(), name);
        RequireModelTables(m_database.getHandle(), name);
    });
}

std::string_view ModelImage::Content(const std::string& name) {
    RequireWhole(name);
    Translating(name, [&] {
        m_database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
        m_database.exec("PRAGMA user_version = " + std::to_string(kFormatVersion));
    });
    sqlite3_int64 size = 0;
    const unsigned char* bytes =
        sqlite3_serialize(m_database.getHandle(), "main", &size, SQLITE_SERIALIZE_NOCOPY);
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

}  // namespace quarnel02
