#include "jet/TinyFile.h"

#include <algorithm>
#include <bit>

#include "jet/Header.h"
#include "jet/HeaderMask.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kCatalogue = 2;
constexpr std::size_t kMaps = 3;
constexpr std::size_t kMapBytes = 64;
constexpr std::size_t kJump = 256;

unsigned FixedSize(const TinyColumn& column) {
    return column.Fixed && column.Type != TypeCode::YesNo ? column.Length : 0;
}

/// Where the columns' values stand: from the first byte of data, or among those of any length.
std::vector<std::size_t> Places(const std::vector<TinyColumn>& columns) {
    std::vector<std::size_t> places;
    std::size_t fixed = 0;
    std::size_t variable = 0;
    for (const TinyColumn& column : columns) {
        places.push_back(column.Fixed ? fixed : variable);
        fixed += FixedSize(column);
        variable += column.Fixed ? 0 : 1;
    }
    return places;
}

}  // namespace

TinyColumn TinyText(std::string name) {
    return {std::move(name), TypeCode::Text, 510, false};
}

TinyColumn TinyMemo(std::string name) {
    return {std::move(name), TypeCode::Memo, 0, false};
}

std::string Little(std::uint64_t number, std::size_t size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) {
        bytes += static_cast<char>(number & 0xFFU);
        number >>= 8U;
    }
    return bytes;
}

std::string LittleReal(double number) {
    return Little(std::bit_cast<std::uint64_t>(number), sizeof(number));
}

std::string Wide(std::string_view ascii) {
    std::string bytes;
    for (const char letter : ascii) {
        bytes += letter;
        bytes += '\0';
    }
    return bytes;
}

TinyFile::TinyFile(unsigned version, unsigned codePage)
    : m_version(version), m_codePage(codePage), m_layout(version == 0 ? kJet3 : kJet4) {
    m_bytes.resize(kMaps * m_layout.PageSize);
    Put(kCatalogue, 0, Little(kDefinitionPage | 0x100U, 2));
    static_cast<void>(NewDataPage(Little(1, 4)));
    m_catalogue.Name = "MSysObjects";
    m_catalogue.Columns = {{"Id"},
                           {"ParentId"},
                           {"Type", TypeCode::Integer, 2},
                           {"DateCreate", TypeCode::DateTime, 8},
                           {"DateUpdate", TypeCode::DateTime, 8},
                           {"Flags"},
                           TinyText("Name"),
                           {"LvProp", TypeCode::Ole, 0, false}};
}

std::string TinyFile::Name(std::string_view ascii) const {
    return m_layout.Wide ? Wide(ascii) : std::string(ascii);
}

std::size_t TinyFile::NewPage(std::string_view start) {
    const std::size_t page = m_bytes.size() / m_layout.PageSize;
    m_bytes.resize(m_bytes.size() + m_layout.PageSize);
    Put(page, 0, start);
    return page;
}

void TinyFile::Put(std::size_t page, std::size_t at, std::string_view bytes) {
    m_bytes.replace(page * m_layout.PageSize + at, bytes.size(), bytes);
}

std::size_t TinyFile::Get16(std::size_t page, std::size_t at) const {
    return Bytes(m_bytes).U16(page * m_layout.PageSize + at);
}

std::size_t TinyFile::NewDataPage(std::string_view owner) {
    const std::size_t page = NewPage(Little(kDataPage | 0x100U, 2));
    Put(page, 2, Little(m_layout.PageSize - m_layout.RowCountAt - 2, 2));
    Put(page, kOwnerAt, owner);
    return page;
}

bool TinyFile::HasRoom(std::size_t page, std::size_t size) const {
    return size + 2 <= Get16(page, 2) && Get16(page, m_layout.RowCountAt) < 255;
}

std::uint32_t TinyFile::AddRow(std::size_t page, std::string_view row, unsigned flags) {
    const std::size_t count = Get16(page, m_layout.RowCountAt);
    const std::size_t place = m_layout.RowCountAt + 2 + 2 * count;
    const std::size_t end = count == 0 ? m_layout.PageSize : Get16(page, place - 2) & kRowPlaceBits;
    Put(page, end - row.size(), row);
    Put(page, place, Little((end - row.size()) | flags, 2));
    Put(page, m_layout.RowCountAt, Little(count + 1, 2));
    Put(page, 2, Little(Get16(page, 2) - row.size() - 2, 2));
    return static_cast<std::uint32_t>(page << kRowNumberBits | count);
}

std::uint32_t TinyFile::AddRow(std::vector<std::size_t>& pages, std::string_view owner,
                               std::string_view row, unsigned flags) {
    if (pages.empty() || !HasRoom(pages.back(), row.size())) {
        pages.push_back(NewDataPage(owner));
    }
    return AddRow(pages.back(), row, flags);
}

std::uint32_t TinyFile::AddLong(std::string_view row) {
    return AddRow(m_longPages, "LVAL", row);
}

std::string TinyFile::ShortField(std::string_view value) {
    return Little(value.size() | 0x80000000U, 12) + std::string(value);
}

std::string TinyFile::LongField(std::string_view value) {
    return Little(value.size() | 0x40000000U, 4) + Little(AddLong(value), 8);
}

std::string TinyFile::LongFieldInParts(std::string_view value, std::size_t part) {
    std::uint32_t next = 0;
    const std::size_t last = (value.size() - 1) / part;
    for (std::size_t i = last + 1; i-- > 0;) {
        next = AddLong(Little(next, 4) + std::string(value.substr(i * part, part)));
    }
    return Little(value.size(), 4) + Little(next, 8);
}

