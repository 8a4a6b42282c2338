#pragma once

#include <string>

#include "line/LineModel.h"

namespace quarnel02 {

/// "Resource 3 (Robot)", as the editors show it; the number alone without a name.
std::string NameOf(const Resource& resource);

/// Throws DivisionByZero: "Resource 3 (Robot): " and the objection to one of its figures.
[[noreturn]] void RefuseDivisor(const Resource& resource, const std::string& objection);

}  // namespace quarnel02
