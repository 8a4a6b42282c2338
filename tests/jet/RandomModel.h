#pragma once

#include <random>
#include <string>
#include <vector>

#include "jet/Writer.h"

namespace quarnel02::jet {

/// The eight tables of a model with random values and texts, every task on every resource, and all
/// its pathways.
std::vector<NewTable> RandomModel(int tasks, int resources, std::mt19937& random);

/// A text of up to `mostUnits` UTF-16 units, from letters of many scripts.
std::string RandomText(std::size_t mostUnits, std::mt19937& random);

/// The content of a file with these tables, made on a certain day.
std::string Written(const std::vector<NewTable>& tables);

}  // namespace quarnel02::jet
