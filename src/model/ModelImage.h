#pragma once

// Internal to model/: a model database in memory, from which a whole file is written at once.

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

    /// Replaces all rows by those that `add` appends.
    void Refill(const std::function<void()>& add);

    /// Adds one row of the table.
    class Appender {
      public:
        Appender(ModelImage& image, const TableSchema& table);
        void Append(const std::vector<Value>& row);

      private:
        SQLite::Statement m_insert;
    };

    /// Throws NotAModel in the name of `name` unless the image is a whole model.
    void Require(std::string_view name);

    /// The file, marked as a model of this program. Good until the image changes or goes.
    std::string_view Content();

  private:
    SQLite::Database m_database;
};

}  // namespace quarnel02
