#include "model/ModelImage.h"

#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>

#include <new>
#include <string>

#include "basic/Files.h"
#include "model/Connection.h"
#include "model/FileFormat.h"
#include "model/SchemaScript.h"
#include "model/SoundModel.h"

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
    try {
        // Writing is for a journal that a killed program has left, which is played back first.
        SQLite::Database source(PathText(fs::absolute(file)), SQLite::OPEN_READWRITE,
                                kBusyMilliseconds);
        source.exec("BEGIN");
        source.execAndGet("SELECT COUNT(*) FROM sqlite_master");
        SQLite::Backup(m_database, source).executeStep();
        SkipJournal(m_database);
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, std::string(name));
    }
}

void ModelImage::Refill(const std::function<void()>& add) {
    m_database.exec("BEGIN");
    for (const TableSchema& table : ModelSchema()) {
        m_database.exec("DELETE FROM " + std::string(table.Name));
    }
    add();
    m_database.exec("COMMIT");
}

ModelImage::Appender::Appender(ModelImage& image, const TableSchema& table)
    : m_insert(image.m_database, [&] {
          std::string places;
          for (std::size_t i = 0; i < table.Columns.size(); ++i) {
              places += i == 0 ? "?" : ", ?";
          }
          return "INSERT INTO " + std::string(table.Name) + " VALUES (" + places + ")";
      }()) {}

void ModelImage::Appender::Append(const std::vector<Value>& row) {
    m_insert.reset();
    BindValues(m_insert, row);
    m_insert.exec();
}

void ModelImage::Require(std::string_view name) {
    try {
        RequireSound(m_database, name);
        RequireModelTables(m_database, name);
    } catch (const SQLite::Exception& error) {
        throw Connection::Translated(error, std::string(name));
    }
}

std::string_view ModelImage::Content() {
    m_database.exec("PRAGMA application_id = " + std::to_string(kApplicationId));
    m_database.exec("PRAGMA user_version = " + std::to_string(kFormatVersion));
    sqlite3_int64 size = 0;
    const unsigned char* bytes =
        sqlite3_serialize(m_database.getHandle(), "main", &size, SQLITE_SERIALIZE_NOCOPY);
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size)};
}

}  // namespace quarnel02
