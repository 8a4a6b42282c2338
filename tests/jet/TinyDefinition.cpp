#include <algorithm>

#include "jet/TinyFile.h"

namespace quarnel02::jet {

namespace {

/// Where the columns' values stand: from the first byte of data, or among those of any length.
std::vector<std::size_t> Places(const std::vector<TinyColumn>& columns) {
    std::vector<std::size_t> places;
    std::size_t fixed = 0;
    std::size_t variable = 0;
    for (const TinyColumn& column : columns) {
        places.push_back(column.Fixed ? fixed : variable);
        fixed += TinyFixedSize(column);
        variable += column.Fixed ? 0 : 1;
    }
    return places;
}

}  // namespace

void TinyFile::PutDefinition(const TinyTable& table, std::size_t page, std::uint32_t usage,
                             std::uint32_t unused, std::size_t rows) {
    std::string head(m_layout.IndicesAt, '\0');
    const auto put = [&](std::size_t at, std::uint64_t number, std::size_t size) {
        head.replace(at, size, Little(number, size));
    };
    const auto fixed = std::count_if(table.Columns.begin(), table.Columns.end(),
                                     [](const TinyColumn& each) { return each.Fixed; });
    const std::size_t count = table.Columns.size();
    put(0, kDefinitionPage | 0x100U, 2);
    put(m_layout.RecordsAt, rows, 4);
    put(m_layout.VariableCountAt - 3, 'N', 1);
    put(m_layout.VariableCountAt - 2, count, 2);
    put(m_layout.VariableCountAt, count - static_cast<std::size_t>(fixed), 2);
    put(m_layout.ColumnCountAt, count, 2);
    put(m_layout.UsageMapAt, usage, 4);
    put(m_layout.UsageMapAt + 4, unused, 4);
    std::string definition = head;
    const auto places = Places(table.Columns);
    for (std::size_t i = 0; i < count; ++i) {
        const TinyColumn& column = table.Columns[i];
        std::string entry(m_layout.ColumnSize, '\0');
        const auto set = [&](std::size_t at, std::size_t number, std::size_t size) {
            entry.replace(at, size, Little(number, size));
        };
        set(0, static_cast<unsigned>(column.Type), 1);
        set(m_layout.NumberAt, i, 2);
        set(m_layout.NumberAt + 4, i, 2);
        set(m_layout.VariableAt, column.Fixed ? 0 : places[i], 2);
        set(m_layout.ScaleAt - 1, column.Type == TypeCode::Decimal ? 18 : 0, 1);
        set(m_layout.ScaleAt, column.Scale, 1);
        set(m_layout.FlagsAt, column.Fixed ? 3 : 2, 1);
        if (m_layout.Wide) {
            set(m_layout.FlagsAt + 1, column.ExtraFlags, 1);
        }
        set(m_layout.FixedAt, column.Fixed ? places[i] : 0, 2);
        const bool halved = !m_layout.Wide && column.Type == TypeCode::Text;
        set(m_layout.LengthAt, halved ? column.Length / 2 : column.Length, 2);
        definition += entry;
    }
    for (const TinyColumn& column : table.Columns) {
        const std::string name = Name(column.Name);
        definition += Little(name.size(), m_layout.Wide ? 2 : 1) + name;
    }
    definition += "\xFF\xFF";
    definition.replace(8, 4, Little(definition.size(), 4));
    const std::size_t size = m_layout.PageSize;
    Put(page, 0, definition.substr(0, size));
    for (std::size_t at = size; at < definition.size(); at += size - 8) {
        const std::size_t next = NewPage(Little(kDefinitionPage | 0x100U, 8));
        Put(page, kOwnerAt, Little(next, 4));
        Put(next, 8, definition.substr(at, size - 8));
        page = next;
    }
}

}  // namespace quarnel02::jet
