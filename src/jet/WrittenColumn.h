#pragma once

// Internal to jet/: columns of a table that is written.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/Format.h"

namespace quarnel02::jet {

struct WrittenColumn {
    std::string Name;
    TypeCode Type;
    unsigned Length;  ///< most bytes of a value
    unsigned Flags;
};

inline constexpr unsigned kFixedFlags = 0x03;
inline constexpr unsigned kVariableFlags = 0x02;

[[nodiscard]] inline bool IsFixed(const WrittenColumn& column) {
    return (column.Flags & kColumnIsFixed) != 0;
}

/// Where the columns' values stand in a row: fixed ones from the first byte of data, the others
/// among each other.
struct RowLayout {
    explicit RowLayout(std::span<const WrittenColumn> columns);

    struct Place {
        std::size_t FixedAt;
        std::size_t VariableIndex;  ///< of it, or of the next one that is of any length
    };
    std::vector<Place> Places;
    std::size_t FixedLength = 0;
    std::size_t VariableCount = 0;
};

}  // namespace quarnel02::jet
