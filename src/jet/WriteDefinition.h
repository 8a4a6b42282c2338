#pragma once

// Internal to jet/.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/WrittenColumn.h"

namespace quarnel02::jet {

/// An index of a table.
struct WrittenIndex {
    std::string Name;
    std::vector<std::size_t> Columns;
    unsigned Flags;
    bool Primary;
    std::size_t Leaf;        ///< its only page
    std::uint32_t UsageMap;  ///< pointer to the map of that page
};

/// A table to be defined. Usage maps are pointers to rows.
struct WrittenTable {
    std::span<const WrittenColumn> Columns;
    std::span<const WrittenIndex> Indices;
    bool System;
    std::size_t Rows;
    std::uint32_t UsedPages;
    std::uint32_t FreePages;
    /// For each column of long values the map of its pages; that of its free pages follows it.
    std::vector<std::uint32_t> LongValuePages;
};

/// The page of the definition. Throws RunTimeError (SubscriptOutOfRange) when it does not fit
/// there.
std::string EncodeDefinition(const WrittenTable& table);

}  // namespace quarnel02::jet
