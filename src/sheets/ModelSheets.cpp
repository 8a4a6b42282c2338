#include "sheets/ModelSheets.h"

#include <utility>

#include "sheets/MatrixGrids.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

namespace {

/// Types of equipment are written by their labels, all else as it is.
Value Cell(const SheetColumn& column, const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value);
    const std::string shown = ShownText(column, value);
    return whole != nullptr && shown != std::to_string(*whole) ? Value(shown) : value;
}

Sheet TableSheet(std::string name, std::span<const SheetColumn> columns, const TableRows& rows) {
    Sheet sheet{std::move(name), {}, {}};
    InputRow& heading = sheet.Cells.emplace_back();
    for (const SheetColumn& column : columns) {
        heading.emplace_back(std::string(column.Caption));
    }
    for (const InputRow& row : rows) {
        InputRow& cells = sheet.Cells.emplace_back();
        for (const SheetColumn& column : columns) {
            cells.push_back(Cell(column, row.at(column.Place)));
        }
    }
    return sheet;
}

/// Has the spreadsheet program count the rows of a sheet.
void CountRows(Sheet& general, std::size_t line, std::string_view sheet, std::size_t rows) {
    Value& cell = general.Cells[line][1];
    if (cell == Value(static_cast<std::int64_t>(rows))) {
        cell = Value();
        general.Formulas[{line, 1}] = {"=COUNT(" + std::string(sheet) + "!A2:A32768)",
                                       static_cast<double>(rows)};
    }
}

Sheet GeneralSheet(const InputTables& tables) {
    Sheet sheet{"General", {}, {}};
    for (const SheetColumn& column : GeneralColumns()) {
        const Value value = tables.Gen.empty() ? Value() : tables.Gen.front().at(column.Place);
        sheet.Cells.push_back({std::string(column.Caption), value});
        const std::size_t line = sheet.Cells.size() - 1;
        if (column.Place == GenColumn::Tasks) {
            CountRows(sheet, line, "Tasks", tables.Tasks.size());
        } else if (column.Place == GenColumn::Resources) {
            CountRows(sheet, line, "Resources", tables.Resources.size());
        }
    }
    return sheet;
}

}  // namespace

Workbook SheetsOf(const InputTables& tables) {
    Workbook workbook = {GeneralSheet(tables), TableSheet("Tasks", TaskColumns(), tables.Tasks),
                         TableSheet("Resources", ResourceColumns(), tables.Resources),
                         MatrixSheetOf(tables),
                         TableSheet("Demand", DemandColumns(), tables.Demand)};
    if (!tables.Scenarios.empty()) {
        workbook.push_back(TableSheet("Scenarios", ScenarioColumns(), tables.Scenarios));
    }
    return workbook;
}

}  // namespace quarnel02
