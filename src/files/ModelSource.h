#pragma once

// Internal to files/: a file of a user, in any format, from which a model is read.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "files/ModelFormat.h"
#include "model/Schema.h"

namespace quarnel02 {

/// A file that is read and not trusted. Every call throws RunTimeError in the name of the file.
class ModelSource {
  public:
    virtual ~ModelSource() = default;

    [[nodiscard]] virtual ModelFormat Format() const = 0;

    /// Throws NotAModel unless the file is whole and has the eight tables with their columns,
    /// wherever they stand.
    virtual void RequireReadable() const = 0;

    /// Rows of the table in the order in which they were added, fields in our order and of our
    /// types. Throws NotAModel for a value that a field cannot hold, and for more rows or longer
    /// texts than a model has. Returns the number of rows.
    using RowAction = std::function<void(const std::vector<Value>&)>;
    virtual std::int64_t ReadRows(const TableSchema& table, const RowAction& action) = 0;

    /// Whether there is a table of scenarios as the program itself makes it; another one of that
    /// name is none of a model. Access databases have none.
    [[nodiscard]] virtual bool HasScenarios() const { return false; }

    /// What users made in the file that a model does not have: "table Suppliers".
    [[nodiscard]] virtual std::vector<std::string> ObjectsBeyondModel() const = 0;
};

/// Opens a file in the format that its first bytes tell. Throws FileNotFound, FileAccess,
/// DatabaseLocked or NotAModel.
std::unique_ptr<ModelSource> OpenModelSource(const std::filesystem::path& path,
                                             std::string_view name);

}  // namespace quarnel02
