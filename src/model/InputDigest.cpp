#include "model/InputDigest.h"

#include <bit>
#include <string>
#include <string_view>

#include "model/Schema.h"

namespace quarnel02 {

namespace {

/// FNV-1a, 64 bits.
class Digest {
  public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes) {
            Add(static_cast<unsigned char>(byte));
        }
    }
    void Add(std::uint64_t number) {
        for (unsigned shift = 0; shift < 64; shift += 8) {
            Add(static_cast<unsigned char>(number >> shift));
        }
    }
    /// The alternative is part of the value: Null, 0 and "0" differ.
    void Add(const Value& value) {
        Add(std::uint64_t{value.index()});
        if (const auto* whole = std::get_if<std::int64_t>(&value)) {
            Add(static_cast<std::uint64_t>(*whole));
        } else if (const auto* real = std::get_if<double>(&value)) {
            Add(std::bit_cast<std::uint64_t>(*real));
        } else if (const auto* text = std::get_if<std::string>(&value)) {
            Add(std::uint64_t{text->size()});
            Add(std::string_view(*text));
        }
    }
    [[nodiscard]] std::uint64_t Result() const { return m_hash; }

  private:
    void Add(unsigned char byte) {
        constexpr std::uint64_t prime = 0x100000001B3;
        m_hash = (m_hash ^ byte) * prime;
    }

    std::uint64_t m_hash = 0xCBF29CE484222325;
};

}  // namespace

std::uint64_t InputDigest(const Database& database) {
    Digest digest;
    for (const std::string table : {"Gen", "Tasks", "Resources", "Matrix", "Demand"}) {
        RecordSet rows = database.OpenRecordSet("SELECT * FROM " + table + ";");
        digest.Add(static_cast<std::uint64_t>(rows.RecordCount()));
        for (; !rows.Eof(); rows.MoveNext()) {
            for (int column = 0; column < std::ssize(FindTable(table)->Columns); ++column) {
                digest.Add(rows.Field(column));
            }
        }
    }
    return digest.Result();
}

}  // namespace quarnel02
