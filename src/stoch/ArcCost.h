#pragma once

#include <optional>

#include "line/CostModel.h"
#include "line/WorkContent.h"
#include "stoch/StochRun.h"

namespace quarnel02 {

/// The work content of a resource on the tasks from `startTask` to `endTask`; nothing when it
/// cannot do one of them. Throws DivisionByZero when its uptime is 0.
std::optional<WorkContent> ContentOfArc(const StochRun& run, int resource, int startTask,
                                        int endTask);

/// Seconds of three shifts per day in the year.
double SecondsOfYear(const Production& production);

/// Seconds per unit that a capacity leaves with three shifts.
float CycleTimeAt(const Production& production, float capacity);

/// Seconds per unit of one of `stations` parallel stations.
float StationTime(const WorkContent& content, int stations);

/// Initial investment in the stations of an arc, dollars.
double InvestmentOfArc(const StochRun& run, int resource, const WorkContent& content, int stations);

/// What runs every year: capital charge, machine and labour of an arc for a production (units per
/// year) and shifts per day, dollars. The same formulas as for a fixed demand; production and
/// shifts may be expected ones.
struct AnnualParts {
    double Capital;
    double Machine;
    double Labour;
};
AnnualParts AnnualPartsOfArc(const StochRun& run, int resource, const WorkContent& content,
                             int stations, double production, double shifts);

/// The sum of the parts, rounded as the cost of a pathway is.
float AnnualCost(const AnnualParts& parts);

}  // namespace quarnel02
