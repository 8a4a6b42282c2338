#include "sheets/RecordCells.h"

#include <algorithm>
#include <utility>

#include "sheets/BlockShape.h"
#include "sheets/CellEntry.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

/// "Row 3", "Row 3 (Mount impeller)".
std::string RowName(const InputTables& tables, RecordKind kind, std::size_t row) {
    return "Row " + std::to_string(row + 1) + NameInBrackets(RowsOf(tables, kind)[row], kind);
}

std::string Outside(const InputTables& tables, RecordKind kind, std::size_t row,
                    std::size_t column) {
    const std::size_t rows = RowsOf(tables, kind).size();
    if (row >= rows) {
        return "Row " + std::to_string(row + 1) + ": the sheet has " + std::to_string(rows) + " " +
               std::string(NameOf(kind)) + "s.";
    }
    return RowName(tables, kind, row) + ", column " + std::to_string(column + 1) +
           ": the sheet has " + std::to_string(ColumnsOf(kind).size()) + " columns.";
}

/// Sets the cells of one block.
class RecordSetter {
  public:
    RecordSetter(InputTables tables, RecordKind kind) : m_kind(kind), m_rows(RowsOf(tables, kind)) {
        m_edit.Tables = std::move(tables);
    }

    void Set(std::size_t row, std::size_t column, const std::string& text, DecimalSign sign);
    CellEdit Result();

  private:
    RecordKind m_kind;
    CellEdit m_edit;
    TableRows m_rows;  ///< after the edit
};

void RecordSetter::Set(std::size_t row, std::size_t column, const std::string& text,
                       DecimalSign sign) {
    const auto columns = ColumnsOf(m_kind);
    if (row >= m_rows.size() || column >= columns.size()) {
        if (!IsBlankText(text)) {
            m_edit.Refused.Add({row, column, Outside(m_edit.Tables, m_kind, row, column)});
        }
        return;
    }
    CellEntry entry = EnteredCell(columns[column], text, sign);
    if (!entry.Objection.empty()) {
        m_edit.Refused.Add({row, column,
                            RowName(m_edit.Tables, m_kind, row) + ", " +
                                std::string(columns[column].Caption) + ": " + entry.Objection});
        return;
    }
    m_rows[row][columns[column].Place] = std::move(entry.Content);
    ++m_edit.Cells;
}

CellEdit RecordSetter::Result() {
    if (m_edit.Refused.IsEmpty()) {
        RowsOf(m_edit.Tables, m_kind) = std::move(m_rows);
    } else {
        m_edit.Cells = 0;
    }
    return std::move(m_edit);
}

/// Calls `visit` for the cells of the range that the sheet has.
template <class Visit>
void ForCells(const InputTables& tables, RecordKind kind, const CellRange& range,
              const Visit& visit) {
    const std::size_t end_row = std::min(range.Row + range.Rows, RowsOf(tables, kind).size());
    const std::size_t end_column = std::min(range.Column + range.Columns, ColumnsOf(kind).size());
    for (std::size_t row = range.Row; row < end_row; ++row) {
        for (std::size_t column = range.Column; column < end_column; ++column) {
            visit(row, column);
        }
    }
}

}  // namespace

TextBlock RecordTexts(const InputTables& tables, RecordKind kind, const CellRange& range) {
    TextBlock block;
    ForCells(tables, kind, range, [&](std::size_t row, std::size_t column) {
        block.resize(row - range.Row + 1);
        const SheetColumn& field = ColumnsOf(kind)[column];
        block.back().push_back(ShownText(field, RowsOf(tables, kind)[row][field.Place]));
    });
    return block;
}

CellEdit SetRecordCells(InputTables tables, RecordKind kind, std::size_t row, std::size_t column,
                        const TextBlock& block) {
    RecordSetter setter(std::move(tables), kind);
    const DecimalSign sign = DecimalSignOf(block);
    for (std::size_t down = 0; down < block.size(); ++down) {
        for (std::size_t across = 0; across < block[down].size(); ++across) {
            setter.Set(row + down, column + across, block[down][across], sign);
        }
    }
    return setter.Result();
}

CellEdit ClearRecordCells(InputTables tables, RecordKind kind, const CellRange& range) {
    CellEdit edit{std::move(tables), 0, {}};
    TableRows& rows = RowsOf(edit.Tables, kind);
    const InputRow empty = NewRecord(kind, 0);
    ForCells(edit.Tables, kind, range, [&](std::size_t row, std::size_t column) {
        const std::size_t place = ColumnsOf(kind)[column].Place;
        if (place != kNumberPlace) {
            const bool text = std::holds_alternative<std::string>(empty[place]);
            rows[row][place] = text ? Value(std::string()) : empty[place];
            ++edit.Cells;
        }
    });
    return edit;
}

std::size_t MissingRecords(const InputTables& tables, RecordKind kind, std::size_t row,
                           const TextBlock& block) {
    const std::size_t present = RowsOf(tables, kind).size();
    const std::size_t end = row + FilledSize(block).Rows;
    return end - std::min(end, present);
}

}  // namespace quarnel02
