#pragma once

// Internal to model/: what a SELECT yields.

#include <cstdint>
#include <string>
#include <vector>

#include "model/Value.h"

namespace quarnel02 {

struct Row {
    std::int64_t Id = 0;  ///< the row's identity in its table
    std::vector<Value> Fields;
    bool Deleted = false;
};

struct Rows {
    std::string Table;  ///< whose rows these are; empty where a row is not one row of one table
    std::vector<std::string> Names;  ///< of the fields
    std::vector<Row> All;
};

}  // namespace quarnel02
