#pragma once

#include "line/Demand.h"
#include "line/FixedDemand.h"
#include "line/LineModel.h"

namespace quarnel02 {

/// What the cost of a line follows from, besides its model: of a fixed design the year's volume and
/// shifts, of a stochastic one the expected production and shifts at its capacity.
struct CostBasis {
    bool Expected = false;          ///< units and shifts are expected ones
    double Capacity = 0;            ///< units per year that the cycle time is for
    double CapacityShifts = 0;      ///< shifts per day that the cycle time is for
    double Units = 0;               ///< units made per year
    double Shifts = 0;              ///< shifts worked per day
    double AvailableCycleTime = 0;  ///< seconds per unit
};

/// Throws as WorkloadOf does.
CostBasis BasisOf(const FixedDemandRequest& request, const Production& production);

/// At a capacity above 0, units per year. Throws Overflow.
CostBasis BasisOf(const DemandDistribution& demand, float capacity, const Production& production);

}  // namespace quarnel02
