#pragma once

// Internal to jet/: the tables that Access keeps for itself in every file.

#include <cstddef>
#include <vector>

#include "jet/WrittenColumn.h"

namespace quarnel02::jet {

/// MSysObjects: every object of the file.
std::vector<WrittenColumn> ObjectColumns();
/// MSysACEs: who may do what with an object.
std::vector<WrittenColumn> PermissionColumns();
/// MSysQueries
std::vector<WrittenColumn> QueryColumns();
/// MSysRelationships
std::vector<WrittenColumn> RelationshipColumns();

// Pages on which they stand in a written file.
inline constexpr std::size_t kObjects = 2;
inline constexpr std::size_t kPermissions = 3;
inline constexpr std::size_t kQueries = 4;
inline constexpr std::size_t kRelationships = 5;
inline constexpr std::size_t kSystemMaps = 6;
inline constexpr std::size_t kFirstLeaf = 7;  ///< of seven
inline constexpr std::size_t kObjectRows = 14;
inline constexpr std::size_t kPermissionRows = 15;
inline constexpr std::size_t kSystemPages = 16;

}  // namespace quarnel02::jet
