#include <algorithm>
#include <optional>
#include <vector>

#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "sheets/ImportedCells.h"
#include "sheets/MatrixGrids.h"
#include "sheets/ModelSheets.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

namespace {

[[noreturn]] void ThrowMissing(const std::string& what) {
    throw RunTimeError(ErrorKind::NotAModel,
                       what + " Export a model to see what a workbook has to hold.");
}

const Sheet& RequiredSheet(const Workbook& workbook, const std::string& name) {
    if (const Sheet* sheet = FindSheet(workbook, name)) {
        return *sheet;
    }
    ThrowMissing("The workbook has no sheet " + name + ".");
}

/// Which column of the sheet each column of the table stands in, by the captions in the first line.
std::vector<std::size_t> ColumnsIn(const Sheet& sheet, std::span<const SheetColumn> columns) {
    const InputRow heading = sheet.Cells.empty() ? InputRow() : sheet.Cells.front();
    std::vector<std::size_t> places;
    for (const SheetColumn& column : columns) {
        const auto found = std::find_if(heading.begin(), heading.end(), [&](const Value& cell) {
            return SameName(CaptionIn(cell), column.Caption);
        });
        if (found == heading.end()) {
            ThrowMissing("Sheet " + sheet.Name + " has no column \"" + std::string(column.Caption) +
                         "\" in its first row.");
        }
        places.push_back(static_cast<std::size_t>(found - heading.begin()));
    }
    return places;
}

/// Whether no column of the table has anything in that line.
bool IsEmptyLine(const Sheet& sheet, std::size_t line, const std::vector<std::size_t>& places) {
    return std::all_of(places.begin(), places.end(),
                       [&](std::size_t place) { return IsNull(CellAt(sheet, line, place)); });
}

TableRows RowsIn(const Sheet& sheet, std::span<const SheetColumn> columns,
                 const TableRows& standing, Misfits& misfits) {
    const std::vector<std::size_t> places = ColumnsIn(sheet, columns);
    ImportedCells cells(sheet, misfits);
    TableRows rows;
    for (std::size_t line = 1; line < sheet.Cells.size(); ++line) {
        if (IsEmptyLine(sheet, line, places)) {
            continue;
        }
        const InputRow* stands = rows.size() < standing.size() ? &standing[rows.size()] : nullptr;
        InputRow row(columns.size());
        for (std::size_t place = 0; place < columns.size(); ++place) {
            const SheetColumn& column = columns[place];
            row.at(column.Place) =
                cells.Take({line, places[place]}, column,
                           stands == nullptr ? nullptr : &stands->at(column.Place));
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::size_t LineOf(const Sheet& general, const SheetColumn& column) {
    for (std::size_t line = 0; line < general.Cells.size(); ++line) {
        if (SameName(CaptionIn(CellAt(general, line, 0)), column.Caption)) {
            return line;
        }
    }
    ThrowMissing("Sheet " + general.Name + " has no line \"" + std::string(column.Caption) + "\".");
}

/// The number of rows that an empty count stands for.
std::optional<std::size_t> CountOf(const SheetColumn& column, const InputTables& tables) {
    if (column.Place == GenColumn::Tasks) {
        return tables.Tasks.size();
    }
    return column.Place == GenColumn::Resources ? std::optional(tables.Resources.size())
                                                : std::nullopt;
}

InputRow GeneralRow(const Sheet& general, const InputTables& tables, const TableRows& standing,
                    Misfits& misfits) {
    ImportedCells cells(general, misfits);
    InputRow row(GeneralColumns().size());
    for (const SheetColumn& column : GeneralColumns()) {
        const std::size_t line = LineOf(general, column);
        const auto count = CountOf(column, tables);
        if (count && IsBlank(CellAt(general, line, 1))) {
            row.at(column.Place) = static_cast<std::int64_t>(*count);
            continue;
        }
        row.at(column.Place) = cells.Take(
            {line, 1}, column, standing.empty() ? nullptr : &standing.front().at(column.Place));
    }
    return row;
}

}  // namespace

ModelOfSheets TablesOf(const Workbook& workbook, const InputTables& standing) {
    const Sheet& general = RequiredSheet(workbook, "General");
    const Sheet& matrix = RequiredSheet(workbook, "Matrix");
    ModelOfSheets model;
    InputTables& tables = model.Tables;
    tables.Tasks =
        RowsIn(RequiredSheet(workbook, "Tasks"), TaskColumns(), standing.Tasks, model.Refused);
    tables.Resources = RowsIn(RequiredSheet(workbook, "Resources"), ResourceColumns(),
                              standing.Resources, model.Refused);
    ImportedCells matrix_cells(matrix, model.Refused);
    tables.Matrix = MatrixRowsOf(matrix, standing.Matrix, matrix_cells);
    tables.Demand =
        RowsIn(RequiredSheet(workbook, "Demand"), DemandColumns(), standing.Demand, model.Refused);
    const Sheet* const scenarios = FindSheet(workbook, "Scenarios");
    tables.Scenarios = scenarios == nullptr ? standing.Scenarios
                                            : RowsIn(*scenarios, ScenarioColumns(),
                                                     standing.Scenarios, model.Refused);
    tables.Gen = {GeneralRow(general, tables, standing.Gen, model.Refused)};
    return model;
}

}  // namespace quarnel02
