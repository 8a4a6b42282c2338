#include "sheets/MatrixSheet.h"

#include <algorithm>

#include "sheets/BlockShape.h"
#include "sheets/FigureTexts.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

bool IsAboveZero(const Value& value) {
    const auto* number = std::get_if<double>(&value);
    return number != nullptr && *number > 0;
}

}  // namespace

PairPlaces::PairPlaces(const TableRows& matrix) {
    for (std::size_t place = 0; place < matrix.size(); ++place) {
        const auto task = NumberIn(matrix[place][MatrixColumn::TaskId]);
        const auto resource = NumberIn(matrix[place][MatrixColumn::ResourceId]);
        if (task && resource) {
            m_places.emplace(std::pair(*task, *resource), place);
        }
    }
}

std::optional<std::size_t> PairPlaces::Find(std::int64_t task, std::int64_t resource) const {
    const auto found = m_places.find({task, resource});
    return found == m_places.end() ? std::nullopt : std::optional(found->second);
}

const InputRow* MatrixSheet::RowOf(std::size_t row, std::size_t column) const {
    const auto place = m_places.Find(NumberAt(row), NumberAt(column));
    return place ? &m_tables.Matrix[*place] : nullptr;
}

PairState MatrixSheet::State(std::size_t row, std::size_t column) const {
    const InputRow* pair = RowOf(row, column);
    if (pair == nullptr) {
        return PairState::Missing;
    }
    return IsAboveZero((*pair)[MatrixColumn::TaskTime]) ? PairState::Can : PairState::Cannot;
}

std::string MatrixSheet::Text(std::size_t row, std::size_t column, ShownFigure figure) const {
    const InputRow* pair = RowOf(row, column);
    return pair == nullptr ? "" : FigureText(*pair, figure);
}

TextBlock MatrixSheet::Texts(const CellRange& range, ShownFigure figure) const {
    TextBlock block;
    const std::size_t end_row = std::min(range.Row + range.Rows, Rows());
    const std::size_t end_column = std::min(range.Column + range.Columns, Columns());
    for (std::size_t row = range.Row; row < end_row && range.Column < end_column; ++row) {
        auto& texts = block.emplace_back();
        for (std::size_t column = range.Column; column < end_column; ++column) {
            texts.push_back(Text(row, column, figure));
        }
    }
    return block;
}

MatrixSheet::TimeSum MatrixSheet::TimesIn(const CellRange& range) const {
    TimeSum sum;
    for (std::size_t row = range.Row; row < range.Row + range.Rows; ++row) {
        for (std::size_t column = range.Column; column < range.Column + range.Columns; ++column) {
            if (State(row, column) == PairState::Can) {
                ++sum.Pairs;
                sum.Seconds += std::get<double>((*RowOf(row, column))[MatrixColumn::TaskTime]);
            }
        }
    }
    return sum;
}

MissingPairs MissingForMatrix(const InputTables& tables, std::size_t row, std::size_t column,
                              const TextBlock& block) {
    const std::size_t end = column + FilledSize(block).Columns;
    return {MissingRecords(tables, RecordKind::Tasks, row, block),
            end - std::min(end, tables.Resources.size())};
}

}  // namespace quarnel02
