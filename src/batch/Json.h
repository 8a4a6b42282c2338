#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "batch/SolveRequest.h"
#include "line/FixedDemand.h"
#include "line/StochasticLine.h"
#include "study/StudyTable.h"

namespace quarnel02 {

/// Keys stand in the order in which they were entered.
using Json = nlohmann::ordered_json;

/// Version of all formats that are printed as JSON.
inline constexpr int kJsonVersion = 1;

/// What every result begins with: the version, and of several models the model.
Json JsonHead(const SolveRequest& request);

/// A number to 15 digits, without a point where it is whole.
Json JsonNumber(double exact);

/// The line that the fixed design reports for a request, which has one; also one that leaves tasks
/// out. Throws as CostAll does.
Json FixedDesignJson(Json head, const LineModel& model, const FixedDemandRequest& request);

/// The line of a stochastic design.
Json StochasticDesignJson(Json head, const LineModel& model, const StochasticLine& line);

/// The rows of a table as objects.
Json RowsJson(const StudyTable& table);

/// What stands in place of a result: `messages` say why there is none.
Json NoResultJson(Json head, const std::vector<std::string>& messages);

/// A result as the one line that is printed.
std::string JsonLine(const Json& json);

}  // namespace quarnel02
