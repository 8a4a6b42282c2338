#include "model/ForeignFile.h"

#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/Files.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "model/Connection.h"
#include "model/Defences.h"
#include "model/FileFormat.h"
#include "model/FileHead.h"
#include "model/SoundModel.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr int kSecondsOfWork = 3;
constexpr int kStepsBetweenLooks = 1000;
constexpr std::int64_t kRowsBetweenLooks = 10000;

constexpr std::int64_t kMostRows = std::int64_t{1} << 20;    ///< 4,095 resources by 255 tasks
constexpr std::size_t kMostText = std::size_t{128} << 10;    ///< what a box takes, in bytes
constexpr std::size_t kMostContent = std::size_t{64} << 20;  ///< kept in memory while it is read
constexpr std::uintmax_t kMostFile = std::uintmax_t{256} << 20;

int IsOverdue(void* until) {
    return std::clock() > *static_cast<const std::clock_t*>(until) ? 1 : 0;
}

bool IsReadOnlyFailure(int code) {
    return code == SQLITE_READONLY || code == SQLITE_CANTOPEN;
}

std::string List(const TableSchema& table) {
    std::string list;
    for (const ColumnSchema& column : table.Columns) {
        list += (list.empty() ? "[" : ", [") + std::string(column.Name) + "]";
    }
    return list;
}

Value Untyped(const SQLite::Column& column) {
    switch (column.getType()) {
        case SQLITE_INTEGER:
            return std::int64_t{column.getInt64()};
        case SQLITE_FLOAT:
            return column.getDouble();
        case SQLITE_NULL:
            return {};
        default:
            return column.getString();
    }
}

/// What a field cannot hold whatever its type; empty when there is nothing to say.
std::string Fault(const SQLite::Column& column, FieldType type) {
    constexpr int longest_number = 100;
    if (column.getType() == SQLITE_BLOB) {
        return "is no text or number.";
    }
    if (column.getType() == SQLITE_TEXT && type != FieldType::Text &&
        column.getBytes() > longest_number) {
        return "is a text, not a number.";
    }
    if (column.getType() == SQLITE_FLOAT && !std::isfinite(column.getDouble())) {
        return "is infinite.";
    }
    return {};
}

/// Rounding would change a figure of the user's file in silence. Throws Overflow.
void RequireWholeNumber(const Value& value, const std::string& field) {
    const Value number = ConvertTo(FieldType::Real, value, field);
    const auto* real = std::get_if<double>(&number);
    if (real != nullptr && *real != std::trunc(*real)) {
        throw RunTimeError(ErrorKind::Overflow, field + ": " + NumberText(*real) +
                                                    " is no whole number. Correct it there.");
    }
}

}  // namespace

template <class Action>
decltype(auto) ForeignFile::Guarded(Action action) const {
    try {
        return action();
    } catch (const SQLite::Exception& error) {
        Translate(error);
    }
}

void ForeignFile::Translate(const SQLite::Exception& error) const {
    const int code = error.getErrorCode();
    if (IsReadOnlyFailure(code)) {
        RefuseFile(m_name,
                   "was not closed by the program that changed it last: part of it is in a second "
                   "file (a journal).",
                   "Open and close it with that program, or use a saved copy.");
    }
    switch (code) {
        case SQLITE_INTERRUPT:
            RefuseFile(m_name, "takes too long to read.");
        case SQLITE_TOOBIG:
            RefuseFile(m_name, "holds more in one row, or in one definition, than a model does.");
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_IOERR:
        case SQLITE_NOMEM:
        case SQLITE_NOTADB:
            throw Connection::Translated(error, m_name);
        case SQLITE_CORRUPT:
            RefuseFile(m_name, "is damaged.");
        default:
            RefuseFile(m_name, "is damaged, or defines what this program does not read.");
    }
}

ForeignFile::ForeignFile(const fs::path& path, std::string_view name)
    : m_path(fs::absolute(path)), m_name(name), m_database([&] {
          RequireDatabaseHead(m_path, name);
          if (fs::file_size(m_path) > kMostFile) {
              RefuseFile(name, "is larger than 256 MB, which no model is.");
          }
          return Guarded([&] {
              return SQLite::Database(PathText(m_path), SQLite::OPEN_READONLY, kBusyMilliseconds);
          });
      }()) {
    Guarded([&] {
        Defend(m_database);
        m_database.exec("BEGIN");
        m_database.execAndGet("SELECT COUNT(*) FROM sqlite_master");
    });
    GiveTime();
    sqlite3_progress_handler(m_database.getHandle(), kStepsBetweenLooks, IsOverdue, &m_until);
}

void ForeignFile::GiveTime() {
    m_until = std::clock() + kSecondsOfWork * CLOCKS_PER_SEC;
}

void ForeignFile::RequireKnownFormat() {
    Guarded([&] {
        const auto version = m_database.execAndGet("PRAGMA user_version").getInt64();
        if (m_database.execAndGet("PRAGMA application_id").getInt64() == kApplicationId &&
            version > kFormatVersion) {
            RefuseFile(m_name,
                       "was saved by a newer version of this program (format " +
                           std::to_string(version) + "; this one reads up to " +
                           std::to_string(kFormatVersion) + ").",
                       "Open it with that version, or install it here.");
        }
    });
}

