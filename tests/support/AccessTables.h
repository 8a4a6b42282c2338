#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "jet/ReadTables.h"
#include "jet/Writer.h"
#include "model/Schema.h"

namespace quarnel02::test {

using Tables = std::vector<jet::NewTable>;

/// The tables of an Access database of a model, to be changed and written again.
inline Tables TablesIn(const std::filesystem::path& file) {
    jet::Reader reader(file, "line.mdb");
    Tables tables;
    for (const TableSchema& schema : ModelSchema()) {
        auto [columns, rows] = jet::ReadWhole(reader, schema.Name);
        tables.push_back({std::string(schema.Name), columns, rows});
    }
    return tables;
}

inline jet::NewTable& Named(Tables& tables, std::string_view name) {
    return *std::find_if(tables.begin(), tables.end(),
                         [&](const jet::NewTable& each) { return each.Name == name; });
}

}  // namespace quarnel02::test
