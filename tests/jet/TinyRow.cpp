#include <algorithm>
#include <bit>

#include "jet/TinyFile.h"

namespace quarnel02::jet {

namespace {

constexpr std::size_t kJump = 256;  ///< what a byte cannot count to

}  // namespace

unsigned TinyFixedSize(const TinyColumn& column) {
    return column.Fixed && column.Type != TypeCode::YesNo ? column.Length : 0;
}

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
            // One that stands for nothing misleads who minds it.
            tail += first == offsets.end() ? '\0' : static_cast<char>(first - offsets.begin());
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
            bytes.resize(TinyFixedSize(columns[i]));
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

}  // namespace quarnel02::jet
