#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "basic/RunTimeError.h"
#include "model/Schema.h"
#include "sheets/MatrixGrids.h"
#include "sheets/MatrixSheet.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kFirstValueColumn = 2;
constexpr std::size_t kOrderColumn = 5;
constexpr double kLast = std::numeric_limits<double>::infinity();

/// A row of Matrix, and the place that the sheet gives it.
struct Placed {
    InputRow Fields;
    double Order = kLast;
};

bool IsBlankRow(const InputRow& row) {
    return std::all_of(row.begin(), row.end(), IsBlank);
}

class GridReader {
  public:
    GridReader(const Sheet& sheet, const TableRows& standing, ImportedCells& cells)
        : m_sheet(sheet), m_standing(standing), m_places(standing), m_cells(cells) {}

    TableRows Read();

  private:
    [[nodiscard]] std::optional<std::size_t> LineOf(std::string_view caption) const;
    [[nodiscard]] std::size_t RequiredLineOf(std::string_view caption) const;

    /// Calls take(place, resource, task) for each cell of a grid that is not empty.
    template <class Take>
    void ReadGrid(std::size_t heading, const Take& take);
    [[nodiscard]] bool IsHeading(std::size_t line) const;
    /// The lines of the grid or list that begins there, without its names and blank lines.
    [[nodiscard]] std::vector<std::size_t> LinesBehind(std::size_t heading) const;
    using Numbers = std::vector<std::optional<std::int64_t>>;
    Numbers ResourcesIn(std::size_t heading);
    void ReadFigures(const SheetColumn& figure);
    void ReadOrder(std::size_t heading);
    void ReadFurther(std::size_t heading);
    void ReadFurtherRow(std::size_t line);

    [[nodiscard]] const Value* StandingFigure(const InputRow& row, std::size_t place) const;
    InputRow& PairRow(std::int64_t resource, std::int64_t task);

    const Sheet& m_sheet;
    const TableRows& m_standing;
    PairPlaces m_places;
    ImportedCells& m_cells;
    std::map<std::pair<std::int64_t, std::int64_t>, Placed> m_pairs;  ///< resource, task
    std::vector<Placed> m_further;
};

std::optional<std::size_t> GridReader::LineOf(std::string_view caption) const {
    for (std::size_t line = 0; line < m_sheet.Cells.size(); ++line) {
        if (SameName(CaptionIn(CellAt(m_sheet, line, 0)), caption)) {
            return line;
        }
    }
    return std::nullopt;
}

std::size_t GridReader::RequiredLineOf(std::string_view caption) const {
    if (const auto line = LineOf(caption)) {
        return *line;
    }
    throw RunTimeError(ErrorKind::NotAModel,
                       "Sheet " + m_sheet.Name + " has no grid \"" + std::string(caption) +
                           "\" in its first column. Export a model to see how it is laid out.");
}

/// Whether a grid or the list begins in that line.
bool GridReader::IsHeading(std::size_t line) const {
    const std::string caption = CaptionIn(CellAt(m_sheet, line, 0));
    const auto figures = FigureColumns();
    return SameName(caption, kOrderCaption) || SameName(caption, kFurtherCaption) ||
           std::any_of(figures.begin(), figures.end(), [&](const SheetColumn& figure) {
               return SameName(caption, figure.Caption);
           });
}

std::vector<std::size_t> GridReader::LinesBehind(std::size_t heading) const {
    std::vector<std::size_t> lines;
    for (std::size_t line = heading + 1; line < m_sheet.Cells.size() && !IsHeading(line); ++line) {
        const bool names = line == heading + 1 && !CaptionIn(CellAt(m_sheet, line, 0)).empty();
        if (!names && !IsBlankRow(m_sheet.Cells[line])) {
            lines.push_back(line);
        }
    }
    return lines;
}

GridReader::Numbers GridReader::ResourcesIn(std::size_t heading) {
    Numbers resources(m_sheet.Cells[heading].size());
    for (std::size_t column = kFirstValueColumn; column < resources.size(); ++column) {
        resources[column] = NumberIn(m_cells.TakeWhole({heading, column}, "resource"));
    }
    return resources;
}

