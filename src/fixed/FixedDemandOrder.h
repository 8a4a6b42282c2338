#pragma once

#include <string>

#include "line/FixedDemand.h"

namespace quarnel02 {

/// A fixed-demand design as it was ordered: as the solver takes it, and as the report prints it.
struct FixedDemandOrder {
    FixedDemandRequest Request;
    std::string LimitText = "--";  ///< the station limit as typed; "--" for none
};

}  // namespace quarnel02
