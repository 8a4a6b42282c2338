#include "jet/TableReader.h"

#include "jet/ReadField.h"
#include "jet/RowFields.h"
#include "jet/UsageMap.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kMostContent = 64UL * 1024UL * 1024UL;

/// A map may hold pages that are reserved, or hold long values of the table.
bool HoldsRowsOf(const TableDefinition& table, Bytes page) {
    return page.U8(0) == kDataPage && page.U32(kOwnerAt) == table.Page;
}

}  // namespace

template <class Action>
void TableReader::ForEachStored(const TableDefinition& table, Action action) const {
    for (const std::uint32_t number : MarkedPages(*m_pages, table.UsageMap)) {
        const Bytes page = m_pages->Page(number);
        const std::size_t rows = HoldsRowsOf(table, page) ? m_pages->RowCount(page) : 0;
        for (std::size_t i = 0; i < rows; ++i) {
            const StoredRow row = m_pages->RowOf(page, i);
            if (!row.Hidden) {
                action(row.Moved ? m_pages->MovedRowAt(row.Content.U32(0)) : row.Content);
            }
        }
    }
}

void TableReader::Count(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    m_content += sizeof(double) + (text == nullptr ? 0 : text->size());
    if (m_content > kMostContent) {
        throw Refusal(
            "holds more than 64 MB of rows and texts, which no model does. Choose another file.");
    }
}

void TableReader::ReadRows(const TableDefinition& table, std::span<const std::size_t> columns,
                           const std::function<void(const Row&)>& action) {
    Row values(columns.size());
    std::size_t count = 0;
    ForEachStored(table, [&](Bytes content) {
        const RowFields row(content, m_pages->Layout(), table.HasVariable);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            values[i] = ReadField(*m_pages, *m_texts, row, table.Columns.at(columns[i]));
            Count(values[i]);
        }
        ++count;
        action(values);
    });
    // A page that was lost would take its rows with it in silence.
    if (count != table.Records) {
        throw Damage();
    }
}

}  // namespace quarnel02::jet
