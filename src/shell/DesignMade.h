#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "line/FixedDemand.h"
#include "line/LineModel.h"
#include "line/StationGroup.h"
#include "line/StochasticLine.h"
#include "model/Database.h"

namespace quarnel02 {

/// A line and the model that it was designed for, which may have been changed since.
struct DesignedLine {
    LineModel Model;
    std::vector<StationGroup> Groups;             ///< in the order of the tasks
    std::optional<StochasticLine> Expected = {};  ///< of a stochastic design
};

/// The design whose results the form shows, and what it was made from.
struct DesignMade {
    std::string Caption;  ///< "2 shifts, 60,000 units a year" or "Capacity 84,000 units a year"
    std::string Product;
    std::chrono::system_clock::time_point When;
    std::uint64_t Inputs;  ///< DesignDigest at that time
    /// What a fixed design was asked for; none of a stochastic one.
    std::optional<FixedDemandRequest> Request = {};
    std::string Cost = {};                          ///< a year, as the report says it: "$202,004"
    std::chrono::system_clock::duration Took = {};  ///< the work, without questions to the planner
    std::optional<DesignedLine> Line = {};
};

/// "2026-11-21 10:05", local time.
std::string TimeText(std::chrono::system_clock::time_point time);

/// A design that has just been made of the database as it is. Throws what the store reports.
DesignMade NewDesign(const Database& database, const std::string& caption,
                     const std::string& product,
                     const std::optional<FixedDemandRequest>& request = {});

}  // namespace quarnel02