std::uint32_t TinyFile::AddUsageMap(const std::vector<std::size_t>& pages) {
    std::string map = Little(0, 5 + kMapBytes);
    for (const std::size_t page : pages) {
        char& byte = map.at(5 + page / 8);
        byte = static_cast<char>(static_cast<unsigned char>(byte) | 1U << page % 8);
    }
    return AddRow(kMaps, map);
}

std::string TinyFile::EncodedVariable(std::size_t start, const std::vector<std::string>& fields,
                                      std::size_t maskSize, std::size_t& count) const {
    std::string data;
    std::vector<std::size_t> offsets;
    for (const std::string& field : fields) {
        offsets.push_back(start + data.size());
        data += field;
    }
    const std::size_t end = start + data.size();
    offsets.push_back(end);
    std::string tail;
    const std::size_t entry = m_layout.Wide ? 2 : 1;
    for (std::size_t i = offsets.size(); i-- > 0;) {
        tail += Little(offsets[i], entry);
    }
    count = fields.size();
    if (!m_layout.Wide) {
        std::size_t jumps = 0;
        while ((end + tail.size() + jumps + 1 + maskSize - 1) / kJump > jumps) {
            ++jumps;
        }
        for (std::size_t jump = jumps; jump > 0; --jump) {
            const auto first = std::find_if(offsets.begin(), offsets.end(),
                                            [&](auto offset) { return offset >= jump * kJump; });
            tail += first == offsets.end() ? '\xFF' : static_cast<char>(first - offsets.begin());
        }
    }
    return data + tail + Little(count, entry);
}

std::string TinyFile::Encoded(const std::vector<TinyColumn>& columns, const TinyRow& row) const {
    const std::size_t count = row.Fields.size();
    std::string mask((count + 7) / 8, '\0');
    std::string encoded = Little(count, m_layout.Wide ? 2 : 1);
    std::vector<std::string> variable;
    for (std::size_t i = 0; i < count; ++i) {
        const auto& field = row.Fields[i];
        if (field) {
            mask[i / 8] = static_cast<char>(static_cast<unsigned char>(mask[i / 8]) | 1U << i % 8);
        }
        if (columns[i].Fixed) {
            std::string bytes = field.value_or("");
            bytes.resize(FixedSize(columns[i]));
            encoded += bytes;
        } else {
            variable.push_back(field.value_or(""));
        }
    }
    const bool has_variable = std::any_of(columns.begin(), columns.end(),
                                          [](const TinyColumn& each) { return !each.Fixed; });
    std::size_t variable_count = 0;
    if (has_variable) {
        encoded += EncodedVariable(encoded.size(), variable, mask.size(), variable_count);
    }
    return encoded + mask;
}

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

void TinyFile::AddRows(const TinyTable& table, std::size_t definition) {
    std::vector<std::size_t> pages;
    std::size_t living = 0;
    const std::string owner = Little(definition, 4);
    for (const TinyRow& row : table.Rows) {
        const std::string encoded = Encoded(table.Columns, row);
        if (row.Place == TinyPlace::Moved) {
            const auto target = AddRow(pages, owner, encoded, kRowHidden);
            AddRow(pages, owner, Little(target, 4), kRowMoved);
        } else {
            AddRow(pages, owner, encoded,
                   row.Place == TinyPlace::Deleted ? kRowMoved | kRowHidden : 0);
        }
        living += row.Place == TinyPlace::Deleted ? 0 : 1;
    }
    PutDefinition(table, definition, AddUsageMap(pages), AddUsageMap({}), living);
}

void TinyFile::AddObject(std::string_view name, int type, std::uint32_t flags) {
    const auto page = m_bytes.size() / m_layout.PageSize;
    const std::string day = LittleReal(38143.5);
    m_catalogue.Rows.push_back(
        {{Little(type == 1 ? page : 0x80000000U + m_catalogue.Rows.size(), 4),
          Little(0x0F000001, 4),
          Little(static_cast<std::uint64_t>(type), 2),
          day,
          day,
          Little(flags, 4),
          Name(name),
          {}}});
}

void TinyFile::Add(const TinyTable& table) {
    AddObject(table.Name, 1);
    AddRows(table, NewPage(""));
}

void TinyFile::PutHeader() {
    const bool ace = m_version > 1;
    Put(0, 0, Little(0x100, 4));
    Put(0, kEngineAt, ace ? "Standard ACE DB" : "Standard Jet DB");
    Put(0, kVersionAt, Little(m_version, 4));
    Put(0, kCodePageAt, Little(m_codePage, 2));
    Put(0, kKeyAt, Little(m_key, 4));
    constexpr double created = 38143.5;
    std::string password = m_password;
    password.resize(m_layout.Wide ? kPasswordBytesJet4 : kPasswordBytesJet3);
    if (m_layout.Wide) {
        const std::string mask = Little(static_cast<std::uint64_t>(created), 4);
        for (std::size_t i = 0; i < password.size(); ++i) {
            password[i] = static_cast<char>(password[i] ^ mask[i % 4]);
        }
        Put(0, 0x6E, Little(0x409, 4));
    }
    Put(0, kPasswordAt, password);
    if (m_layout.Wide) {
        Put(0, kCreatedAt, LittleReal(created));
    }
    ApplyHeaderMask(m_bytes, m_layout.Wide);
}

std::string TinyFile::Content() const {
    TinyFile whole = *this;
    whole.AddRows(whole.m_catalogue, kCatalogue);
    whole.PutHeader();
    return whole.m_bytes;
}

}  // namespace quarnel02::jet
