#include "jet/WriteDefinition.h"

#include <algorithm>
#include <numeric>

#include "basic/RunTimeError.h"
#include "jet/Format.h"
#include "jet/Little.h"
#include "jet/Names.h"

namespace quarnel02::jet {

namespace {

constexpr unsigned kTableMark = 1625;
constexpr unsigned kIndexMark = 1923;
constexpr unsigned kCompressedText = 1;
constexpr unsigned kNone16 = 0xFFFF;
constexpr unsigned kNone32 = 0xFFFFFFFF;
constexpr std::size_t kIndexColumns = 10;
constexpr std::size_t kPageHeader = 8;
constexpr std::size_t kLengthAt = 8;
constexpr unsigned kSystemRelation = 4;

bool LessWithoutCase(const std::string& one, const std::string& other) {
    return std::lexicographical_compare(one.begin(), one.end(), other.begin(), other.end(),
                                        [](char x, char y) { return Lower(x) < Lower(y); });
}

/// System tables list columns and indices by name, others as they are.
template <class Named>
std::vector<std::size_t> ListOrder(std::span<const Named> items, bool byName) {
    std::vector<std::size_t> order(items.size());
    std::iota(order.begin(), order.end(), 0U);
    if (byName) {
        std::sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
            return LessWithoutCase(items[one].Name, items[other].Name);
        });
    }
    return order;
}

bool IsLong(const WrittenColumn& column) {
    return column.Type == TypeCode::Memo || column.Type == TypeCode::Ole;
}

/// A definition as it grows.
class Definition {
  public:
    explicit Definition(const WrittenTable& table)
        : m_table(table),
          m_columns(ListOrder(table.Columns, table.System)),
          m_indices(ListOrder(table.Indices, table.System)) {}

    std::string Encode() {
        AddHead();
        for (const std::size_t column : m_columns) {
            AddColumn(column);
        }
        for (const std::size_t column : m_columns) {
            AddName(m_table.Columns[column].Name);
        }
        for (const WrittenIndex& index : m_table.Indices) {
            AddIndex(index);
        }
        for (const std::size_t index : m_indices) {
            AddIndexUse(index);
        }
        for (const std::size_t index : m_indices) {
            AddName(m_table.Indices[index].Name);
        }
        AddLongValuePages();
        Add16(kNone16);
        return std::move(m_bytes);
    }

  private:
    void Add8(std::uint64_t number) { AppendNumber(m_bytes, number, 1); }
    void Add16(std::uint64_t number) { AppendNumber(m_bytes, number, 2); }
    void Add32(std::uint64_t number) { AppendNumber(m_bytes, number, 4); }
    void AddName(const std::string& ascii) {
        Add16(ascii.size() * 2);
        for (const char letter : ascii) {
            Add16(static_cast<unsigned char>(letter));
        }
    }

    void AddHead() {
        constexpr std::size_t type_at = 40;
        Add16(kDefinitionPage | 0x100U);
        m_bytes.resize(kLengthAt + 4);
        Add32(kTableMark);
        Add32(m_table.Rows);
        Add32(0);
        Add8(1);
        m_bytes.resize(type_at);
        Add8(m_table.System ? 'S' : 'N');
        Add16(m_table.Columns.size());
        Add16(m_layout.VariableCount);
        Add16(m_table.Columns.size());
        Add32(m_table.Indices.size());
        Add32(m_table.Indices.size());
        Add32(m_table.UsedPages);
        Add32(m_table.FreePages);
        for (std::size_t i = 0; i < m_table.Indices.size(); ++i) {
            Add32(0);
            Add32(m_table.Rows);
            Add32(0);
        }
    }

    void AddColumn(std::size_t number) {
        const WrittenColumn& column = m_table.Columns[number];
        const bool text = column.Type == TypeCode::Text;
        const bool sorted = text || column.Type == TypeCode::Memo || m_table.System;
        Add8(static_cast<unsigned>(column.Type));
        Add32(kTableMark);
        Add16(number);
        Add16(m_layout.Places[number].VariableIndex);
        Add16(m_table.System ? 0 : number);
        Add16(sorted ? kGeneralSortOrder : 0);
        Add16(0);
        Add8(column.Flags);
        Add8(text && !m_table.System ? kCompressedText : 0);
        Add32(0);
        Add16(m_layout.Places[number].FixedAt);
        Add16(column.Length);
    }

    void AddIndex(const WrittenIndex& index) {
        Add32(kIndexMark);
        for (std::size_t i = 0; i < kIndexColumns; ++i) {
            const bool used = i < index.Columns.size();
            Add16(used ? index.Columns[i] : kNone16);
            Add8(used ? 1 : 0);
        }
        Add32(index.UsageMap);
        Add32(index.Leaf);
        Add32(0);
        Add8(index.Flags);
        Add8(0);
        Add32(0);
    }

    void AddIndexUse(std::size_t number) {
        Add32(kTableMark);
        Add32(number);
        Add32(number);
        Add8(0);
        Add32(kNone32);
        Add32(0);
        Add8(m_table.System ? kSystemRelation : 0);
        Add8(m_table.System ? kSystemRelation : 0);
        Add8(m_table.Indices[number].Primary ? 1 : 0);
        Add32(0);
    }

    void AddLongValuePages() {
        std::vector<std::size_t> map_of(m_table.Columns.size());
        std::size_t maps = 0;
        for (std::size_t i = 0; i < m_table.Columns.size(); ++i) {
            map_of[i] = maps;
            maps += IsLong(m_table.Columns[i]) ? 1U : 0U;
        }
        for (const std::size_t column : m_columns) {
            if (IsLong(m_table.Columns[column])) {
                const std::uint32_t used = m_table.LongValuePages.at(map_of[column]);
                Add16(column);
                Add32(used);
                Add32(used + 1);
            }
        }
    }

    const WrittenTable& m_table;
    RowLayout m_layout{m_table.Columns};
    std::vector<std::size_t> m_columns;  ///< in the order in which they are listed
    std::vector<std::size_t> m_indices;
    std::string m_bytes;
};

}  // namespace

std::string EncodeDefinition(const WrittenTable& table) {
    std::string bytes = Definition(table).Encode();
    if (bytes.size() > kJet4.PageSize - kPageHeader) {
        throw RunTimeError(
            ErrorKind::SubscriptOutOfRange,
            "An Access database cannot hold the model: a table has too many columns.");
    }
    PutNumber(bytes, kLengthAt, bytes.size(), sizeof(std::uint32_t));
    PutNumber(bytes, kFreeSpaceAt, kJet4.PageSize - bytes.size() - kPageHeader, 2);
    return bytes;
}

}  // namespace quarnel02::jet
