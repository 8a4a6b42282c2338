#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/Format.h"

namespace quarnel02::jet {

/// Access databases of a few pages, made byte by byte to hold what our writer never writes: those
/// of Access 97, long texts, moved and deleted rows, every column type. Other readers read them
/// too.

struct TinyColumn {
    std::string Name;
    TypeCode Type = TypeCode::LongInteger;
    unsigned Length = 4;
    bool Fixed = true;
    unsigned Scale = 0;
    unsigned ExtraFlags = 0;
};

/// A text of any length.
TinyColumn TinyText(std::string name);
/// A Memo.
TinyColumn TinyMemo(std::string name);

/// Bytes that a column takes among those of fixed length.
unsigned TinyFixedSize(const TinyColumn& column);

enum class TinyPlace { Here, Moved, Deleted };

struct TinyRow {
    /// Bytes of the fields, nothing for Null; a Yes is an empty field. Fewer than the table has
    /// columns where these came later.
    std::vector<std::optional<std::string>> Fields;
    TinyPlace Place = TinyPlace::Here;
};

struct TinyTable {
    std::string Name;
    std::vector<TinyColumn> Columns;
    std::vector<TinyRow> Rows;
};

/// The lowest `size` bytes of a number, lowest first.
std::string Little(std::uint64_t number, std::size_t size);
std::string LittleReal(double number);
/// ASCII as Jet 4 stores it uncompressed.
std::string Wide(std::string_view ascii);

class TinyFile {
  public:
    /// Version as the first page says it: 0 is Jet 3, 1 is Jet 4, higher ones are ACE.
    explicit TinyFile(unsigned version, unsigned codePage = 1252);

    void Add(const TinyTable& table);
    /// An entry of the catalogue that is no table of this file.
    void AddObject(std::string_view name, int type, std::uint32_t flags = 0);

    /// Stores bytes beside the tables, in pages of long values, and returns the field of a Memo
    /// that points to them: in one place, or in a chain of parts of `part` bytes.
    std::string LongField(std::string_view value);
    std::string LongFieldInParts(std::string_view value, std::size_t part);
    /// The field of a Memo that holds the bytes itself.
    static std::string ShortField(std::string_view value);

    /// Sets the key, which makes the file an encrypted one, or the password's bytes.
    void SetKey(std::uint32_t key) { m_key = key; }
    void SetPassword(std::string password) { m_password = std::move(password); }

    [[nodiscard]] std::string Content() const;

  private:
    [[nodiscard]] std::size_t NewPage(std::string_view start);
    void Put(std::size_t page, std::size_t at, std::string_view bytes);
    [[nodiscard]] std::size_t Get16(std::size_t page, std::size_t at) const;
    [[nodiscard]] bool HasRoom(std::size_t page, std::size_t size) const;
    [[nodiscard]] std::size_t NewDataPage(std::string_view owner);
    /// Returns the pointer to the row.
    std::uint32_t AddRow(std::size_t page, std::string_view row, unsigned flags = 0);
    /// Adds a page where there is no room.
    std::uint32_t AddRow(std::vector<std::size_t>& pages, std::string_view owner,
                         std::string_view row, unsigned flags = 0);
    std::uint32_t AddLong(std::string_view row);
    std::uint32_t AddUsageMap(const std::vector<std::size_t>& pages);
    void AddRows(const TinyTable& table, std::size_t definition);
    void PutDefinition(const TinyTable& table, std::size_t page, std::uint32_t usage,
                       std::uint32_t unused, std::size_t rows);
    [[nodiscard]] std::string Encoded(const std::vector<TinyColumn>& columns,
                                      const TinyRow& row) const;
    [[nodiscard]] std::string EncodedVariable(std::size_t start,
                                              const std::vector<std::string>& fields,
                                              std::size_t maskSize, std::size_t& count) const;
    [[nodiscard]] std::string Name(std::string_view ascii) const;
    void PutHeader();

    unsigned m_version;
    unsigned m_codePage;
    const Format& m_layout;
    std::uint32_t m_key = 0;
    std::string m_password;
    std::string m_bytes;
    TinyTable m_catalogue;
    std::vector<std::size_t> m_longPages;
};

}  // namespace quarnel02::jet
