#include "jet/Catalogue.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace quarnel02::jet {

namespace {

constexpr std::size_t kCataloguePage = 2;
constexpr std::uint32_t kNumberBits = 0x00FFFFFF;    ///< of an object's number
constexpr std::uint32_t kSystemObject = 0x80000002;  ///< either bit

constexpr std::array<std::string_view, 4> kColumns = {"Id", "Name", "Type", "Flags"};

std::vector<std::size_t> CatalogueColumns(const TableDefinition& catalogue) {
    std::vector<std::size_t> found;
    for (const std::string_view name : kColumns) {
        const auto column =
            std::find_if(catalogue.Columns.begin(), catalogue.Columns.end(),
                         [&](const StoredColumn& each) { return each.Described.Name == name; });
        if (column == catalogue.Columns.end()) {
            throw Damage();
        }
        found.push_back(static_cast<std::size_t>(column - catalogue.Columns.begin()));
    }
    return found;
}

/// Nothing for what Access keeps for itself: databases, containers, documents and users.
std::optional<ObjectKind> KindOf(std::int64_t type) {
    switch (type) {
        case 1:
            return ObjectKind::Table;
        case 4:
        case 6:
            return ObjectKind::LinkedTable;
        case 5:
            return ObjectKind::Query;
        case 8:
            return ObjectKind::Relationship;
        case -32768:
            return ObjectKind::Form;
        case -32766:
            return ObjectKind::Macro;
        case -32764:
            return ObjectKind::Report;
        case -32761:
            return ObjectKind::Module;
        case -32756:
            return ObjectKind::Page;
        case 2:
        case 3:
        case -32757:
        case -32758:
            return {};
        default:
            return ObjectKind::Other;
    }
}

template <class Type>
Type Get(const Value& value) {
    const auto* held = std::get_if<Type>(&value);
    return held == nullptr ? Type() : *held;
}

/// Names that begin so are Access's own: of system tables, of what was deleted, of the queries
/// inside a form.
bool IsOwnName(std::string_view name) {
    return name.starts_with("MSys") || name.starts_with("~");
}

}  // namespace

std::vector<CatalogueEntry> ReadCatalogue(TableReader& tables) {
    const TableDefinition catalogue = tables.Definition(kCataloguePage);
    std::vector<CatalogueEntry> entries;
    tables.ReadRows(catalogue, CatalogueColumns(catalogue), [&](const Row& row) {
        const auto number = static_cast<std::uint32_t>(Get<std::int64_t>(row[0]));
        const auto name = Get<std::string>(row[1]);
        const auto kind = KindOf(Get<std::int64_t>(row[2]));
        const auto flags = static_cast<std::uint32_t>(Get<std::int64_t>(row[3]));
        if (kind && (flags & kSystemObject) == 0 && !IsOwnName(name)) {
            entries.push_back({{*kind, name}, number & kNumberBits});
        }
    });
    return entries;
}

}  // namespace quarnel02::jet
