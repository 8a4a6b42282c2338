#pragma once

#include <span>
#include <string>

#include "line/LineModel.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// How the figures of a group of stations are computed, step by step, a line each: times, tool
/// changes, uptime, cycle time, stations, investment, capital, machine, labour. Every line can be
/// checked with a pocket calculator, to the digits that are shown. `number` counts the groups of
/// the line from 1.
std::string HowComputed(const LineModel& model, const StationRow& row, int number,
                        const CostBasis& basis);

/// The same for the totals of a line. Of a stochastic design also the expected production and
/// shifts at its capacity, and the penalty.
std::string HowComputed(const LineModel& model, const LineTable& table);

}  // namespace quarnel02
