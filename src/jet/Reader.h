#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "basic/Immovable.h"
#include "jet/DatabaseObject.h"
#include "jet/Value.h"

namespace quarnel02::jet {

/// The bytes of a file, which a path is not mistaken for.
struct FileContent {
    std::string Bytes;
};

/// An Access database that is read and not trusted: Access 97 (Jet 3), 2000 to 2003 (Jet 4) and
/// .accdb files. Only tables are read; queries, forms and formulas are never run. A file is read
/// once, when it is opened, and no more than 256 MB of it.
///
/// Every call throws RunTimeError with one line that names the file and says what to do: NotAModel
/// for what is damaged, encrypted, protected by a password or of an unknown version, for a value
/// that cannot be read, and for more than 64 MB of rows and texts in all.
class Reader : Immovable {
  public:
    /// Reads the file at `path`; `name` stands for it in errors. Throws FileNotFound or FileAccess
    /// too.
    Reader(const std::filesystem::path& path, std::string_view name);
    Reader(FileContent content, std::string_view name);

    /// What users made in the file, in the order of its catalogue. What Access keeps there for
    /// itself is left out.
    [[nodiscard]] std::vector<DatabaseObject> Objects() const;

    /// The table's columns in their order; names of tables match without regard to the case of
    /// letters A to Z. Throws for a table that the file does not have, or only as a link.
    [[nodiscard]] std::vector<Column> Columns(std::string_view table) const;

    /// Calls `action` with every row of the table, in the order of the file, which need not be the
    /// one in which they were entered. A row holds the values of the columns at those places of
    /// Columns(), in that order. Throws for a column that is Computed or Other, after the rows for
    /// a table whose rows are not as many as it says, and what `action` throws.
    void ReadRows(std::string_view table, std::span<const std::size_t> columns,
                  const std::function<void(const Row&)>& action);

  private:
    struct Parts;

    template <class Action>
    decltype(auto) Guarded(std::string_view table, Action action) const;
    [[noreturn]] void Refuse(const std::string& why) const;
    [[nodiscard]] std::size_t DefinitionPage(std::string_view table) const;

    std::string m_name;
    FileContent m_content;
    std::shared_ptr<Parts> m_parts;
};

}  // namespace quarnel02::jet
