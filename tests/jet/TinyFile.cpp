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

}  // namespace

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
