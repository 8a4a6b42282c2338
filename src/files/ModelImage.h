#pragma once

// Internal to files/: a model database in memory, from which a whole file is written at once.

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

#include "model/Schema.h"

namespace quarnel02 {

class ModelImage {
  public:
    /// An empty model.
    ModelImage();

    /// A copy of the database `file`, in one state, taken under its lock, which is waited for.
    /// Throws RunTimeError in the name of `name`.
    ModelImage(const std::filesystem::path& file, std::string_view name);

    /// Replaces the table's rows by those that `rows` hands to the function it is called with.
    using AddRow = std::function<void(const std::vector<Value>& row)>;
    void Fill(const TableSchema& table, const std::function<void(const AddRow& add)>& rows);

    /// Calls `action` with every row of the table, in the order in which they were added.
    void ReadRows(const TableSchema& table,
                  const std::function<void(const std::vector<Value>&)>& action) const;

    /// Throws NotAModel in the name of `name` unless the image is a whole model.
    void RequireWhole(const std::string& name) const;

    /// The file, marked as a model of this program. Good until the image changes or goes. Throws
    /// like RequireWhole.
    std::string_view Content(const std::string& name);

    /// For statements of others; good as long as the image.
    [[nodiscard]] sqlite3* Handle() const { return m_database.getHandle(); }

  private:
    SQLite::Database m_database;
};

}  // namespace quarnel02
