#include "model/Schema.h"

#include <sqlite3.h>

#include <algorithm>

namespace quarnel02 {

namespace {

constexpr auto kInteger = FieldType::Integer;
constexpr auto kReal = FieldType::Real;
constexpr auto kSingle = FieldType::Single;
constexpr auto kText = FieldType::Text;

}  // namespace

const std::vector<TableSchema>& ModelSchema() {
    static const std::vector<TableSchema> schema = {
        {"Gen",
         {{"Resources", kInteger},
          {"Tasks", kInteger},
          {"Days", kReal},
          {"ACF", kReal},
          {"LaborCost", kReal},
          {"TransportTime", kReal},
          {"Penalty", kReal},
          {"Product", kText}}},
        {"Tasks", {{"TaskId", kInteger}, {"Description", kText}}},
        {"Resources",
         {{"ResourceId", kInteger},
          {"ShortName", kText},
          {"Description", kText},
          {"Type", kInteger},
          {"FixedCost", kReal},
          {"VarCost", kReal},
          {"UpTime", kReal},
          {"ICF", kReal},
          {"ToolChange", kReal},
          {"StatPerWrk", kReal}}},
        {"Matrix",
         {{"ResourceId", kInteger},
          {"TaskId", kInteger},
          {"TaskTime", kReal},
          {"ToolNum", kInteger},
          {"ToolCost", kReal}}},
        {"Demand", {{"Volume", kSingle}, {"Prob", kSingle}}},
        {"Arcs",
         {{"ArcId", kInteger},
          {"TaskStart", kInteger},
          {"TaskEnd", kInteger},
          {"Midpoint", kReal},
          {"Radius", kReal},
          {"Start", kReal},
          {"End", kReal}}},
        {"Pathways",
         {{"PathId", kInteger},
          {"ArcId", kInteger},
          {"ResourceId", kInteger},
          {"Feasible", kInteger},
          {"Cost", kReal},
          {"Time", kReal},
          {"Stations", kInteger},
          {"Investment", kReal},
          {"AnnualLabor", kReal}}},
        {"BestPaths",
         {{"ThisPath", kInteger},
          {"PathId", kInteger},
          {"SubPath", kInteger},
          {"PathCost", kReal}}},
    };
    return schema;
}

const TableSchema& ScenariosSchema() {
    static const TableSchema schema = {"Scenarios", {{"Name", kText}, {"Differences", kText}}};
    return schema;
}

std::vector<std::string_view> NamesOf(const TableSchema& table) {
    std::vector<std::string_view> names;
    for (const ColumnSchema& column : table.Columns) {
        names.push_back(column.Name);
    }
    return names;
}

const TableSchema* FindTable(std::string_view name) {
    const auto& schema = ModelSchema();
    const auto table = std::find_if(schema.begin(), schema.end(), [&](const TableSchema& each) {
        return SameName(each.Name, name);
    });
    if (table != schema.end()) {
        return &*table;
    }
    return SameName(ScenariosSchema().Name, name) ? &ScenariosSchema() : nullptr;
}

FieldType TypeOfColumn(const TableSchema* table, std::string_view column) {
    if (table == nullptr) {
        return kText;
    }
    const auto found =
        std::find_if(table->Columns.begin(), table->Columns.end(),
                     [&](const ColumnSchema& each) { return SameName(each.Name, column); });
    return found == table->Columns.end() ? kText : found->Type;
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           sqlite3_strnicmp(a.data(), b.data(), static_cast<int>(a.size())) == 0;
}

}  // namespace quarnel02
