#include "sheets/PackedTables.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace quarnel02 {

namespace {

/// What stands in front of a value.
enum class Tag : char { Null, Whole, WholeReal, Real, Text };

constexpr unsigned kDigitBits = 7;
constexpr std::uint64_t kDigit = 0x7F;
constexpr std::uint64_t kMore = 0x80;

/// Seven bits a byte, the lowest first.
void PackNumber(std::string& bytes, std::uint64_t number) {
    for (; number > kDigit; number >>= kDigitBits) {
        bytes += static_cast<char>(number | kMore);
    }
    bytes += static_cast<char>(number);
}

/// Numbers near 0 of either sign are short.
std::uint64_t ZigZag(std::int64_t number) {
    const auto bits = static_cast<std::uint64_t>(number);
    return number < 0 ? ~(bits << 1U) : bits << 1U;
}

std::int64_t UnZigZag(std::uint64_t bits) {
    const std::uint64_t half = bits >> 1U;
    return static_cast<std::int64_t>((bits & 1U) != 0 ? ~half : half);
}

void Put(std::string& bytes, Tag tag) {
    bytes += static_cast<char>(tag);
}

bool IsShortWhole(double real) {
    constexpr double most = 1e9;
    return std::abs(real) < most && real == std::trunc(real) && !(real == 0 && std::signbit(real));
}

void PackReal(std::string& bytes, double real) {
    if (IsShortWhole(real)) {
        Put(bytes, Tag::WholeReal);
        PackNumber(bytes, ZigZag(static_cast<std::int64_t>(real)));
        return;
    }
    Put(bytes, Tag::Real);
    bytes.append(sizeof real, '\0');
    std::memcpy(bytes.data() + bytes.size() - sizeof real, &real, sizeof real);
}

void Pack(std::string& bytes, const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        Put(bytes, Tag::Whole);
        PackNumber(bytes, ZigZag(*whole));
    } else if (const auto* real = std::get_if<double>(&value)) {
        PackReal(bytes, *real);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        Put(bytes, Tag::Text);
        PackNumber(bytes, text->size());
        bytes += *text;
    } else {
        Put(bytes, Tag::Null);
    }
}

/// Reads what Pack has written.
class Unpacker {
  public:
    explicit Unpacker(const std::string& bytes) : m_bytes(bytes) {}

    [[nodiscard]] bool AtEnd() const { return m_at == m_bytes.size(); }
    std::uint64_t Number();
    Value Next();

  private:
    std::string Take(std::size_t count);
    double Real();

    const std::string& m_bytes;
    std::size_t m_at = 0;
};

std::string Unpacker::Take(std::size_t count) {
    m_at += count;
    return m_bytes.substr(m_at - count, count);
}

std::uint64_t Unpacker::Number() {
    std::uint64_t number = 0;
    std::uint64_t byte = kMore;
    for (unsigned shift = 0; (byte & kMore) != 0; shift += kDigitBits) {
        byte = static_cast<unsigned char>(m_bytes[m_at++]);
        number |= (byte & kDigit) << shift;
    }
    return number;
}

double Unpacker::Real() {
    double real = 0;
    std::memcpy(&real, m_bytes.data() + m_at, sizeof real);
    m_at += sizeof real;
    return real;
}

Value Unpacker::Next() {
    switch (static_cast<Tag>(m_bytes[m_at++])) {
        case Tag::Whole:
            return UnZigZag(Number());
        case Tag::WholeReal:
            return static_cast<double>(UnZigZag(Number()));
        case Tag::Real:
            return Real();
        case Tag::Text:
            return Take(Number());
        case Tag::Null:
            break;
    }
    return {};
}

}  // namespace

std::string Packed(const TableRows& rows) {
    std::string bytes;
    for (const InputRow& row : rows) {
        PackNumber(bytes, row.size());
        for (const Value& value : row) {
            Pack(bytes, value);
        }
    }
    bytes.shrink_to_fit();
    return bytes;
}

TableRows Unpacked(const std::string& packed) {
    TableRows rows;
    Unpacker unpacker(packed);
    while (!unpacker.AtEnd()) {
        InputRow& row = rows.emplace_back(unpacker.Number());
        for (Value& value : row) {
            value = unpacker.Next();
        }
    }
    return rows;
}

PackedTables::PackedTables(const InputTables& tables, const PackedTables* like) {
    std::size_t place = 0;
    for (const InputTable& table : AllInputTables()) {
        std::string bytes = Packed(tables.*table.Rows);
        auto& kept = m_tables.at(place);
        if (like != nullptr && *like->m_tables.at(place) == bytes) {
            kept = like->m_tables.at(place);
        } else {
            kept = std::make_shared<const std::string>(std::move(bytes));
        }
        ++place;
    }
}

InputTables PackedTables::Tables() const {
    InputTables tables;
    std::size_t place = 0;
    for (const InputTable& table : AllInputTables()) {
        tables.*table.Rows = Unpacked(*m_tables.at(place++));
    }
    return tables;
}

std::size_t PackedTables::BytesBeside(const PackedTables* like) const {
    std::size_t bytes = 0;
    for (std::size_t place = 0; place < kTables; ++place) {
        const bool shared = like != nullptr && like->m_tables.at(place) == m_tables.at(place);
        bytes += shared ? 0 : m_tables.at(place)->capacity();
    }
    return bytes;
}

}  // namespace quarnel02
