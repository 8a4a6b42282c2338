#include "files/ForeignFile.h"

#include <algorithm>

#include "basic/Files.h"
#include "basic/Limits.h"
#include "files/Defences.h"
#include "files/ModelChecks.h"
#include "model/Connection.h"
#include "model/Select.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr std::int64_t kRowsBetweenLooks = 10000;

/// A field of a user's row as our tables hold it. Throws for a value that it cannot hold.
Value Converted(const ReadStatement& row, std::size_t place, const ColumnSchema& column) {
    const int field = static_cast<int>(place);
    if (sqlite3_column_type(row.get(), field) == SQLITE_BLOB) {
        throw RunTimeError(ErrorKind::NotAModel,
                           std::string(column.Name) + " is no text or number. Correct it there.");
    }
    return FieldFrom(FieldOf(row, field), column);
}

}  // namespace

template <class Action>
decltype(auto) ForeignFile::Guarded(const Action& action) const {
    try {
        return action();
    } catch (const SQLite::Exception& error) {
        Translate(error);
    }
}

void ForeignFile::Translate(const SQLite::Exception& error) const {
    switch (error.getErrorCode()) {
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
            RefuseFile(m_name,
                       "was not closed by the program that changed it last: part of it is in a "
                       "second file (a journal).",
                       "Open and close it with that program, or use a saved copy.");
        case SQLITE_INTERRUPT:
            RefuseFile(m_name, "takes too long to read.");
        case SQLITE_NOMEM:
            if (!MemoryLimit::WasNear()) {
                throw Translated(error, m_name);
            }
            [[fallthrough]];
        case SQLITE_TOOBIG:
            RefuseFile(m_name, "holds more in one row, or in one definition, than a model does.");
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_IOERR:
        case SQLITE_NOTADB:
            throw Translated(error, m_name);
        case SQLITE_CORRUPT:
            RefuseFile(m_name, "is damaged.");
        default:
            RefuseFile(m_name, "is damaged, or defines what this program does not read.");
    }
}

ForeignFile::ForeignFile(const fs::path& path, std::string_view name)
    : m_path(fs::absolute(path)), m_name(name), m_content(name), m_database([&] {
          RequireDatabaseHead(m_path, name);
          if (fs::file_size(m_path) > limits::kModelFile) {
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
    m_limit.emplace(Handle());
}

void ForeignFile::RequireKnownFormat() const {
    Guarded([&] {
        const auto version = WholeNumber(Handle(), "PRAGMA user_version");
        if (WholeNumber(Handle(), "PRAGMA application_id") == kApplicationId &&
            version > kFormatVersion) {
            RefuseFile(m_name,
                       "was saved by a newer version of this program (format " +
                           std::to_string(version) + "; this one reads up to " +
                           std::to_string(kFormatVersion) + ").",
                       "Open it with that version, or install it here.");
        }
    });
}

void ForeignFile::RequireWhole() const {
    Guarded([&] {
        if (Select(Handle(), "PRAGMA journal_mode").All[0].Fields[0] == Value("wal")) {
            RequireDatabaseHead(m_path, m_name);
        }
        const auto bytes =
            WholeNumber(Handle(), "PRAGMA page_count") * WholeNumber(Handle(), "PRAGMA page_size");
        if (fs::file_size(m_path) < static_cast<std::uintmax_t>(bytes)) {
            RefuseFile(m_name, "is cut short.");
        }
        RequireSound(Handle(), m_name);
    });
}

void ForeignFile::RequireReadable() const {
    RequireKnownFormat();
    RequireWhole();
    for (const TableSchema& table : ModelSchema()) {
        RequireTable(table);
    }
}

void ForeignFile::RequireModel() const {
    Guarded([&] { RequireModelTables(Handle(), m_name); });
}

void ForeignFile::RequireTable(const TableSchema& table) const {
    const std::string name(table.Name);
    Guarded([&] {
        const auto found =
            Select(Handle(), "SELECT type, rootpage FROM sqlite_master WHERE name = '" + name +
                                 "' COLLATE NOCASE AND type IN ('table', 'view')")
                .All;
        if (found.empty()) {
            RefuseFile(m_name, "has no table " + name + ".");
        }
        if (found[0].Fields[1] == Value(0)) {  // no pages of its own
            const bool is_view = found[0].Fields[0] == Value("view");
            RefuseFile(m_name, "has no table " + name + ": a " +
                                   (is_view ? "view" : "virtual table") + " stands in its place.");
        }
        RequireColumns(table);
    });
}

void ForeignFile::RequireColumns(const TableSchema& table) const {
    const auto in_table = " table " + std::string(table.Name);
    const auto columns = Select(Handle(), "SELECT name, hidden FROM pragma_table_xinfo('" +
                                              std::string(table.Name) + "')")
                             .All;
    for (const ColumnSchema& column : table.Columns) {
        const auto found = std::find_if(columns.begin(), columns.end(), [&](const Row& each) {
            return SameName(std::get<std::string>(each.Fields[0]), column.Name);
        });
        if (found == columns.end()) {
            RefuseFile(m_name,
                       "has no column " + std::string(column.Name) + " in" + in_table + ".");
        }
        if (found->Fields[1] != Value(0)) {
            RefuseFile(m_name, "computes column " + std::string(column.Name) + " of" + in_table +
                                   ", where a model holds values.");
        }
    }
}

std::int64_t ForeignFile::ReadRows(const TableSchema& table, const RowAction& action) {
    RowIntake intake(m_name, table, m_content);
    return Guarded([&] {
        // An index could answer this too, in its own order.
        const ReadStatement rows = Prepare(Handle(), "SELECT " + Joined(NamesOf(table)) + " FROM " +
                                                         std::string(table.Name) + " NOT INDEXED");
        std::vector<Value> values(table.Columns.size());
        for (; Step(rows); action(values)) {
            if (intake.Rows() % kRowsBetweenLooks == 0) {
                m_limit->Restart();
            }
            intake.StartRow();
            for (std::size_t field = 0; field < values.size(); ++field) {
                values[field] =
                    intake.Take([&] { return Converted(rows, field, table.Columns[field]); });
            }
        }
        return intake.Rows();
    });
}

bool ForeignFile::HasScenarios() const {
    return Guarded([&] {
        const TableSchema& table = ScenariosSchema();
        std::string columns =
            "SELECT COUNT(*) FROM pragma_table_xinfo('Scenarios') WHERE hidden = 0";
        columns += " AND name COLLATE NOCASE IN ('Name', 'Differences')";
        return WholeNumber(Handle(),
                           "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND rootpage > "
                           "0 AND name = 'Scenarios' COLLATE NOCASE") == 1 &&
               WholeNumber(Handle(), columns) == std::ssize(table.Columns);
    });
}

std::vector<std::string> ForeignFile::ObjectsBeyondModel() const {
    return Guarded([&] {
        std::vector<std::string> objects;
        for (const Row& row :
             Select(Handle(),
                    "SELECT type, name FROM sqlite_master WHERE type IN ('table', 'view', "
                    "'trigger') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY type, name")
                 .All) {
            const auto& type = std::get<std::string>(row.Fields[0]);
            const auto& name = std::get<std::string>(row.Fields[1]);
            const bool ours = FindTable(name) != nullptr &&
                              (!SameName(name, ScenariosSchema().Name) || HasScenarios());
            if (type != "table" || !ours) {
                objects.emplace_back(type).append(" ").append(name);
            }
        }
        return objects;
    });
}

}  // namespace quarnel02
