#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "line/FixedDemand.h"
#include "study/LineTable.h"
#include "study/ScenarioText.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// A named list of differences to a model, as it is kept in the model file.
struct Scenario {
    std::string Name;
    std::string Differences;  ///< as DifferencesOf reads them

    bool operator==(const Scenario&) const = default;
};

/// A model and what is asked of it.
struct DesignOrder {
    LineModel Model;
    /// For one volume; none: for the demand distribution of the model, with its penalty.
    std::optional<FixedDemandRequest> Fixed;
};

/// The order with these differences. Throws TypeMismatch where one cannot be: the shifts, the
/// station limit or a single volume of a design for a distribution, and an uptime or days that a
/// share would make too large.
DesignOrder WithDifferences(const DesignOrder& base, std::span<const Difference> differences);

/// What leads from one order to another one of the same resources: its parameters, resource
/// figures, volume, shifts and limit, as new values. Other tasks, matrix entries and demand rows do
/// not count.
std::vector<Difference> DifferencesBetween(const DesignOrder& base, const DesignOrder& other);

/// What becomes of a scenario.
struct ScenarioOutcome {
    std::string Name;
    std::string Problem;        ///< why it was not solved, a line; empty when it was
    DesignOrder Order;          ///< what was solved; that of the base with a problem
    bool HasLine = false;       ///< all below is about the line
    LineTable Table;            ///< with figures by station and in all, penalty not included
    double Penalty = 0;         ///< expected dollars per year, of a design for a distribution
    float Cost = 0;             ///< dollars per year, penalty included
    double Capacity = 0;        ///< units per year in the shifts of CapacityShifts, whole
    double CapacityShifts = 0;  ///< per day
    std::optional<double>
        Difference;            ///< of the cost to that of the base; none where one has no line
    bool LineChanges = false;  ///< resources, ranges of tasks or stations are not the base's
};

/// Makes Difference and LineChanges of all outcomes those to one of them.
void Compare(std::vector<ScenarioOutcome>& outcomes, std::size_t base);

/// The base, called "Base", and all scenarios side by side, in their order. The capacity of a fixed
/// design is the largest whole volume that its line makes in its shifts. A scenario with a text
/// that cannot be read, or with figures that no design takes, has a problem; the others are solved.
/// Looks at `watch`. Throws only for a base that the designs refuse.
std::vector<ScenarioOutcome> SolveScenarios(const DesignOrder& base,
                                            std::span<const Scenario> scenarios,
                                            const StudyWatch& watch = {});

}  // namespace quarnel02
