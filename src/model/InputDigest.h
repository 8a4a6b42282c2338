#pragma once

#include <cstdint>

#include "model/Database.h"

namespace quarnel02 {

/// A number that stands for what the user entered: equal contents of Gen, Tasks, Resources, Matrix,
/// Demand and Scenarios, in equal row order, give equal digests, and other contents practically
/// always another one. Derived tables do not count. Throws what the store reports.
std::uint64_t InputDigest(const Database& database);

/// The same for what designs are made of: scenarios do not count.
std::uint64_t DesignDigest(const Database& database);

}  // namespace quarnel02
