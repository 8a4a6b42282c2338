#pragma once

#include <cstddef>
#include <cstdint>

/// How large a model, and a file that one is read from, may be. The guide states them, section
/// "Limits"; a test compares the two.
namespace quarnel02::limits {

inline constexpr std::size_t kTasks = 255;  ///< one more would make over 32,767 arcs
inline constexpr std::size_t kResources = 32767;
inline constexpr std::size_t kPathways = 32767;
inline constexpr int kStations = 32767;  ///< of a pathway

inline constexpr std::int64_t kRows = std::int64_t{1} << 20;    ///< 4,095 resources by 255 tasks
inline constexpr std::size_t kText = std::size_t{128} << 10;    ///< what a box takes, in bytes
inline constexpr std::size_t kContent = std::size_t{64} << 20;  ///< rows and texts in memory
inline constexpr std::uintmax_t kModelFile = std::uintmax_t{256} << 20;
inline constexpr std::uintmax_t kAccessFile = std::uintmax_t{128} << 20;  ///< it is read whole
inline constexpr int kAccessText = 255;                                   ///< characters
inline constexpr std::uintmax_t kSqlFile = std::uintmax_t{64} << 20;

inline constexpr std::uintmax_t kSheetFile = 64'000'000;  ///< and each part of one, unpacked
inline constexpr std::size_t kCells = 1'000'000;  ///< empty ones in front of others included
inline constexpr std::size_t kPairs = 200'000;    ///< of a task and a resource, in a workbook
inline constexpr std::size_t kCellText = 32767;   ///< characters, in an .xlsx file

}  // namespace quarnel02::limits
