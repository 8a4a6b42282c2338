#pragma once

#include <string_view>

namespace quarnel02 {

/// The SQL of schema.sql: the tables of an empty model.
std::string_view SchemaScript();

}  // namespace quarnel02
