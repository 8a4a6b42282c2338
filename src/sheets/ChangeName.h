#pragma once

#include <string>

#include "sheets/InputTables.h"

namespace quarnel02 {

/// What has been done to the tables, as a menu names it: "Change working days per year", "Add task
/// 5", "Delete 3 demand rows", "Change 2 matrix cells". Changes of several tables are named by the
/// records among them. "" when nothing has changed, or nothing but the counts of records.
std::string ChangeName(const InputTables& before, const InputTables& after);

}  // namespace quarnel02
