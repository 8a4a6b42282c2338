#pragma once

#include "model/Database.h"

namespace quarnel02 {

/// Whether the database has the table of scenarios, which models of older versions lack. Throws
/// what the store reports.
bool HasScenarios(const Database& database);

}  // namespace quarnel02
