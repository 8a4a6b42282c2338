#pragma once

// Internal to jet/.

#include <cstdint>
#include <string>
#include <vector>

#include "jet/Pages.h"
#include "jet/TextDecoder.h"
#include "jet/Value.h"

namespace quarnel02::jet {

/// A column, and where its values stand in a row.
struct StoredColumn {
    Column Described;
    std::size_t Number = 0;   ///< counted with the columns that were deleted
    bool Fixed = false;       ///< of one length, at FixedAt; else the one at VariableIndex
    std::size_t FixedAt = 0;  ///< from the first byte of data
    std::size_t VariableIndex = 0;
    std::size_t Length = 0;  ///< most bytes
    unsigned Scale = 0;      ///< decimal places
};

struct TableDefinition {
    std::size_t Page = 0;      ///< where it begins
    std::size_t Records = 0;   ///< rows that the table is said to have
    bool HasVariable = false;  ///< rows have a part for values of any length
    std::uint32_t UsageMap = 0;
    std::vector<StoredColumn> Columns;
};

/// The definition that begins on that page and goes on as its chain says. Throws Damage.
TableDefinition ReadTableDefinition(const Pages& pages, const TextDecoder& texts, std::size_t page);

}  // namespace quarnel02::jet
