#pragma once

#include "model/Database.h"
#include "shell/Dialogs.h"

namespace quarnel02 {

/// Whether the model has a task and a resource to design a line of; else says in a message box
/// that they are missing. Throws what the store reports.
bool HasTasksAndResources(const Database& database, Dialogs& dialogs);

/// Checks that a solve can be made of the model, the demand distribution aside: every figure in its
/// range, every resource and every pair of task and resource only once, no pair of a task or a
/// resource that is missing. Nothing is changed. Throws NotAModel with one line that names the
/// first record at fault as the user sees it
/// ("Resource 3 (Robot): uptime is 0 %; it must be above 0 and at most 100.").
/// Task texts may be missing altogether, and a matrix row without a time needs no tool; rows of a
/// resource beyond the number of resources do not count.
void RequireUsableModel(const Database& database);

/// The part of it that looks at the resources alone: every number only once, every figure in its
/// range.
void RequireUsableResources(const Database& database);

/// The same for the rows of the demand distribution, which are counted by volume as the list shows
/// them ("Demand row 2 (5,000 units): probability is 120 %; it must be at least 0 and at most
/// 100."). Rows that are no demand points, which the list leaves out, are passed over.
void RequireUsableDemand(const Database& database);

}  // namespace quarnel02
