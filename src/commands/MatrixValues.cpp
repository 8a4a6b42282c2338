#include "commands/MatrixValues.h"

#include <cmath>
#include <utility>

#include "basic/Counted.h"
#include "basic/Numbers.h"
#include "sheets/BlockShape.h"
#include "sheets/RecordOrder.h"
#include "sheets/UndoStack.h"

namespace quarnel02 {

namespace {

TaskResource PairAt(std::size_t row, std::size_t column) {
    return {static_cast<std::int16_t>(row + 1), static_cast<std::int16_t>(column + 1)};
}

InputTables WithMissing(InputTables tables, const MissingPairs& missing) {
    if (missing.Tasks > 0) {
        tables = AddRecords(std::move(tables), RecordKind::Tasks, missing.Tasks).Tables;
    }
    if (missing.Resources > 0) {
        tables = AddRecords(std::move(tables), RecordKind::Resources, missing.Resources).Tables;
    }
    return tables;
}

/// To at most two decimals.
std::string ShortNumber(double number) {
    constexpr double hundred = 100;
    return NumberText(std::round(number * hundred) / hundred);
}

}  // namespace

void MatrixValues::Load() {
    Take(ReadInputTables(m_form.OpenWorkingCopy()));
}

void MatrixValues::Take(InputTables tables) {
    m_sheet.reset();
    m_tables = std::move(tables);
    m_sheet.emplace(m_tables);
}

PairLook MatrixValues::Look(int row, int column) const {
    const auto r = static_cast<std::size_t>(row);
    const auto c = static_cast<std::size_t>(column);
    const TaskResource pair = PairAt(r, c);
    if (!m_cells.Exists(pair)) {
        return PairLook::Absent;
    }
    const PairState state = m_sheet->State(r, c);
    if (m_cells.IsTurned(pair)) {
        return m_cells.IsMarked(pair) ? PairLook::Marked : PairLook::Leaving;
    }
    return state == PairState::Can      ? PairLook::Can
           : state == PairState::Cannot ? PairLook::Cannot
                                        : PairLook::Empty;
}

std::string MatrixValues::Text(int row, int column) const {
    return m_sheet->Text(static_cast<std::size_t>(row), static_cast<std::size_t>(column), m_figure);
}

TextBlock MatrixValues::Texts(const CellRange& range) const {
    return m_sheet->Texts(range, m_figure);
}

std::string MatrixValues::TimesIn(const CellRange& range) const {
    const MatrixSheet::TimeSum sum = m_sheet->TimesIn(range);
    if (sum.Pairs < 2) {
        return {};
    }
    return Counted(sum.Pairs, "cell") + ": " + ShortNumber(sum.Seconds) + " s in all, mean " +
           ShortNumber(sum.Seconds / static_cast<double>(sum.Pairs));
}

std::string MatrixValues::MissingFor(std::size_t row, std::size_t column,
                                     const TextBlock& block) const {
    const MissingPairs missing = MissingForMatrix(m_tables, row, column, block);
    std::string text = missing.Tasks > 0 ? Counted(missing.Tasks, "task") : "";
    if (missing.Resources > 0) {
        text += (text.empty() ? "" : " and ") + Counted(missing.Resources, "resource");
    }
    return text;
}

Misfits MatrixValues::Type(std::size_t row, std::size_t column, const std::string& text) {
    const TextBlock block{{text}};
    CellEdit edit =
        SetMatrixCells(ReadInputTables(m_form.OpenWorkingCopy()), m_figure, row, column, block);
    if (edit.Refused.IsEmpty()) {
        Store(edit, "Edit " + m_cells.PairName(PairAt(row, column)));
        Settle(m_figure, row, column, block);
    }
    return edit.Refused;
}

Misfits MatrixValues::Set(std::string_view verb, std::size_t row, std::size_t column,
                          const TextBlock& block) {
    InputTables tables = ReadInputTables(m_form.OpenWorkingCopy());
    const MissingPairs missing = MissingForMatrix(tables, row, column, block);
    CellEdit edit =
        SetMatrixCells(WithMissing(std::move(tables), missing), m_figure, row, column, block);
    if (edit.Refused.IsEmpty()) {
        Store(edit, StepName(verb, edit.Cells, "cell"));
        Settle(m_figure, row, column, block);
    }
    return edit.Refused;
}

void MatrixValues::Clear(std::string_view verb, const CellRange& range) {
    CellEdit edit = ClearMatrixCells(ReadInputTables(m_form.OpenWorkingCopy()), range);
    Store(edit, StepName(verb, edit.Cells, "cell"));
    const TextBlock nothing(range.Rows, std::vector<std::string>(range.Columns));
    Settle(ShownFigure::AllThree, range.Row, range.Column, nothing);
}

void MatrixValues::Store(CellEdit& edit, std::string step) {
    WriteInputTables(m_form.OpenWorkingCopy(), edit.Tables);
    const bool grown = edit.Tables.Tasks.size() != m_tables.Tasks.size() ||
                       edit.Tables.Resources.size() != m_tables.Resources.size();
    Take(std::move(edit.Tables));
    m_lastStep = std::move(step);
    if (grown) {
        m_cells.Reload();
        m_form.SetText(TextBox::txtTasks, std::to_string(m_tables.Tasks.size()));
        m_form.SetText(TextBox::txtResources, std::to_string(m_tables.Resources.size()));
    }
}

void MatrixValues::Settle(ShownFigure figure, std::size_t row, std::size_t column,
                          const TextBlock& block) {
    const bool blanks_remove = figure == ShownFigure::Time || figure == ShownFigure::AllThree;
    for (std::size_t down = 0; down < block.size(); ++down) {
        for (std::size_t across = 0; across < block[down].size(); ++across) {
            const TaskResource pair = PairAt(row + down, column + across);
            if (pair.Task > m_cells.Tasks() || pair.Resource > m_cells.Resources()) {
                continue;
            }
            const PairState state = m_sheet->State(row + down, column + across);
            const bool says_nothing =
                IsBlankText(block[down][across]) ? !blanks_remove : state == PairState::Missing;
            if (!says_nothing) {
                m_cells.Settle(pair, state == PairState::Can, state == PairState::Cannot);
            }
        }
    }
}

}  // namespace quarnel02
