#pragma once

#include "line/LineModel.h"
#include "model/Database.h"

namespace quarnel02 {

/// The model of a database as a value; each table is read once. For a model that RequireUsableModel
/// accepts: Gen says how many tasks and resources count, and further rows of Tasks, Resources and
/// Matrix are left out. A task without a text is nameless, a counted resource that nothing asks for
/// may have no row, and a matrix row without a time says "cannot". Demand points are taken in
/// ascending order of volume; rows of Demand that are none (IsDemandPoint) are left out.
/// Throws NoCurrentRecord for a missing row of Gen and for a matrix row of a missing resource, and
/// what RecordSet and LineModel throw for fields and rows that cannot be.
LineModel LoadLineModel(const Database& database);

}  // namespace quarnel02
