#pragma once

// Internal to model/: the rows of a result.

#include <cstdint>
#include <vector>

#include "model/Value.h"

namespace quarnel02 {

/// Values row by row, and the identities of the rows of a single table.
struct Rows {
    std::vector<Value> Values;
    std::vector<std::int64_t> Ids;
    std::size_t Count = 0;
};

}  // namespace quarnel02
