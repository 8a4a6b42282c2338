#include "studies/ScenarioSheet.h"

#include <QFont>
#include <algorithm>
#include <utility>

#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kScenarioColumn = ScenarioSheet::kTyped;
constexpr int kColumns = 2;

}  // namespace

void ScenarioSheet::SetScenario(DesignOrder base, std::vector<Difference> differences) {
    m_base = std::move(base);
    m_rows = PossibleDifferences(m_base.Model);
    m_differences = std::move(differences);
    Show(static_cast<int>(m_rows.size()), kColumns);
}

void ScenarioSheet::Clear() {
    m_rows.clear();
    m_differences.clear();
    Show(0, kColumns);
}

const Difference* ScenarioSheet::DifferenceAt(std::size_t row) const {
    const auto place =
        std::find_if(m_differences.begin(), m_differences.end(),
                     [&](const Difference& each) { return SameTarget(each, m_rows[row]); });
    return place == m_differences.end() ? nullptr : &*place;
}

TextBlock ScenarioSheet::CopyBlock(const CellRange& range) const {
    TextBlock block;
    for (std::size_t row = range.Row; row < std::min(range.Row + range.Rows, m_rows.size());
         ++row) {
        auto& texts = block.emplace_back();
        for (std::size_t column = range.Column;
             column < std::min<std::size_t>(range.Column + range.Columns, kColumns); ++column) {
            texts.push_back(Text(static_cast<int>(row), static_cast<int>(column)).toStdString());
        }
    }
    return block;
}

void ScenarioSheet::SetCell(const BlockEdit& edit, std::size_t row, std::size_t column,
                            std::vector<Difference>& differences, Misfits& refused) const {
    const std::string& text = edit.Block[row][column];
    const std::size_t sheet_row = edit.Row + row;
    const std::size_t sheet_column = edit.Column + column;
    if (sheet_row >= m_rows.size() || sheet_column != kScenarioColumn) {
        if (text.find_first_not_of(" \t") != std::string::npos) {
            refused.Add({sheet_row, sheet_column,
                         "\"" + text + "\" stands outside of the column Scenario."});
        }
        return;
    }
    try {
        differences = WithDifference(std::move(differences), m_rows[sheet_row],
                                     DifferenceOfCell(m_base.Model, m_rows[sheet_row], text));
    } catch (const RunTimeError& error) {
        refused.Add({sheet_row, sheet_column, error.what()});
    }
}

Misfits ScenarioSheet::SetBlock(const BlockEdit& edit) {
    std::vector<Difference> differences = m_differences;
    Misfits refused;
    for (std::size_t row = 0; row < edit.Block.size(); ++row) {
        for (std::size_t column = 0; column < edit.Block[row].size(); ++column) {
            SetCell(edit, row, column, differences, refused);
        }
    }
    if (refused.IsEmpty() && differences != m_differences) {
        emit Changed(differences);
    }
    return refused;
}

Misfits ScenarioSheet::ClearBlock(std::string_view verb, const CellRange& range) {
    if (range.Column > kScenarioColumn || range.Column + range.Columns <= kScenarioColumn) {
        return {};
    }
    return SetBlock({verb, range.Row, kScenarioColumn, TextBlock(range.Rows, {std::string()})});
}

Qt::ItemFlags ScenarioSheet::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = SheetModel::flags(index);
    return index.column() == static_cast<int>(kScenarioColumn)
               ? flags
               : flags & ~Qt::ItemFlags(Qt::ItemIsEditable);
}

QVariant ScenarioSheet::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    return SheetModel::data(index, role);
}

QVariant ScenarioSheet::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::FontRole && orientation == Qt::Vertical &&
        static_cast<std::size_t>(section) < m_rows.size() &&
        DifferenceAt(static_cast<std::size_t>(section)) != nullptr) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    return SheetModel::headerData(section, orientation, role);
}

QString ScenarioSheet::Text(int row, int column) const {
    const auto place = static_cast<std::size_t>(row);
    if (place >= m_rows.size()) {
        return {};
    }
    if (column != static_cast<int>(kScenarioColumn)) {
        return QString::fromStdString(BaseText(m_base, m_rows[place]));
    }
    const Difference* const difference = DifferenceAt(place);
    return difference == nullptr ? QString() : QString::fromStdString(CellText(*difference));
}

QString ScenarioSheet::Heading(int section, Qt::Orientation orientation) const {
    if (orientation == Qt::Horizontal) {
        return section == static_cast<int>(kScenarioColumn) ? QStringLiteral("Scenario")
                                                            : QStringLiteral("Base");
    }
    const auto place = static_cast<std::size_t>(section);
    return place < m_rows.size()
               ? QString::fromStdString(DifferenceName(m_base.Model, m_rows[place]))
               : QString();
}

}  // namespace quarnel02
