#include "jet/WriteCatalogue.h"

#include <array>

#include "basic/RunTimeError.h"
#include "jet/EncodeRow.h"
#include "jet/IndexLeaf.h"
#include "jet/SystemTables.h"
#include "jet/WriteUsageMap.h"

namespace quarnel02::jet {

namespace {

constexpr std::int32_t kRoot = 0x0F000000;
constexpr std::int32_t kTables = 0x0F000001;
constexpr std::int32_t kDatabases = 0x0F000002;
constexpr std::int32_t kRelations = 0x0F000003;
constexpr std::int32_t kDatabase = 0x10000000;

constexpr int kTableType = 1;
constexpr int kDatabaseType = 2;
constexpr int kContainerType = 3;

constexpr std::uint32_t kSystemFlag = 0x80000000;
constexpr std::int32_t kAllRights = 0xFFFFF;

const std::string kEngine = "\xA7\x31";
const std::string kAdmin = "\xA6\x33";
const std::string kUsers = "\xA7\x33";

constexpr unsigned kUniqueIndex = 0x81;
constexpr unsigned kPlainIndex = 0x82;
constexpr unsigned kRequiredIndex = 0x88;

/// A system table and what it consists of.
struct SystemTable {
    std::size_t Page;
    std::vector<WrittenColumn> Columns;
    std::size_t RowsPage;  ///< 0 for none
    std::size_t Rows;
    std::vector<WrittenIndex> Indices;
};

std::uint32_t AddMap(WrittenPages& pages, const std::vector<std::size_t>& marked) {
    return pages.AddRow(kSystemMaps, EncodeUsageMap(pages, marked));
}

void WriteSystemTable(WrittenPages& pages, SystemTable table) {
    std::vector<std::size_t> rows;
    if (table.RowsPage != 0) {
        rows.push_back(table.RowsPage);
    }
    const std::uint32_t used = AddMap(pages, rows);
    const std::uint32_t free = AddMap(pages, rows);
    std::vector<std::uint32_t> long_values;
    for (const WrittenColumn& column : table.Columns) {
        if (column.Type == TypeCode::Memo || column.Type == TypeCode::Ole) {
            long_values.push_back(AddMap(pages, {}));
            AddMap(pages, {});
        }
    }
    for (WrittenIndex& index : table.Indices) {
        index.UsageMap = AddMap(pages, {index.Leaf});
    }
    pages.Put(table.Page, EncodeDefinition({.Columns = table.Columns,
                                            .Indices = table.Indices,
                                            .System = true,
                                            .Rows = table.Rows,
                                            .UsedPages = used,
                                            .FreePages = free,
                                            .LongValuePages = long_values}));
}

std::uint32_t AddRow(WrittenPages& pages, std::size_t page, const std::string& row) {
    if (!pages.HasRoom(page, row.size())) {
        throw RunTimeError(ErrorKind::SubscriptOutOfRange,
                           "An Access database cannot hold the model: there are too many tables.");
    }
    return pages.AddRow(page, row);
}

}  // namespace

WrittenCatalogue::WrittenCatalogue(double created) : m_created(created) {
    const auto container = [&](std::int32_t id, const char* name, std::int32_t rights) {
        m_objects.push_back(
            {id, kRoot, name, kContainerType, kEngine, kSystemFlag, rights, rights == kAllRights});
    };
    const auto table = [&](std::size_t page, const char* name, std::int32_t rights) {
        m_objects.push_back({static_cast<std::int32_t>(page), kTables, name, kTableType, kEngine,
                             kSystemFlag, rights, false});
    };
    container(kTables, "Tables", kAllRights);
    container(kDatabases, "Databases", 0x60000);
    container(kRelations, "Relationships", kAllRights);
    m_objects.push_back(
        {kDatabase, kDatabases, "MSysDb", kDatabaseType, kAdmin, kSystemFlag, 0x6000E, false});
    table(kObjects, "MSysObjects", 0x60014);
    table(kPermissions, "MSysACEs", 0x60000);
    table(kQueries, "MSysQueries", 0x60014);
    table(kRelationships, "MSysRelationships", 0xE0014);
}

void WrittenCatalogue::AddTable(const std::string& name, std::size_t page) {
    m_objects.push_back(
        {static_cast<std::int32_t>(page), kTables, name, kTableType, kAdmin, 0, kAllRights, false});
}

Row WrittenCatalogue::ObjectRow(const Object& object) const {
    Row row(ObjectColumns().size());
    const auto flags = static_cast<std::int32_t>(object.Flags);
    const std::array<Value, 8> values = {std::int64_t{object.Id},
                                         std::int64_t{object.Parent},
                                         object.Name,
                                         std::int64_t{object.Type},
                                         m_created,
                                         m_created,
                                         object.Owner,
                                         std::int64_t{flags}};
    std::copy(values.begin(), values.end(), row.begin());
    return row;
}

void WrittenCatalogue::WriteObjects(WrittenPages& pages) const {
    const auto columns = ObjectColumns();
    RowEncoder rows("MSysObjects", columns, false);
    std::vector<std::string> by_name;
    std::vector<std::string> by_id;
    pages.StartRows(kObjectRows, kObjects);
    for (const Object& object : m_objects) {
        const auto pointer = AddRow(pages, kObjectRows, rows.Encode(ObjectRow(object)));
        AppendKey(by_name.emplace_back(), object.Parent);
        AppendKey(by_name.back(), object.Name);
        AppendRowPointer(by_name.back(), pointer);
        AppendKey(by_id.emplace_back(), object.Id);
        AppendRowPointer(by_id.back(), pointer);
    }
    pages.Put(kFirstLeaf, EncodeIndexLeaf(kObjects, by_name));
    pages.Put(kFirstLeaf + 1, EncodeIndexLeaf(kObjects, by_id));
    WriteSystemTable(pages, {kObjects,
                             columns,
                             kObjectRows,
                             m_objects.size(),
                             {{"ParentIdName", {1, 2}, kUniqueIndex, false, kFirstLeaf, 0},
                              {"Id", {0}, kUniqueIndex, true, kFirstLeaf + 1, 0}}});
}

void WrittenCatalogue::WritePermissions(WrittenPages& pages) const {
    const auto columns = PermissionColumns();
    RowEncoder rows("MSysACEs", columns, false);
    std::vector<std::string> keys;
    pages.StartRows(kPermissionRows, kPermissions);
    for (const Object& object : m_objects) {
        for (const std::string& user : {kAdmin, kUsers}) {
            const Row row = {std::int64_t{object.Id}, user, std::int64_t{object.Rights},
                             std::int64_t{object.Inheritable}};
            const auto pointer = AddRow(pages, kPermissionRows, rows.Encode(row));
            AppendKey(keys.emplace_back(), object.Id);
            AppendRowPointer(keys.back(), pointer);
        }
    }
    constexpr std::size_t leaf = kFirstLeaf + 2;
    pages.Put(leaf, EncodeIndexLeaf(kPermissions, keys));
    WriteSystemTable(pages, {kPermissions,
                             columns,
                             kPermissionRows,
                             2 * m_objects.size(),
                             {{"ObjectId", {0}, kRequiredIndex, false, leaf, 0}}});
}

void WrittenCatalogue::Write(WrittenPages& pages) const {
    constexpr std::size_t query_leaf = kFirstLeaf + 3;
    constexpr std::size_t relation_leaf = query_leaf + 1;
    pages.StartRows(kSystemMaps, 0);
    WriteObjects(pages);
    WritePermissions(pages);
    pages.Put(query_leaf, EncodeIndexLeaf(kQueries, {}));
    WriteSystemTable(pages,
                     {kQueries,
                      QueryColumns(),
                      0,
                      0,
                      {{"ObjectIdAttribute", {0, 1, 2}, kUniqueIndex, true, query_leaf, 0}}});
    for (std::size_t i = 0; i < 3; ++i) {
        pages.Put(relation_leaf + i, EncodeIndexLeaf(kRelationships, {}));
    }
    WriteSystemTable(pages,
                     {kRelationships,
                      RelationshipColumns(),
                      0,
                      0,
                      {{"szRelationship", {0}, kPlainIndex, false, relation_leaf, 0},
                       {"szObject", {4}, kPlainIndex, false, relation_leaf + 1, 0},
                       {"szReferencedObject", {6}, kPlainIndex, false, relation_leaf + 2, 0}}});
}

}  // namespace quarnel02::jet
