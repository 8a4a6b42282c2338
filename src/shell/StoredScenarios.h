#pragma once

#include <vector>

#include "model/Database.h"
#include "study/Scenarios.h"

namespace quarnel02 {

/// The scenarios that a model keeps, in their order; none where its file is of an older version.
/// Throws what the store reports.
std::vector<Scenario> ReadScenarios(const Database& database);

/// Makes the model keep exactly these, in a transaction of its own. Throws what the store reports;
/// nothing is then changed.
void WriteScenarios(const Database& database, const std::vector<Scenario>& scenarios);

}  // namespace quarnel02
