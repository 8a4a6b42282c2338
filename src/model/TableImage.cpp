#include "model/TableImage.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "model/Schema.h"

namespace quarnel02 {

namespace {

double NumberOf(const Value& value) {
    const auto* whole = std::get_if<std::int64_t>(&value);
    return whole != nullptr ? static_cast<double>(*whole) : std::get<double>(value);
}

bool IsNumber(const Value& value) {
    return std::holds_alternative<std::int64_t>(value) || std::holds_alternative<double>(value);
}

}  // namespace

TableImage::TableImage(std::vector<std::string> columns, std::shared_ptr<Rows> rows)
    : m_columns(std::move(columns)), m_rows(std::move(rows)), m_all(m_rows->Count) {
    std::iota(m_all.begin(), m_all.end(), 0U);
}

bool TableImage::ColumnIndex(const std::string& name, std::size_t& column) const {
    const auto found = std::find_if(m_columns.begin(), m_columns.end(),
                                    [&](const std::string& each) { return SameName(each, name); });
    column = static_cast<std::size_t>(found - m_columns.begin());
    return found != m_columns.end();
}

bool TableImage::AllNumbers(std::size_t column) const {
    return std::all_of(m_all.begin(), m_all.end(),
                       [&](std::uint32_t row) { return IsNumber(At(row, column)); });
}

std::unique_ptr<Plan> TableImage::Prepare(const Selection& selection) const {
    auto plan = std::make_unique<Plan>();
    bool usable = true;
    for (const std::string& name : selection.Columns) {
        usable = usable && ColumnIndex(name, plan->Columns.emplace_back());
    }
    for (const Condition& condition : selection.Conditions) {
        auto& range = plan->Ranges.emplace_back();
        range = {0, condition.LowLiteral, condition.HighLiteral};
        usable = usable && ColumnIndex(condition.Column, range.Column) && AllNumbers(range.Column);
    }
    for (const std::string& name : selection.Order) {
        std::size_t& column = plan->Order.emplace_back();
        usable = usable && ColumnIndex(name, column) && AllNumbers(column);
    }
    if (plan->Columns.empty()) {
        plan->Columns.resize(m_columns.size());
        std::iota(plan->Columns.begin(), plan->Columns.end(), 0U);
    }
    return usable ? std::move(plan) : nullptr;
}

const TableImage::RowNumbers& TableImage::RowsWith(std::size_t column, double value) {
    static const RowNumbers none;
    auto [entry, is_new] = m_index.try_emplace(column);
    if (is_new) {
        for (const std::uint32_t row : m_all) {
            entry->second[NumberOf(At(row, column))].push_back(row);
        }
    }
    const auto rows = entry->second.find(value);
    return rows == entry->second.end() ? none : rows->second;
}

/// The rows that meet the first equality; all rows when there is none.
const TableImage::RowNumbers& TableImage::Candidates(const Plan& plan,
                                                     const std::vector<Value>& literals) {
    const auto equality = std::find_if(
        plan.Ranges.begin(), plan.Ranges.end(),
        [](const Plan::Range& range) { return range.LowLiteral == range.HighLiteral; });
    return equality == plan.Ranges.end()
               ? m_all
               : RowsWith(equality->Column, NumberOf(literals[equality->LowLiteral]));
}

void TableImage::Sort(const Plan& plan) {
    std::stable_sort(m_found.begin(), m_found.end(), [&](std::uint32_t a, std::uint32_t b) {
        for (const std::size_t column : plan.Order) {
            const double first = NumberOf(At(a, column));
            const double second = NumberOf(At(b, column));
            if (first != second) {
                return first < second;
            }
        }
        return false;
    });
}

std::shared_ptr<Rows> TableImage::Select(const Plan& plan, const std::vector<Value>& literals) {
    m_found.clear();
    for (const std::uint32_t row : Candidates(plan, literals)) {
        const bool meets =
            std::all_of(plan.Ranges.begin(), plan.Ranges.end(), [&](const Plan::Range& range) {
                const double value = NumberOf(At(row, range.Column));
                return value >= NumberOf(literals[range.LowLiteral]) &&
                       value <= NumberOf(literals[range.HighLiteral]);
            });
        if (meets) {
            m_found.push_back(row);
        }
    }
    if (!plan.Order.empty()) {
        Sort(plan);
    }
    auto rows = std::make_shared<Rows>();
    rows->Count = m_found.size();
    rows->Ids.reserve(m_found.size());
    rows->Values.reserve(m_found.size() * plan.Columns.size());
    for (const std::uint32_t row : m_found) {
        rows->Ids.push_back(m_rows->Ids[row]);
        for (const std::size_t column : plan.Columns) {
            rows->Values.push_back(At(row, column));
        }
    }
    return rows;
}

}  // namespace quarnel02