template <class Take>
void GridReader::ReadGrid(std::size_t heading, const Take& take) {
    const Numbers resources = ResourcesIn(heading);
    for (const std::size_t line : LinesBehind(heading)) {
        const auto task = NumberIn(m_cells.TakeWhole({line, 0}, "task"));
        for (std::size_t column = kFirstValueColumn; column < m_sheet.Cells[line].size();
             ++column) {
            if (IsBlank(CellAt(m_sheet, line, column))) {
                continue;
            }
            const auto resource = column < resources.size() ? resources[column] : std::nullopt;
            if (task && resource) {
                take(CellPlace{line, column}, *resource, *task);
            } else {
                m_cells.Refuse({line, column}, "the grid has no task or no resource number there.");
            }
        }
    }
}

InputRow& GridReader::PairRow(std::int64_t resource, std::int64_t task) {
    const auto [pair, added] = m_pairs.try_emplace({resource, task});
    if (added) {
        pair->second.Fields = {resource, task, 0.0, std::int64_t{0}, 0.0};
    }
    return pair->second.Fields;
}

/// The field at `place` of the standing row of the same pair.
const Value* GridReader::StandingFigure(const InputRow& row, std::size_t place) const {
    const auto resource = NumberIn(row[MatrixColumn::ResourceId]);
    const auto task = NumberIn(row[MatrixColumn::TaskId]);
    const auto standing = resource && task ? m_places.Find(*task, *resource) : std::nullopt;
    return standing ? &m_standing[*standing][place] : nullptr;
}

void GridReader::ReadFigures(const SheetColumn& figure) {
    std::set<std::pair<std::int64_t, std::int64_t>> seen;
    ReadGrid(RequiredLineOf(figure.Caption),
             [&](CellPlace place, std::int64_t resource, std::int64_t task) {
                 if (!seen.emplace(resource, task).second) {
                     m_cells.Refuse(place, "the grid has this task and resource twice.");
                     return;
                 }
                 InputRow& row = PairRow(resource, task);
                 row[figure.Place] = m_cells.Take(place, figure, StandingFigure(row, figure.Place));
             });
}

void GridReader::ReadOrder(std::size_t heading) {
    ReadGrid(heading, [&](CellPlace place, std::int64_t resource, std::int64_t task) {
        const auto pair = m_pairs.find({resource, task});
        const auto order = NumberIn(m_cells.TakeWhole(place, kOrderCaption));
        if (pair != m_pairs.end() && order) {
            pair->second.Order = static_cast<double>(*order);
        }
    });
}

/// What is no whole pair may lack anything; the check of the model says what that means.
void GridReader::ReadFurtherRow(std::size_t line) {
    Placed placed{{m_cells.TakeWhole({line, 0}, "resource"), m_cells.TakeWhole({line, 1}, "task")},
                  kLast};
    const auto order = NumberIn(m_cells.TakeWhole({line, kOrderColumn}, kOrderCaption));
    placed.Order = order ? static_cast<double>(*order) : kLast;
    const bool stands = order && *order > 0 && *order <= std::ssize(m_standing);
    for (const SheetColumn& figure : FigureColumns()) {
        const CellPlace place{line, figure.Place};
        const Value* standing =
            stands ? &m_standing[static_cast<std::size_t>(*order - 1)][figure.Place] : nullptr;
        placed.Fields.push_back(IsBlank(CellAt(m_sheet, line, figure.Place))
                                    ? Value()
                                    : m_cells.Take(place, figure, standing));
    }
    m_further.push_back(std::move(placed));
}

void GridReader::ReadFurther(std::size_t heading) {
    for (const std::size_t line : LinesBehind(heading)) {
        ReadFurtherRow(line);
    }
}

TableRows GridReader::Read() {
    for (const SheetColumn& figure : FigureColumns()) {
        ReadFigures(figure);
    }
    if (const auto line = LineOf(kOrderCaption)) {
        ReadOrder(*line);
    }
    if (const auto line = LineOf(kFurtherCaption)) {
        ReadFurther(*line);
    }
    std::vector<Placed> all;
    for (auto& [pair, placed] : m_pairs) {
        all.push_back(std::move(placed));
    }
    std::move(m_further.begin(), m_further.end(), std::back_inserter(all));
    std::stable_sort(all.begin(), all.end(),
                     [](const Placed& a, const Placed& b) { return a.Order < b.Order; });
    TableRows rows;
    for (Placed& placed : all) {
        rows.push_back(std::move(placed.Fields));
    }
    return rows;
}

}  // namespace

TableRows MatrixRowsOf(const Sheet& sheet, const TableRows& standing, ImportedCells& cells) {
    return GridReader(sheet, standing, cells).Read();
}

}  // namespace quarnel02
