#include "sheets/ImportPreview.h"

#include <algorithm>
#include <map>
#include <utility>

#include "basic/OneLine.h"
#include "sheets/FigureTexts.h"
#include "sheets/NumberedRows.h"
#include "sheets/SheetColumns.h"

namespace quarnel02 {

namespace {

std::string InQuotes(const SheetColumn& column, const Value& value) {
    const std::string text = OneLine(ShownText(column, value));
    const bool words = std::holds_alternative<std::string>(value);
    return words ? "\"" + text + "\"" : (text.empty() ? "nothing" : text);
}

/// Collects the differences of two models.
class Comparison {
  public:
    Comparison(const InputTables& before, const InputTables& after)
        : m_before(before), m_after(after) {}

    ImportPreview Result();

  private:
    using Pairs =
        std::map<std::pair<std::int64_t, std::int64_t>, const InputRow*>;  ///< task, resource

    void Add(std::string difference);
    void CompareFields(const std::string& name, std::span<const SheetColumn> columns,
                       const InputRow& before, const InputRow& after);
    /// A row that is new or removed shows its column `named`.
    void CompareRows(const std::string& kind, std::span<const SheetColumn> columns,
                     std::size_t named, TableRows InputTables::*rows);
    static Pairs PairsOf(const TableRows& matrix);
    void ComparePair(const std::string& name, const InputRow* before, const InputRow* after);
    void CompareMatrix();

    const InputTables& m_before;
    const InputTables& m_after;
    ImportPreview m_preview;
};

void Comparison::Add(std::string difference) {
    ++m_preview.Differences;
    if (m_preview.First.size() < ImportPreview::kShown) {
        m_preview.First.push_back(std::move(difference));
    }
}

void Comparison::CompareFields(const std::string& name, std::span<const SheetColumn> columns,
                               const InputRow& before, const InputRow& after) {
    for (const SheetColumn& column : columns) {
        const Value& old_value = before.at(column.Place);
        const Value& new_value = after.at(column.Place);
        if (old_value != new_value) {
            Add(name + std::string(column.Caption) + ": " + InQuotes(column, old_value) +
                " becomes " + InQuotes(column, new_value) + ".");
        }
    }
}

void Comparison::CompareRows(const std::string& kind, std::span<const SheetColumn> columns,
                             std::size_t named, TableRows InputTables::*rows) {
    const TableRows& before = m_before.*rows;
    const TableRows& after = m_after.*rows;
    const auto text = [&](const InputRow& row) {
        return InQuotes(columns[named], row.at(columns[named].Place)) + ".";
    };
    for (std::size_t place = 0; place < std::max(before.size(), after.size()); ++place) {
        const std::string name = kind + " " + std::to_string(place + 1);
        if (place >= before.size()) {
            Add(name + " is new: " + text(after[place]));
        } else if (place >= after.size()) {
            Add(name + " is removed: " + text(before[place]));
        } else {
            CompareFields(name + ", ", columns, before[place], after[place]);
        }
    }
}

Comparison::Pairs Comparison::PairsOf(const TableRows& matrix) {
    Pairs pairs;
    for (const InputRow& row : matrix) {
        const auto task = NumberIn(row[MatrixColumn::TaskId]);
        const auto resource = NumberIn(row[MatrixColumn::ResourceId]);
        if (task && resource) {
            pairs.emplace(std::pair(*task, *resource), &row);
        }
    }
    return pairs;
}

void Comparison::ComparePair(const std::string& name, const InputRow* before,
                             const InputRow* after) {
    const auto text = [](const InputRow* row) { return FigureText(*row, ShownFigure::AllThree); };
    if (before == nullptr) {
        Add(name + " is new: " + text(after) + ".");
    } else if (after == nullptr) {
        Add(name + " is removed: " + text(before) + ".");
    } else if (*before != *after) {
        Add(name + ": " + text(before) + " becomes " + text(after) + ".");
    }
}

void Comparison::CompareMatrix() {
    const std::size_t others = m_preview.Differences;
    const Pairs before = PairsOf(m_before.Matrix);
    const Pairs after = PairsOf(m_after.Matrix);
    Pairs all = before;
    all.insert(after.begin(), after.end());
    for (const auto& [pair, row] : all) {
        const auto old_row = before.find(pair);
        const auto new_row = after.find(pair);
        ComparePair(
            "Task " + std::to_string(pair.first) + ", resource " + std::to_string(pair.second),
            old_row == before.end() ? nullptr : old_row->second,
            new_row == after.end() ? nullptr : new_row->second);
    }
    if (others == m_preview.Differences && m_before.Matrix != m_after.Matrix) {
        Add("The rows of the matrix stand in another order, or some of them twice.");
    }
}

ImportPreview Comparison::Result() {
    m_preview.Counts = {{"tasks", m_before.Tasks.size(), m_after.Tasks.size()},
                        {"resources", m_before.Resources.size(), m_after.Resources.size()},
                        {"matrix cells", m_before.Matrix.size(), m_after.Matrix.size()},
                        {"demand rows", m_before.Demand.size(), m_after.Demand.size()}};
    if (!m_before.Gen.empty() && !m_after.Gen.empty()) {
        CompareFields("", GeneralColumns(), m_before.Gen.front(), m_after.Gen.front());
    }
    constexpr std::size_t description = 1;
    CompareRows("Task", TaskColumns(), description, &InputTables::Tasks);
    CompareRows("Resource", ResourceColumns(), description, &InputTables::Resources);
    CompareMatrix();
    CompareRows("Demand row", DemandColumns(), 0, &InputTables::Demand);
    CompareRows("Scenario", ScenarioColumns(), 0, &InputTables::Scenarios);
    return std::move(m_preview);
}

}  // namespace

std::string ImportPreview::Text() const {
    std::string text;
    for (const Count& count : Counts) {
        text += std::to_string(count.Before) + " " + count.What;
        text +=
            count.After == count.Before ? ".\n" : " become " + std::to_string(count.After) + ".\n";
    }
    text += First.empty() ? "" : "\n";
    for (const std::string& difference : First) {
        text += difference + "\n";
    }
    const std::size_t more = Differences - First.size();
    if (more > 0) {
        text += "And " + std::to_string(more) +
                (more == 1 ? " more difference.\n" : " more differences.\n");
    }
    return text;
}

ImportPreview PreviewOf(const InputTables& before, const InputTables& after) {
    return Comparison(before, after).Result();
}

}  // namespace quarnel02
