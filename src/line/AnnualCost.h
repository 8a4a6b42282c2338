#pragma once

#include "line/LineModel.h"
#include "line/WorkContent.h"

namespace quarnel02 {

/// What runs every year, dollars per year. Production and shifts may be expected ones; the formulas
/// are those of a fixed demand.
struct AnnualParts {
    double Capital = 0;  ///< charge on the investment
    double Machine = 0;
    double Labour = 0;
};

/// Of `stations` parallel stations that make `units` units per year in `shifts` shifts per day.
/// Throws Overflow, and DivisionByZero when StatPerWrk is 0.
AnnualParts AnnualPartsOf(const WorkContent& content, int stations, const Resource& resource,
                          const Production& production, double units, double shifts);

/// The sum of the parts, rounded as the cost of a pathway is. Throws Overflow.
float AnnualCost(const AnnualParts& parts);

/// Seconds of three shifts per day in the year.
double SecondsOfYear(const Production& production);

/// Seconds per unit that a capacity (units per year) leaves with three shifts. Throws Overflow.
float CycleTimeAt(const Production& production, float capacity);

}  // namespace quarnel02
