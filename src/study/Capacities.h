#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/Alternatives.h"
#include "study/ExpectedDesigns.h"
#include "study/LineTable.h"

namespace quarnel02 {

/// What a line of some capacity does when the demand turns out to be one of its points.
struct CapacityOutcome {
    DemandPoint Point;
    int Shifts = 0;          ///< per day
    double Production = 0;   ///< units per year
    double Utilisation = 0;  ///< share of what the line can make in these shifts, 0 to 1
    double Cost = 0;         ///< dollars per year, penalty included
    double Penalty = 0;      ///< dollars per year
};

/// At a capacity above 0, units per year.
CapacityOutcome OutcomeOf(const DemandOutcome& outcome, float capacity);

/// A capacity for which the expected cost has a local minimum.
struct Capacity {
    StochasticLine Line;
    LineTable Table;
    double Difference = 0;                  ///< to the cheapest capacity, dollars per year
    double ShortageProbability = 0;         ///< of a demand above the capacity, percent
    double UnmetUnits = 0;                  ///< expected, units per year
    std::vector<CapacityOutcome> Outcomes;  ///< in ascending volume
    /// What a capacity of one unit less or more costs beyond this one, dollars per year; none where
    /// the range of the curve ends.
    std::optional<double> OneUnitLess;
    std::optional<double> OneUnitMore;
    bool AtFirstVolume = false;  ///< the lowest capacity that the design looks at
    bool AtLastVolume = false;   ///< the highest one
};

/// The capacities with a local minimum of the expected cost, the cheapest first, of equal ones the
/// lowest; at most `count`. On a level stretch of the curve the lowest capacity counts. Dips that
/// are no deeper than a millionth of the cost are the rounding of singles and do not count. None
/// when there is no line.
std::vector<Capacity> BestCapacities(const ExpectedDesigns& designs,
                                     int count = kShownAlternatives);

/// Where a capacity stands, as a word: "one unit less costs 39,936 more" where that is at least a
/// thousandth of its cost, "one unit more costs ..." the same way, "at the end of the range"; with
/// semicolons between them, empty when there is nothing to say.
std::string CapacityWord(const Capacity& capacity);

}  // namespace quarnel02
