#include <optional>

#include "sheets/NumberedRows.h"
#include "sheets/RecordOrder.h"

namespace quarnel02 {

namespace {

using NumberedPlaces = std::map<std::int64_t, std::size_t>;

std::optional<std::size_t> OwnerOf(const NumberedPlaces& places, std::int64_t number) {
    const auto found = places.find(number);
    return found == places.end() ? std::nullopt : std::optional(found->second);
}

/// The place before the deletion of the record that bears the number after it.
std::optional<std::size_t> HeirOf(std::int64_t number, std::size_t place, std::size_t records) {
    if (records == 1) {
        return number == 1 ? std::optional(place) : std::nullopt;
    }
    const auto now = static_cast<std::size_t>(number) - 1;
    if (number < 1 || now + 1 >= records) {
        return std::nullopt;
    }
    return now < place ? now : now + 1;
}

}  // namespace

DeletionEffect EffectOfDeletion(const InputTables& tables, RecordKind kind, std::size_t place) {
    const TableRows& records = RowsOf(tables, kind);
    const NumberedPlaces places = PlacesByNumber(records);
    DeletionEffect effect;
    for (const InputRow& row : tables.Matrix) {
        const auto number = NumberIn(row[MatrixPlaceOf(kind)]);
        if (!number) {
            continue;
        }
        const auto owner = OwnerOf(places, *number);
        const auto heir = HeirOf(*number, place, records.size());
        effect.OwnRows += owner == place ? 1U : 0U;
        effect.Lost += owner && !heir ? 1U : 0U;
        effect.ChangeOwner += heir && heir != owner ? 1U : 0U;
    }
    return effect;
}

}  // namespace quarnel02
