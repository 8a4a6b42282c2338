#include "sheets/MatrixGrids.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <vector>

#include "basic/Limits.h"
#include "basic/RunTimeError.h"
#include "sheets/NumberedRows.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

namespace {

using PairNumbers = std::pair<std::int64_t, std::int64_t>;  ///< resource, task

/// The rows of a matrix as the sheet shows them.
class GridLayout {
  public:
    explicit GridLayout(const TableRows& matrix);

    /// Place in Matrix of the row that a grid shows of a pair.
    [[nodiscard]] const std::map<PairNumbers, std::size_t>& Pairs() const { return m_pairs; }
    [[nodiscard]] const std::vector<std::size_t>& Further() const { return m_further; }
    [[nodiscard]] bool NeedsOrder() const;

  private:
    std::map<PairNumbers, std::size_t> m_pairs;
    std::vector<std::size_t> m_further;
};

bool IsWholePair(const InputRow& row) {
    return std::none_of(row.begin(), row.end(), IsNull);
}

GridLayout::GridLayout(const TableRows& matrix) {
    for (std::size_t place = 0; place < matrix.size(); ++place) {
        const auto resource = NumberIn(matrix[place][MatrixColumn::ResourceId]);
        const auto task = NumberIn(matrix[place][MatrixColumn::TaskId]);
        if (!IsWholePair(matrix[place]) ||
            !m_pairs.emplace(PairNumbers(*resource, *task), place).second) {
            m_further.push_back(place);
        }
    }
}

bool GridLayout::NeedsOrder() const {
    std::size_t next = 0;
    const bool in_order = std::all_of(m_pairs.begin(), m_pairs.end(),
                                      [&](const auto& pair) { return pair.second == next++; });
    return !in_order || !m_further.empty();
}

/// Numbers of all records of a kind that have a row, or a row of Matrix.
std::set<std::int64_t> NumbersOf(const InputTables& tables, RecordKind kind) {
    std::set<std::int64_t> numbers;
    const auto add = [&](const Value& value) {
        if (const auto number = NumberIn(value)) {
            numbers.insert(*number);
        }
    };
    for (const InputRow& record : RowsOf(tables, kind)) {
        add(record[kNumberPlace]);
    }
    for (const InputRow& row : tables.Matrix) {
        add(row[MatrixPlaceOf(kind)]);
    }
    return numbers;
}

/// Writes the grids one below the other.
class GridWriter {
  public:
    explicit GridWriter(const InputTables& tables)
        : m_tables(tables),
          m_layout(tables.Matrix),
          m_taskNumbers(NumbersOf(tables, RecordKind::Tasks)),
          m_resourceNumbers(NumbersOf(tables, RecordKind::Resources)),
          m_tasks(PlacesByNumber(tables.Tasks)),
          m_resources(PlacesByNumber(tables.Resources)) {}

    Sheet Write();

  private:
    template <class CellOf>
    void WriteGrid(std::string_view caption, const CellOf& cellOf);
    void WriteHeadings(std::string_view caption);
    void WriteFurther();
    void RequireRoom() const;

    const InputTables& m_tables;
    GridLayout m_layout;
    std::set<std::int64_t> m_taskNumbers;
    std::set<std::int64_t> m_resourceNumbers;
    std::map<std::int64_t, std::size_t> m_tasks;
    std::map<std::int64_t, std::size_t> m_resources;
    Sheet m_sheet{"Matrix", {}, {}};
};

void GridWriter::WriteHeadings(std::string_view caption) {
    InputRow numbers = {std::string(caption), std::string("Resource")};
    InputRow names = {std::string("Task"), Value()};
    for (const std::int64_t number : m_resourceNumbers) {
        numbers.emplace_back(number);
        const auto place = m_resources.find(number);
        names.push_back(place == m_resources.end()
                            ? Value()
                            : m_tables.Resources[place->second][ResourceColumn::ShortName]);
    }
    m_sheet.Cells.push_back(std::move(numbers));
    m_sheet.Cells.push_back(std::move(names));
}

template <class CellOf>
void GridWriter::WriteGrid(std::string_view caption, const CellOf& cellOf) {
    WriteHeadings(caption);
    for (const std::int64_t task : m_taskNumbers) {
        const auto place = m_tasks.find(task);
        InputRow& cells = m_sheet.Cells.emplace_back();
        cells.emplace_back(task);
        cells.push_back(place == m_tasks.end()
                            ? Value()
                            : m_tables.Tasks[place->second][TaskColumn::Description]);
        for (const std::int64_t resource : m_resourceNumbers) {
            const auto pair = m_layout.Pairs().find({resource, task});
            cells.push_back(pair == m_layout.Pairs().end() ? Value() : cellOf(pair->second));
        }
    }
    m_sheet.Cells.emplace_back();
}

void GridWriter::WriteFurther() {
    m_sheet.Cells.push_back({std::string(kFurtherCaption)});
    InputRow heading = {std::string("Resource"), std::string("Task")};
    for (const SheetColumn& figure : FigureColumns()) {
        heading.emplace_back(std::string(figure.Caption));
    }
    heading.emplace_back(std::string(kOrderCaption));
    m_sheet.Cells.push_back(std::move(heading));
    for (const std::size_t place : m_layout.Further()) {
        InputRow cells = m_tables.Matrix[place];
        cells.emplace_back(static_cast<std::int64_t>(place) + 1);
        m_sheet.Cells.push_back(std::move(cells));
    }
}

/// The grids take a cell for each task on each resource, pair or not.
void GridWriter::RequireRoom() const {
    if (m_taskNumbers.size() * m_resourceNumbers.size() > limits::kPairs) {
        throw RunTimeError(ErrorKind::Overflow,
                           "The model has too many tasks and resources for a workbook: at most "
                           "200,000 pairs of them have room.");
    }
}

Sheet GridWriter::Write() {
    RequireRoom();
    for (const SheetColumn& figure : FigureColumns()) {
        WriteGrid(figure.Caption,
                  [&](std::size_t place) { return m_tables.Matrix[place][figure.Place]; });
    }
    if (m_layout.NeedsOrder()) {
        WriteGrid(kOrderCaption,
                  [](std::size_t place) { return Value(static_cast<std::int64_t>(place) + 1); });
    }
    if (!m_layout.Further().empty()) {
        WriteFurther();
    }
    return std::move(m_sheet);
}

}  // namespace

Sheet MatrixSheetOf(const InputTables& tables) {
    return GridWriter(tables).Write();
}

}  // namespace quarnel02
