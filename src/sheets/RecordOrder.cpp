#include "sheets/RecordOrder.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "basic/Limits.h"
#include "basic/RunTimeError.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

/// A record of the new order.
struct Entry {
    InputRow Record;
    std::optional<std::size_t> Origin;  ///< place of the record whose matrix rows it gets
    bool Selected = false;              ///< the change is about it
};
using Entries = std::vector<Entry>;

std::set<std::size_t> Selection(const TableRows& records, const Places& places) {
    std::set<std::size_t> selection(places.begin(), places.end());
    selection.erase(selection.lower_bound(records.size()), selection.end());
    return selection;
}

Entries EntriesOf(const TableRows& records, const std::set<std::size_t>& selection) {
    Entries entries;
    for (std::size_t place = 0; place < records.size(); ++place) {
        entries.push_back({records[place], place, selection.contains(place)});
    }
    return entries;
}

void RequireRoom(std::size_t count) {
    if (count > limits::kResources) {
        throw RunTimeError(ErrorKind::Overflow,
                           "A model can have at most 32,767 tasks and as many resources.");
    }
}

/// Brings the matrix rows of one kind of records into line with a new order of them.
class MatrixFollower {
  public:
    MatrixFollower(const TableRows& before, const Entries& after)
        : m_places(PlacesByNumber(before)), m_heirs(before.size()), m_free(after.size() + 1) {
        for (std::size_t place = 0; place < after.size(); ++place) {
            if (after[place].Origin) {
                m_heirs[*after[place].Origin].push_back(static_cast<std::int64_t>(place) + 1);
            }
        }
    }

    /// The rows under their new numbers; `place` is that of the number in a row.
    TableRows Follow(const TableRows& matrix, std::size_t place);

  private:
    /// Of the record that bore the number; none when no record did.
    [[nodiscard]] std::optional<std::size_t> PlaceBefore(std::optional<std::int64_t> number) const;
    void RenumberOrphans(const TableRows& matrix, std::size_t place);

    std::map<std::int64_t, std::size_t> m_places;
    std::vector<std::vector<std::int64_t>> m_heirs;  ///< new numbers, by the place before
    std::size_t m_free;                              ///< first number that no record bears
    std::map<std::int64_t, std::int64_t> m_orphans;  ///< numbers without a record: old to new
};

std::optional<std::size_t> MatrixFollower::PlaceBefore(std::optional<std::int64_t> number) const {
    const auto found = m_places.find(number.value_or(0));
    if (!number || found == m_places.end()) {
        return std::nullopt;
    }
    return found->second;
}

/// No record may inherit the rows of a number that no record bore.
void MatrixFollower::RenumberOrphans(const TableRows& matrix, std::size_t place) {
    for (const InputRow& row : matrix) {
        const auto number = NumberIn(row[place]);
        if (number && *number > 0 && !m_places.contains(*number)) {
            m_orphans.emplace(*number, 0);
        }
    }
    auto next = static_cast<std::int64_t>(m_free);
    for (auto& [before, after] : m_orphans) {
        after = std::max(before, next);
        next = after + 1;
        RequireRoom(static_cast<std::size_t>(after));
    }
}

TableRows MatrixFollower::Follow(const TableRows& matrix, std::size_t place) {
    RenumberOrphans(matrix, place);
    TableRows kept;
    TableRows copies;
    for (InputRow row : matrix) {
        const auto number = NumberIn(row[place]);
        const auto owner = PlaceBefore(number);
        if (!owner) {
            if (number && m_orphans.contains(*number)) {
                row[place] = m_orphans.at(*number);
            }
            kept.push_back(std::move(row));
            continue;
        }
        bool first = true;
        for (const std::int64_t heir : m_heirs[*owner]) {
            row[place] = heir;
            (std::exchange(first, false) ? kept : copies).push_back(row);
        }
    }
    std::move(copies.begin(), copies.end(), std::back_inserter(kept));
    return kept;
}

Reordered Arranged(InputTables tables, RecordKind kind, Entries entries) {
    RequireRoom(entries.size());
    TableRows& records = RowsOf(tables, kind);
    tables.Matrix = MatrixFollower(records, entries).Follow(tables.Matrix, MatrixPlaceOf(kind));
    records.clear();
    Places now;
    for (Entry& entry : entries) {
        if (entry.Selected) {
            now.push_back(records.size());
        }
        entry.Record[kNumberPlace] = static_cast<std::int64_t>(records.size()) + 1;
        records.push_back(std::move(entry.Record));
    }
    CountRecords(tables);
    return {std::move(tables), std::move(now)};
}

/// Lets each selected entry change places with the one in front of it, unless that is selected.
template <class Iterator>
void MoveForward(Iterator begin, Iterator end) {
    if (begin == end) {
        return;
    }
    for (auto entry = std::next(begin); entry != end; ++entry) {
        const auto before = std::prev(entry);
        if (entry->Selected && !before->Selected) {
            std::iter_swap(before, entry);
        }
    }
}

}  // namespace

Reordered InsertRecords(InputTables tables, RecordKind kind, std::size_t place, std::size_t count) {
    RequireRoom(count);
    const TableRows& records = RowsOf(tables, kind);
    Entries entries = EntriesOf(records, {});
    const auto at = static_cast<std::ptrdiff_t>(std::min(place, entries.size()));
    const Entry added{NewRecord(kind, 0), std::nullopt, true};
    entries.insert(entries.begin() + at, count, added);
    return Arranged(std::move(tables), kind, std::move(entries));
}

Reordered AddRecords(InputTables tables, RecordKind kind, std::size_t count) {
    const std::size_t end = RowsOf(tables, kind).size();
    return InsertRecords(std::move(tables), kind, end, count);
}

Reordered DuplicateRecords(InputTables tables, RecordKind kind, const Places& places) {
    const TableRows& records = RowsOf(tables, kind);
    const auto selection = Selection(records, places);
    Entries entries = EntriesOf(records, {});
    Entries copies;
    for (const std::size_t place : selection) {
        copies.push_back({records[place], place, true});
    }
    const std::size_t behind = selection.empty() ? 0 : *selection.rbegin() + 1;
    entries.insert(entries.begin() + static_cast<std::ptrdiff_t>(behind), copies.begin(),
                   copies.end());
    return Arranged(std::move(tables), kind, std::move(entries));
}

Reordered DeleteRecords(InputTables tables, RecordKind kind, const Places& places) {
    const TableRows& records = RowsOf(tables, kind);
    const auto selection = Selection(records, places);
    Entries entries = EntriesOf(records, selection);
    std::erase_if(entries, [](const Entry& entry) { return entry.Selected; });
    if (entries.empty() && !records.empty()) {
        entries.push_back({NewRecord(kind, 1), std::nullopt, false});
    }
    if (!selection.empty()) {
        entries[std::min(*selection.begin(), entries.size() - 1)].Selected = true;
    }
    return Arranged(std::move(tables), kind, std::move(entries));
}

Reordered MoveRecordsUp(InputTables tables, RecordKind kind, const Places& places) {
    const TableRows& records = RowsOf(tables, kind);
    Entries entries = EntriesOf(records, Selection(records, places));
    MoveForward(entries.begin(), entries.end());
    return Arranged(std::move(tables), kind, std::move(entries));
}

Reordered MoveRecordsDown(InputTables tables, RecordKind kind, const Places& places) {
    const TableRows& records = RowsOf(tables, kind);
    Entries entries = EntriesOf(records, Selection(records, places));
    MoveForward(entries.rbegin(), entries.rend());
    return Arranged(std::move(tables), kind, std::move(entries));
}

}  // namespace quarnel02
