#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "study/Scenarios.h"

namespace quarnel02 {

/// How the base is called among scenarios.
inline constexpr const char* kBaseName = "Base";

/// `wanted` if no scenario, nor the base, is called so, else "wanted 2", "wanted 3" and so on.
std::string FreeName(std::span<const Scenario> scenarios, const std::string& wanted);

/// `name` without blanks around it. Throws TypeMismatch, with what to do, for a name that is empty,
/// that of the base, or that of a scenario other than number `but`, whatever the case of letters.
std::string UsableName(std::span<const Scenario> scenarios, std::size_t but,
                       const std::string& name);

}  // namespace quarnel02
