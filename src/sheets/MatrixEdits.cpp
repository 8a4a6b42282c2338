#include <set>
#include <utility>

#include "sheets/BlockShape.h"
#include "sheets/CellEntry.h"
#include "sheets/FigureTexts.h"
#include "sheets/MatrixSheet.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

using Pair = std::pair<std::int64_t, std::int64_t>;  ///< task, resource

bool IsOf(const InputRow& row, const std::set<Pair>& pairs) {
    const auto task = NumberIn(row[MatrixColumn::TaskId]);
    const auto resource = NumberIn(row[MatrixColumn::ResourceId]);
    return task && resource && pairs.contains({*task, *resource});
}

/// Sets the cells of one block.
class PairSetter {
  public:
    PairSetter(InputTables tables, ShownFigure figure, DecimalSign sign)
        : m_figure(figure),
          m_sign(sign),
          m_places(tables.Matrix),
          m_tasks(PlacesByNumber(tables.Tasks)),
          m_resources(PlacesByNumber(tables.Resources)),
          m_matrix(tables.Matrix) {
        m_edit.Tables = std::move(tables);
    }

    void Set(std::size_t row, std::size_t column, const std::string& text);
    CellEdit Result();

  private:
    [[nodiscard]] bool Exists(std::size_t row, std::size_t column) const;
    [[nodiscard]] std::string CellName(std::size_t row, std::size_t column) const;
    void Refuse(std::size_t row, std::size_t column, const std::string& reason);
    [[nodiscard]] bool Enter(InputRow& pair, const FigureParts& parts, std::size_t row,
                             std::size_t column);
    void SetParts(std::size_t row, std::size_t column, const FigureParts& parts);

    ShownFigure m_figure;
    DecimalSign m_sign;
    PairPlaces m_places;
    std::map<std::int64_t, std::size_t> m_tasks;
    std::map<std::int64_t, std::size_t> m_resources;
    TableRows m_matrix;  ///< after the edit, but for the pairs to remove
    std::set<Pair> m_removed;
    CellEdit m_edit;
};

bool PairSetter::Exists(std::size_t row, std::size_t column) const {
    return row < m_edit.Tables.Tasks.size() && column < m_edit.Tables.Resources.size() &&
           m_tasks.contains(NumberAt(row)) && m_resources.contains(NumberAt(column));
}

/// "Task 3 (Mount impeller), resource 2 (Robot)".
std::string PairSetter::CellName(std::size_t row, std::size_t column) const {
    std::string name = "Task " + std::to_string(row + 1);
    if (const auto task = m_tasks.find(NumberAt(row)); task != m_tasks.end()) {
        name += NameInBrackets(m_edit.Tables.Tasks[task->second], RecordKind::Tasks);
    }
    name += ", resource " + std::to_string(column + 1);
    if (const auto resource = m_resources.find(NumberAt(column)); resource != m_resources.end()) {
        name += NameInBrackets(m_edit.Tables.Resources[resource->second], RecordKind::Resources);
    }
    return name;
}

void PairSetter::Refuse(std::size_t row, std::size_t column, const std::string& reason) {
    m_edit.Refused.Add({row, column, CellName(row, column) + ": " + reason});
}

/// Enters the parts into the pair's row; false when one of them does not fit.
bool PairSetter::Enter(InputRow& pair, const FigureParts& parts, std::size_t row,
                       std::size_t column) {
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (parts.at(part).empty()) {
            continue;
        }
        const SheetColumn& figure = FigureColumns()[part];
        CellEntry entry = EnteredCell(figure, parts.at(part), m_sign);
        if (!entry.Objection.empty()) {
            Refuse(row, column, entry.Objection);
            return false;
        }
        pair[figure.Place] = std::move(entry.Content);
    }
    return true;
}

void PairSetter::SetParts(std::size_t row, std::size_t column, const FigureParts& parts) {
    const auto place = m_places.Find(NumberAt(row), NumberAt(column));
    InputRow pair = place ? m_matrix[*place]
                          : InputRow{NumberAt(column), NumberAt(row), 0.0, std::int64_t{0}, 0.0};
    if (!Enter(pair, parts, row, column)) {
        return;
    }
    ++m_edit.Cells;
    if (place) {
        m_matrix[*place] = std::move(pair);
    } else {
        m_matrix.push_back(std::move(pair));
    }
}

void PairSetter::Set(std::size_t row, std::size_t column, const std::string& text) {
    const auto parts = PartsOf(text, m_figure);
    const bool nothing = parts == FigureParts();
    const bool blank = IsBlankText(text);
    if (!Exists(row, column)) {
        if (!blank) {
            Refuse(row, column, "the model has no such task or resource.");
        }
    } else if (!parts) {
        Refuse(row, column, "\"" + text + "\" has more than time, tool number and tool cost.");
    } else if (!nothing) {
        SetParts(row, column, *parts);
    } else if (blank && (m_figure == ShownFigure::Time || m_figure == ShownFigure::AllThree)) {
        ++m_edit.Cells;
        m_removed.insert({NumberAt(row), NumberAt(column)});
    }
}

CellEdit PairSetter::Result() {
    if (!m_edit.Refused.IsEmpty()) {
        m_edit.Cells = 0;
        return std::move(m_edit);
    }
    std::erase_if(m_matrix, [&](const InputRow& row) { return IsOf(row, m_removed); });
    m_edit.Tables.Matrix = std::move(m_matrix);
    return std::move(m_edit);
}

}  // namespace

CellEdit SetMatrixCells(InputTables tables, ShownFigure figure, std::size_t row, std::size_t column,
                        const TextBlock& block) {
    PairSetter setter(std::move(tables), figure, DecimalSignOf(block, figure));
    for (std::size_t down = 0; down < block.size(); ++down) {
        for (std::size_t across = 0; across < block[down].size(); ++across) {
            setter.Set(row + down, column + across, block[down][across]);
        }
    }
    return setter.Result();
}

CellEdit ClearMatrixCells(InputTables tables, const CellRange& range) {
    const PairPlaces places(tables.Matrix);
    std::set<Pair> pairs;
    for (std::size_t row = range.Row; row < range.Row + range.Rows; ++row) {
        for (std::size_t column = range.Column; column < range.Column + range.Columns; ++column) {
            if (places.Find(NumberAt(row), NumberAt(column))) {
                pairs.insert({NumberAt(row), NumberAt(column)});
            }
        }
    }
    std::erase_if(tables.Matrix, [&](const InputRow& row) { return IsOf(row, pairs); });
    return {std::move(tables), pairs.size(), {}};
}

}  // namespace quarnel02
