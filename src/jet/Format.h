#pragma once

// Internal to jet/: where things stand in the pages of the two families of files.

#include <cstddef>

namespace quarnel02::jet {

/// Jet 3 (Access 97), or Jet 4 and its successors, which differ from each other in column types
/// only. Offsets in bytes.
struct Format {
    std::size_t PageSize;
    std::size_t RowCountAt;  ///< in a data page; the places of the rows follow

    // in a table definition
    std::size_t RecordsAt;
    std::size_t VariableCountAt;
    std::size_t ColumnCountAt;
    std::size_t IndexCountAt;
    std::size_t UsageMapAt;
    std::size_t IndicesAt;
    std::size_t IndexSize;

    // in a column of it
    std::size_t ColumnSize;
    std::size_t NumberAt;
    std::size_t VariableAt;
    std::size_t ScaleAt;
    std::size_t FlagsAt;
    std::size_t FixedAt;
    std::size_t LengthAt;

    /// Texts are in UTF-16, names have 16-bit lengths, rows 16-bit offsets; else all have 8 bits.
    bool Wide;
};

inline constexpr Format kJet3 = {.PageSize = 2048,
                                 .RowCountAt = 8,
                                 .RecordsAt = 12,
                                 .VariableCountAt = 23,
                                 .ColumnCountAt = 25,
                                 .IndexCountAt = 31,
                                 .UsageMapAt = 35,
                                 .IndicesAt = 43,
                                 .IndexSize = 8,
                                 .ColumnSize = 18,
                                 .NumberAt = 1,
                                 .VariableAt = 3,
                                 .ScaleAt = 10,
                                 .FlagsAt = 13,
                                 .FixedAt = 14,
                                 .LengthAt = 16,
                                 .Wide = false};

inline constexpr Format kJet4 = {.PageSize = 4096,
                                 .RowCountAt = 12,
                                 .RecordsAt = 16,
                                 .VariableCountAt = 43,
                                 .ColumnCountAt = 45,
                                 .IndexCountAt = 51,
                                 .UsageMapAt = 55,
                                 .IndicesAt = 63,
                                 .IndexSize = 12,
                                 .ColumnSize = 25,
                                 .NumberAt = 5,
                                 .VariableAt = 7,
                                 .ScaleAt = 12,
                                 .FlagsAt = 15,
                                 .FixedAt = 21,
                                 .LengthAt = 23,
                                 .Wide = true};

inline constexpr unsigned kDataPage = 1;
inline constexpr unsigned kDefinitionPage = 2;
inline constexpr unsigned kLeafPage = 4;
inline constexpr unsigned kUsagePage = 5;

/// Where a table definition, or the page of a row, says what it belongs to or goes on with.
inline constexpr std::size_t kOwnerAt = 4;

/// The place of a row in its page, and what is said beside it.
inline constexpr unsigned kRowPlaceBits = 0x1FFF;
inline constexpr unsigned kRowMoved = 0x4000;   ///< only a pointer to the row stands here
inline constexpr unsigned kRowHidden = 0x8000;  ///< reached by a pointer only; with both, deleted

/// A pointer to a row: its number in the lowest byte, its page above.
inline constexpr unsigned kRowNumberBits = 8;
inline constexpr unsigned kRowNumberMask = 0xFF;

/// The numbers of the column types in a file.
enum class TypeCode : unsigned {
    YesNo = 1,
    Byte = 2,
    Integer = 3,
    LongInteger = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    DateTime = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
    BigInteger = 19
};

inline constexpr unsigned kColumnIsFixed = 0x01;

/// Where a data page or a leaf says how many of its bytes are free.
inline constexpr std::size_t kFreeSpaceAt = 2;

/// In a usage map: where the bits begin that it holds itself, and what stands before them in a page
/// of bits.
inline constexpr std::size_t kBitmapAt = 5;
inline constexpr std::size_t kUsageHeader = 4;

inline constexpr unsigned kGeneralSortOrder = 0x409;

inline constexpr unsigned kBitsOfByte = 8;

}  // namespace quarnel02::jet
