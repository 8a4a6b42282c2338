#include "sheets/ChangeName.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <functional>
#include <numeric>
#include <string_view>

#include "sheets/SheetColumns.h"
#include "sheets/UndoStack.h"

namespace quarnel02 {

namespace {

/// A table as menus name it.
struct NamedTable {
    TableRows InputTables::*Rows;
    std::string_view Record;
    bool Numbered;  ///< a single record is named by its place
};

/// The first that has changed gives the name: matrix rows follow tasks and resources.
constexpr std::array kTables = {NamedTable{&InputTables::Tasks, "task", true},
                                NamedTable{&InputTables::Resources, "resource", true},
                                NamedTable{&InputTables::Matrix, "matrix cell", false},
                                NamedTable{&InputTables::Demand, "demand row", false},
                                NamedTable{&InputTables::Scenarios, "scenario", false}};

/// The rows that are not the same from the front nor from the back.
struct ChangedRows {
    std::size_t First = 0;
    std::size_t Before = 0;  ///< how many there were
    std::size_t After = 0;   ///< how many there are
};

ChangedRows ChangesOf(const TableRows& before, const TableRows& after) {
    const auto front =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end()).first;
    const auto first = static_cast<std::size_t>(front - before.begin());
    const std::size_t shared = std::min(before.size(), after.size()) - first;
    std::size_t back = 0;
    while (back < shared && before[before.size() - 1 - back] == after[after.size() - 1 - back]) {
        ++back;
    }
    return {first, before.size() - first - back, after.size() - first - back};
}

std::string Counted(std::string_view verb, std::size_t count, const NamedTable& table,
                    std::size_t first) {
    if (count != 1) {
        return StepName(verb, count, table.Record);
    }
    std::string name = std::string(verb) + " " + std::string(table.Record);
    return table.Numbered ? name + " " + std::to_string(first + 1) : name;
}

std::string RowsName(const NamedTable& table, const TableRows& before, const TableRows& after) {
    const ChangedRows rows = ChangesOf(before, after);
    if (after.size() > before.size()) {
        return Counted("Add", after.size() - before.size(), table, rows.First);
    }
    if (after.size() < before.size()) {
        return Counted("Delete", before.size() - after.size(), table, rows.First);
    }
    const auto same = static_cast<std::size_t>(std::inner_product(
        before.begin(), before.end(), after.begin(), 0, std::plus<>(), std::equal_to<>()));
    return Counted("Change", before.size() - same, table, rows.First);
}

bool IsTotal(const SheetColumn& column) {
    return column.Place == GenColumn::Tasks || column.Place == GenColumn::Resources;
}

/// "Annual capital factor (ACF)" and "Labour cost ($/h)" without what stands in brackets.
std::string InText(std::string_view caption) {
    std::string text(caption.substr(0, caption.find(" (")));
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text;
}

std::string ParametersName(const TableRows& before, const TableRows& after) {
    if (before.size() != 1 || after.size() != 1) {
        return before == after ? "" : "Change parameters";
    }
    std::string name;
    for (const SheetColumn& column : GeneralColumns()) {
        if (!IsTotal(column) && before[0].at(column.Place) != after[0].at(column.Place)) {
            name = name.empty() ? "Change " + InText(column.Caption) : "Change parameters";
        }
    }
    return name;
}

}  // namespace

std::string ChangeName(const InputTables& before, const InputTables& after) {
    for (const NamedTable& table : kTables) {
        if (before.*table.Rows != after.*table.Rows) {
            return RowsName(table, before.*table.Rows, after.*table.Rows);
        }
    }
    return ParametersName(before.Gen, after.Gen);
}

}  // namespace quarnel02
