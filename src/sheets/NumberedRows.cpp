#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

const std::string kBlanks = "   ";

InputRow NewResource(std::int64_t number) {
    constexpr double whole_uptime = 100;
    return {number, kBlanks, kBlanks, std::int64_t{0}, 0.0, 0.0, whole_uptime, 1.0, 1.0, 1.0};
}

/// The row of Gen, which is made when there is none.
InputRow& GenRow(InputTables& tables) {
    if (tables.Gen.empty()) {
        tables.Gen.push_back({std::int64_t{0}, std::int64_t{0}, 0.0, 0.0, 0.0, 0.0, 0.0, {}});
    }
    return tables.Gen.front();
}

}  // namespace

TableRows& RowsOf(InputTables& tables, RecordKind kind) {
    return kind == RecordKind::Tasks ? tables.Tasks : tables.Resources;
}

const TableRows& RowsOf(const InputTables& tables, RecordKind kind) {
    return kind == RecordKind::Tasks ? tables.Tasks : tables.Resources;
}

std::size_t MatrixPlaceOf(RecordKind kind) {
    return kind == RecordKind::Tasks ? MatrixColumn::TaskId : MatrixColumn::ResourceId;
}

InputRow NewRecord(RecordKind kind, std::size_t number) {
    const auto id = static_cast<std::int64_t>(number);
    return kind == RecordKind::Tasks ? InputRow{id, kBlanks} : NewResource(id);
}

std::string NameInBrackets(const InputRow& record, RecordKind kind) {
    const Value& field = kind == RecordKind::Tasks ? record[TaskColumn::Description]
                                                   : record[ResourceColumn::ShortName];
    const auto* name = std::get_if<std::string>(&field);
    const auto first = name == nullptr ? std::string::npos : name->find_first_not_of(' ');
    return first == std::string::npos
               ? ""
               : " (" + name->substr(first, name->find_last_not_of(' ') - first + 1) + ")";
}

std::optional<std::int64_t> NumberIn(const Value& value) {
    const auto* number = std::get_if<std::int64_t>(&value);
    return number == nullptr ? std::nullopt : std::optional(*number);
}

std::map<std::int64_t, std::size_t> PlacesByNumber(const TableRows& records) {
    std::map<std::int64_t, std::size_t> places;
    for (std::size_t place = 0; place < records.size(); ++place) {
        if (const auto number = NumberIn(records[place][kNumberPlace])) {
            places.emplace(*number, place);
        }
    }
    return places;
}

void CountRecords(InputTables& tables) {
    InputRow& gen = GenRow(tables);
    gen[GenColumn::Tasks] = static_cast<std::int64_t>(tables.Tasks.size());
    gen[GenColumn::Resources] = static_cast<std::int64_t>(tables.Resources.size());
}

}  // namespace quarnel02
