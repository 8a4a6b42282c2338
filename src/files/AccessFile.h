#pragma once

// Internal to files/: a model that was made in Access, or is used there.

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/ModelSource.h"
#include "files/RowIntake.h"
#include "jet/Reader.h"

namespace quarnel02 {

/// An Access database, read once when it is opened here. Columns are found by their names; some may
/// be missing, for which there is a value that changes nothing.
class AccessFile : public ModelSource {
  public:
    /// Throws DatabaseLocked for a file that is open in Access.
    AccessFile(const std::filesystem::path& path, std::string_view name);

    [[nodiscard]] ModelFormat Format() const override { return ModelFormat::Access; }
    void RequireReadable() const override;
    std::int64_t ReadRows(const TableSchema& table, const RowAction& action) override;

    /// Columns that our tables do not have too: "column Note of table Tasks".
    [[nodiscard]] std::vector<std::string> ObjectsBeyondModel() const override;

  private:
    /// Where a field of ours comes from.
    struct Field {
        std::optional<std::size_t> Place;  ///< among those columns of the file that are read
        bool IsSingle = false;
        Value Default;
    };
    struct Mapping {
        std::vector<std::size_t> Columns;  ///< of the file, that are read
        std::vector<Field> Fields;         ///< of ours
    };
    [[nodiscard]] Mapping MappingOf(const TableSchema& table) const;
    [[nodiscard]] Field DefaultField(const TableSchema& table, std::string_view column) const;
    void AddForeignColumns(const std::string& table, std::vector<std::string>& objects) const;

    std::string m_name;
    ContentLimit m_content;
    jet::Reader m_reader;
};

}  // namespace quarnel02
