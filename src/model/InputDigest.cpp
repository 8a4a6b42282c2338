#include "model/InputDigest.h"

#include <bit>
#include <string>
#include <string_view>

#include "basic/Digest.h"
#include "model/ScenariosTable.h"
#include "model/Schema.h"

namespace quarnel02 {

namespace {

/// The alternative is part of the value: Null, 0 and "0" differ.
void Add(Digest& digest, const Value& value) {
    digest.Add(std::uint64_t{value.index()});
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        digest.Add(static_cast<std::uint64_t>(*whole));
    } else if (const auto* real = std::get_if<double>(&value)) {
        digest.Add(std::bit_cast<std::uint64_t>(*real));
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        digest.Add(std::uint64_t{text->size()});
        digest.Add(std::string_view(*text));
    }
}

void AddRows(Digest& digest, RecordSet& rows, const TableSchema& table) {
    digest.Add(static_cast<std::uint64_t>(rows.RecordCount()));
    for (; !rows.Eof(); rows.MoveNext()) {
        for (int column = 0; column < std::ssize(table.Columns); ++column) {
            Add(digest, rows.Field(column));
        }
    }
}

Digest DigestOfLine(const Database& database) {
    Digest digest;
    for (const std::string table : {"Gen", "Tasks", "Resources", "Matrix", "Demand"}) {
        RecordSet rows = database.OpenRecordSet("SELECT * FROM " + table + ";");
        AddRows(digest, rows, *FindTable(table));
    }
    return digest;
}

}  // namespace

std::uint64_t DesignDigest(const Database& database) {
    return DigestOfLine(database).Result();
}

std::uint64_t InputDigest(const Database& database) {
    Digest digest = DigestOfLine(database);
    if (HasScenarios(database)) {
        RecordSet rows = database.OpenRecordSet("SELECT * FROM Scenarios;");
        if (!rows.Eof()) {  // without any the digest is that of older versions
            AddRows(digest, rows, ScenariosSchema());
        }
    }
    return digest.Result();
}

}  // namespace quarnel02
