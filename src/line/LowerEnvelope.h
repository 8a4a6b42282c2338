#pragma once

#include <cstdint>

#include "line/CostCurve.h"

namespace quarnel02 {

/// How a cost of exactly 0 compares with others.
enum class ZeroCost : std::int8_t {
    AsItIs,
    AsTenThousand  ///< as 10,000 dollars: a line that costs nothing yields to one below that
};

/// The cheaper one of two curves at every volume; where they are equal the first one. Curves start
/// at the same volume; where one of them has ended the other one goes on alone. A segment is cut
/// only where the other curve takes over.
CostCurve LowerEnvelope(const CostCurve& first, const CostCurve& second, ZeroCost zero);

}  // namespace quarnel02
