#pragma once

// Internal to files/: a database of a user, or of another program, that is read and not trusted.

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/Defences.h"
#include "files/ModelSource.h"
#include "files/RowIntake.h"

namespace quarnel02 {

/// A database opened for reading only, in one state from its opening to its end. Nothing that it
/// defines is run: views, triggers and computed columns are not read. It is given up when three
/// seconds of processor time bring nothing. Every call throws RunTimeError in the name of the
/// file: NotAModel, DatabaseLocked or FileAccess.
class ForeignFile : public ModelSource {
  public:
    ForeignFile(const std::filesystem::path& path, std::string_view name);

    [[nodiscard]] ModelFormat Format() const override { return ModelFormat::Sqlite; }

    /// Refuses files of a newer version of this program too.
    void RequireReadable() const override;

    /// Throws NotAModel unless tables and indices are whole.
    void RequireWhole() const;

    /// Throws NotAModel unless the eight tables are as the program itself makes them.
    void RequireModel() const;

    std::int64_t ReadRows(const TableSchema& table, const RowAction& action) override;

    [[nodiscard]] bool HasScenarios() const override;

    [[nodiscard]] std::vector<std::string> ObjectsBeyondModel() const override;

  private:
    template <class Action>
    decltype(auto) Guarded(const Action& action) const;
    [[noreturn]] void Translate(const SQLite::Exception& error) const;
    [[nodiscard]] sqlite3* Handle() const { return m_database.getHandle(); }
    void RequireKnownFormat() const;
    void RequireTable(const TableSchema& table) const;
    void RequireColumns(const TableSchema& table) const;

    std::filesystem::path m_path;
    std::string m_name;
    std::optional<WorkLimit> m_limit;
    ContentLimit m_content;
    SQLite::Database m_database;
};

}  // namespace quarnel02
