#include "batch/Json.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/Files.h"
#include "basic/Numbers.h"
#include "line/CheapestLine.h"
#include "line/ReportedChain.h"
#include "study/Capacities.h"
#include "study/LineTable.h"

namespace quarnel02 {

namespace {

Json JsonSingle(float value) {
    return JsonNumber(DecimalOfSingle(value));
}

Json CellJson(const StudyCell& cell) {
    if (const auto* const number = std::get_if<double>(&cell)) {
        return JsonNumber(*number);
    }
    if (const auto* const text = std::get_if<std::string>(&cell)) {
        return *text;
    }
    const auto* const tasks = std::get_if<TaskList>(&cell);
    return tasks == nullptr ? Json() : Json(*tasks);
}

Json StationsJson(const LineTable& table) {
    Json stations = Json::array();
    for (const StationRow& row : table.Rows) {
        stations.push_back({{"number", stations.size() + 1},
                            {"resource", row.Group.Resource},
                            {"name", row.Resource},
                            {"quantity", row.Group.Stations},
                            {"first_task", row.Group.FirstTask},
                            {"last_task", row.Group.LastTask},
                            {"tools", row.Tools},
                            {"time", JsonSingle(static_cast<float>(row.Time))},
                            {"cost", JsonSingle(static_cast<float>(row.Figures.Total))},
                            {"capital", JsonNumber(row.Figures.Capital)},
                            {"machine", JsonNumber(row.Figures.Machine)},
                            {"labour", JsonNumber(row.Figures.Labour)}});
    }
    return stations;
}

Json DemandJson(const StochasticLine& line) {
    Json demand = Json::array();
    for (const DemandOutcome& each : line.Outcomes) {
        const CapacityOutcome outcome = OutcomeOf(each, line.Capacity);
        demand.push_back({{"volume", JsonSingle(outcome.Point.Volume)},
                          {"probability", JsonSingle(outcome.Point.Probability)},
                          {"shifts", outcome.Shifts},
                          {"production", JsonNumber(outcome.Production)},
                          {"cost", JsonNumber(outcome.Cost)},
                          {"penalty", JsonNumber(outcome.Penalty)}});
    }
    return demand;
}

}  // namespace

Json JsonHead(const SolveRequest& request) {
    Json head = {{"version", kJsonVersion}};
    if (request.OneOfSeveral) {
        head["model"] = PathText(request.Model);
    }
    return head;
}

Json JsonNumber(double exact) {
    constexpr double most_exact = 9007199254740992;  // 2^53
    const double value = TextToDouble(NumberText(exact), "Figure");
    if (value == std::trunc(value) && std::fabs(value) < most_exact) {
        return static_cast<std::int64_t>(value);
    }
    return value;
}

Json FixedDesignJson(Json head, const LineModel& model, const FixedDemandRequest& request) {
    const PreparedLine line = Prepare(model);
    const CostedPathways costed = CostAll(line, request);
    const ReportedChain chain = SearchReportedChain(CheapestWays(line, costed));
    std::vector<StationGroup> groups;
    for (const int number : chain.Pathways) {
        const auto place = static_cast<std::size_t>(number) - 1;
        const auto& [resource, first, last] = line.Pathways[place];
        groups.push_back({resource, first, last, costed.Costs[place].Stations});
    }
    std::reverse(groups.begin(), groups.end());
    const LineTable table = TableOf(model, groups, BasisOf(request, model.Parameters()));
    head["design"] = "fixed";
    head["shifts"] = request.Shifts;
    head["volume"] = JsonNumber(request.Volume);
    head["station_limit"] = request.StationLimit ? Json(*request.StationLimit) : Json();
    head["total_cost"] = JsonSingle(chain.Labels.back().Cost);
    head["investment"] = JsonNumber(table.Totals.Investment);
    head["labour"] = JsonNumber(table.Totals.Labour);
    head["cycle_time"] = JsonSingle(static_cast<float>(table.CycleTime));
    head["available_cycle_time"] = JsonNumber(table.Basis.AvailableCycleTime);
    head["stations"] = StationsJson(table);
    return head;
}

Json StochasticDesignJson(Json head, const LineModel& model, const StochasticLine& line) {
    const LineTable table = TableOf(model, line);
    constexpr int all_shifts = 3;
    head["design"] = "stochastic";
    head["shifts"] = all_shifts;
    head["capacity"] = JsonSingle(line.Capacity);
    head["total_cost"] = JsonSingle(line.ExpectedCost);
    head["expected_cost"] = JsonSingle(line.ExpectedCost);
    head["penalty"] = JsonNumber(line.ExpectedPenalty);
    head["station_limit"] = Json();
    head["investment"] = JsonNumber(table.Totals.Investment);
    head["labour"] = JsonNumber(table.Totals.Labour);
    head["demand"] = DemandJson(line);
    head["stations"] = StationsJson(table);
    return head;
}

Json RowsJson(const StudyTable& table) {
    Json rows = Json::array();
    for (const auto& cells : table.Rows) {
        Json row = Json::object();
        for (std::size_t place = 0; place < cells.size(); ++place) {
            row[table.Columns[place]] = CellJson(cells[place]);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

Json NoResultJson(Json head, const std::vector<std::string>& messages) {
    std::string text;
    for (const std::string& message : messages) {
        text += (text.empty() ? "" : " ") + message;
    }
    head["error"] = text;
    return head;
}

std::string JsonLine(const Json& json) {
    constexpr int one_line = -1;
    return json.dump(one_line, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace quarnel02
