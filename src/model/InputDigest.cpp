#include "model/InputDigest.h"

#include <array>
#include <bit>
#include <string>
#include <string_view>

#include "model/Schema.h"

namespace quarnel02 {

namespace {

constexpr std::array<std::string_view, 5> kInputTables = {"Gen", "Tasks", "Resources", "Matrix",
                                                          "Demand"};

/// FNV-1a, 64 bits.
class Digest {
  public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes) {
            Add(static_cast<unsigned char>(byte));
        }
    }
    void Add(std::uint64_t number) {
        for (int shift = 0; shift < 64; shift += 8) {
            Add(static_cast<unsigned char>(number >> static_cast<unsigned>(shift)));
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

/// The alternative is part of the value: Null, 0 and "0" differ.
void Add(Digest& digest, const Value& value) {
    digest.Add(std::uint64_t{value.index()});
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        digest.Add(static_cast<std::uint64_t>(*whole));
    } else if (const auto* real = std::get_if<double>(&value)) {
        digest.Add(std::bit_cast<std::uint64_t>(*real));
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        digest.Add(std::uint64_t{text->size()});
        digest.Add(std::string_view(*text));
    }
}

}  // namespace

std::uint64_t InputDigest(const Database& database) {
    Digest digest;
    for (const std::string_view name : kInputTables) {
        RecordSet rows = database.OpenRecordSet("SELECT * FROM " + std::string(name) + ";");
        const int columns = static_cast<int>(FindTable(name)->Columns.size());
        digest.Add(static_cast<std::uint64_t>(rows.RecordCount()));
        for (; !rows.Eof(); rows.MoveNext()) {
            for (int column = 0; column < columns; ++column) {
                Add(digest, rows.Field(column));
            }
        }
    }
    return digest.Result();
}

}  // namespace quarnel02
