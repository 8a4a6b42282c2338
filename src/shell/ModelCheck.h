#pragma once

#include "model/Database.h"

namespace quarnel02 {

/// Checks that a solve can be made of the model: every figure in its range, every resource and
/// every pair of task and resource only once, no matrix row of a task that is missing. Nothing is
/// changed. Throws NotAModel with one line that names the first record at fault as the user sees it
/// ("Resource 3 (Robot): uptime is 0 %; it must be above 0 and at most 100.").
void RequireUsableModel(const Database& database);

}  // namespace quarnel02