void ForeignFile::RequireWhole() {
    Guarded([&] {
        if (m_database.execAndGet("PRAGMA journal_mode").getString() == "wal") {
            RequireDatabaseHead(m_path, m_name);
        }
        const auto pages = m_database.execAndGet("PRAGMA page_count").getInt64();
        const auto page = m_database.execAndGet("PRAGMA page_size").getInt64();
        if (fs::file_size(m_path) < static_cast<std::uintmax_t>(pages * page)) {
            RefuseFile(m_name, "is cut short.");
        }
        RequireSound(m_database, m_name);
    });
}

void ForeignFile::RequireTable(const TableSchema& table) const {
    const std::string table_name(table.Name);
    Guarded([&] {
        SQLite::Statement find(m_database,
                               "SELECT type, rootpage FROM sqlite_master WHERE name = ? COLLATE "
                               "NOCASE AND type IN ('table', 'view')");
        find.bind(1, table_name);
        if (!find.executeStep()) {
            RefuseFile(m_name, "has no table " + table_name + ".");
        }
        const bool is_view = find.getColumn(0).getString() == "view";
        if (find.getColumn(1).getInt64() == 0) {  // no pages of its own
            RefuseFile(m_name, "has no table " + table_name + ": a " +
                                   (is_view ? "view" : "virtual table") + " stands in its place.");
        }
        constexpr int name_at = 1;
        constexpr int hidden_at = 6;
        std::vector<std::pair<std::string, bool>> columns;
        SQLite::Statement info(m_database, "PRAGMA table_xinfo(" + table_name + ")");
        while (info.executeStep()) {
            columns.emplace_back(info.getColumn(name_at).getString(),
                                 info.getColumn(hidden_at).getInt() != 0);
        }
        for (const ColumnSchema& column : table.Columns) {
            const auto found = std::find_if(columns.begin(), columns.end(), [&](const auto& each) {
                return SameName(each.first, column.Name);
            });
            if (found == columns.end()) {
                RefuseFile(m_name, "has no column " + std::string(column.Name) + " in table " +
                                       table_name + ".");
            }
            if (found->second) {
                RefuseFile(m_name, "computes column " + std::string(column.Name) + " of table " +
                                       table_name + ", where a model holds values.");
            }
        }
    });
}

void ForeignFile::CountContent(std::size_t bytes) {
    m_content += bytes;
    if (m_content > kMostContent) {
        RefuseFile(m_name, "holds more than 64 MB of rows and texts, which no model does.");
    }
}

Value ForeignFile::ReadValue(const SQLite::Column& column, const TableSchema& table,
                             std::size_t field, std::int64_t row) {
    const auto& [field_name, type] = table.Columns[field];
    const auto refuse = [&](const std::string& why) {
        throw RunTimeError(ErrorKind::NotAModel, m_name + " has a wrong value in row " +
                                                     std::to_string(row) + " of table " +
                                                     std::string(table.Name) + ": " + why);
    };
    const std::string fault = Fault(column, type);
    if (!fault.empty()) {
        refuse(std::string(field_name) + " " + fault + " Correct it there.");
    }
    if (static_cast<std::size_t>(column.getBytes()) > kMostText) {
        refuse(std::string(field_name) + " is longer than 128 KB. Shorten it there.");
    }
    try {
        const Value untyped = Untyped(column);
        if (type == FieldType::Integer) {
            RequireWholeNumber(untyped, std::string(field_name));
        }
        Value value = ConvertTo(type, untyped, std::string(field_name));
        const auto* text = std::get_if<std::string>(&value);
        CountContent(text == nullptr ? sizeof(double) : text->size());
        return value;
    } catch (const RunTimeError& error) {
        if (error.Kind() == ErrorKind::NotAModel) {
            throw;
        }
        refuse(error.what());
    }
    return {};
}

std::int64_t ForeignFile::ReadRows(const TableSchema& table,
                                   const std::function<void(const std::vector<Value>&)>& action) {
    return Guarded([&] {
        // An index could answer this too, in its own order.
        SQLite::Statement rows(m_database, "SELECT " + List(table) + " FROM " +
                                               std::string(table.Name) + " NOT INDEXED");
        std::vector<Value> values(table.Columns.size());
        std::int64_t count = 0;
        while (rows.executeStep()) {
            if (count % kRowsBetweenLooks == 0) {
                GiveTime();
            }
            if (++count > kMostRows) {
                RefuseFile(m_name, "has more than 1,048,576 rows in table " +
                                       std::string(table.Name) + ", which no model has.");
            }
            for (std::size_t field = 0; field < values.size(); ++field) {
                values[field] =
                    ReadValue(rows.getColumn(static_cast<int>(field)), table, field, count);
            }
            action(values);
        }
        return count;
    });
}

std::vector<std::string> ForeignFile::ObjectsBeyondModel() const {
    return Guarded([&] {
        std::vector<std::string> objects;
        SQLite::Statement find(m_database,
                               "SELECT type, name FROM sqlite_master WHERE type IN ('table', "
                               "'view', 'trigger') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
                               "ORDER BY type, name");
        while (find.executeStep()) {
            std::string object = find.getColumn(0).getString();
            const std::string name = find.getColumn(1).getString();
            if (object != "table" || FindTable(name) == nullptr) {
                objects.push_back(object.append(" ").append(name));
            }
        }
        return objects;
    });
}

}  // namespace quarnel02
