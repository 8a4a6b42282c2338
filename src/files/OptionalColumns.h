#pragma once

// Internal to files/: what stands for a column that an Access file does not have.

#include <optional>
#include <string_view>

#include "model/Value.h"

namespace quarnel02 {

/// The value that changes nothing where the column is missing: of a figure, that which a new
/// resource or a new pair begins with. Nothing for a column without which there is no model. Names
/// are those of the schema.
std::optional<Value> DefaultOfColumn(std::string_view table, std::string_view column);

}  // namespace quarnel02
