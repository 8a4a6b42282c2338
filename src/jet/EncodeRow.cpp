#include "jet/EncodeRow.h"

#include <vector>

#include "basic/RunTimeError.h"
#include "jet/EncodeField.h"
#include "jet/Format.h"
#include "jet/Little.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kEntry = 2;            ///< of counts and offsets
constexpr std::size_t kMostRowBytes = 4060;  ///< of a row

bool IsNull(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

/// Yes is the bit that another column has unless it is Null.
bool IsMarked(const WrittenColumn& column, const Value& value) {
    return !IsNull(value) && (column.Type != TypeCode::YesNo || value != Value(std::int64_t{0}));
}

}  // namespace

std::string RowEncoder::Field(const WrittenColumn& column, const Value& value) const {
    try {
        return EncodeField(column, value, m_compress);
    } catch (const FieldFault& fault) {
        const auto kind = fault.IsWrongType() ? ErrorKind::TypeMismatch : ErrorKind::Overflow;
        throw RunTimeError(kind, "An Access database cannot hold the model: " + column.Name +
                                     " in row " + std::to_string(m_count) + " of table " + m_table +
                                     " " + fault.what());
    }
}

/// Values of any length, where they end and start, last first, and their number.
void RowEncoder::AppendVariable(std::string& bytes, const Row& row) const {
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (!IsFixed(m_columns[i])) {
            offsets.push_back(bytes.size());
            bytes += IsNull(row[i]) ? "" : Field(m_columns[i], row[i]);
        }
    }
    AppendNumber(bytes, bytes.size(), kEntry);
    for (std::size_t i = offsets.size(); i-- > 0;) {
        AppendNumber(bytes, offsets[i], kEntry);
    }
    AppendNumber(bytes, offsets.size(), kEntry);
}

std::string RowEncoder::Mask(const Row& row) const {
    std::vector<unsigned> mask((m_columns.size() + kBitsOfByte - 1) / kBitsOfByte);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        mask[i / kBitsOfByte] |= static_cast<unsigned>(IsMarked(m_columns[i], row[i]))
                                 << i % kBitsOfByte;
    }
    return {mask.begin(), mask.end()};
}

std::string RowEncoder::Encode(const Row& row) {
    ++m_count;
    std::string bytes;
    AppendNumber(bytes, m_columns.size(), kEntry);
    bytes.resize(kEntry + m_layout.FixedLength);
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const WrittenColumn& column = m_columns[i];
        if (IsFixed(column) && column.Type != TypeCode::YesNo && !IsNull(row[i])) {
            bytes.replace(kEntry + m_layout.Places[i].FixedAt, column.Length,
                          Field(column, row[i]));
        }
    }
    if (m_layout.VariableCount > 0) {
        AppendVariable(bytes, row);
    }
    bytes += Mask(row);
    if (bytes.size() > kMostRowBytes) {
        throw RunTimeError(ErrorKind::Overflow,
                           "An Access database cannot hold the model: the texts in row " +
                               std::to_string(m_count) + " of table " + m_table +
                               " are too long together. Shorten one.");
    }
    return bytes;
}

}  // namespace quarnel02::jet
