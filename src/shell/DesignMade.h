#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "line/FixedDemand.h"
#include "model/Database.h"

namespace quarnel02 {

/// The design whose results the form shows, and what it was made from.
struct DesignMade {
    std::string Caption;  ///< "2 shifts, 60,000 units a year" or "Capacity 84,000 units a year"
    std::string Product;
    std::chrono::system_clock::time_point When;
    std::uint64_t Inputs;  ///< digest of the entered tables at that time
    /// What a fixed design was asked for; none of a stochastic one.
    std::optional<FixedDemandRequest> Request = {};
    std::string Cost = {};                          ///< a year, as the report says it: "$202,004"
    std::chrono::system_clock::duration Took = {};  ///< the work, without questions to the planner
};

/// A design that has just been made of the database as it is. Throws what the store reports.
DesignMade NewDesign(const Database& database, const std::string& caption,
                     const std::string& product,
                     const std::optional<FixedDemandRequest>& request = {});

}  // namespace quarnel02
