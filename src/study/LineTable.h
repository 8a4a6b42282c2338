#pragma once

#include <span>
#include <string>
#include <vector>

#include "line/LineModel.h"
#include "line/StationGroup.h"
#include "line/StochasticLine.h"
#include "study/CostBasis.h"

namespace quarnel02 {

/// What a group of stations, or a line, takes and costs.
struct CostFigures {
    double Investment = 0;  ///< dollars
    double Capital = 0;     ///< dollars per year
    double Machine = 0;     ///< dollars per year
    double Labour = 0;      ///< dollars per year
    double Total = 0;       ///< dollars per year
};

/// A group of parallel stations in the table of a line.
struct StationRow {
    StationGroup Group;
    std::string Resource;    ///< its name, as NameText has it
    std::vector<int> Tools;  ///< distinct, in the order of the tasks
    double Time = 0;         ///< seconds per unit of one station
    double Load = 0;         ///< share of the available cycle time, 1 for a full station
    double Idle = 0;         ///< seconds of the available cycle time; negative by rounding only
    CostFigures Figures;     ///< Total is the cost of the design, a single
    double Share = 0;        ///< of the cost of the line without penalty, 0 to 1
};

/// A line as a table.
struct LineTable {
    CostBasis Basis;
    std::vector<StationRow> Rows;  ///< in the order of the tasks
    CostFigures Totals;            ///< of the stations; a stochastic design adds its penalty
    int Stations = 0;              ///< parallel ones counted
    double CycleTime = 0;          ///< seconds, of the slowest station
};

/// Groups stand in the order of the tasks; their resources can do their tasks. Throws as
/// CostOfGroup does.
LineTable TableOf(const LineModel& model, std::span<const StationGroup> groups,
                  const CostBasis& basis);

/// Of a stochastic design for the demand of the model, at its capacity.
LineTable TableOf(const LineModel& model, const StochasticLine& line);

/// What a group costs; Total is rounded as the designs do. Throws as CostOfGroup does.
CostFigures FiguresOf(const LineModel& model, const StationGroup& group, const CostBasis& basis);

/// Adds all figures.
CostFigures& operator+=(CostFigures& sum, const CostFigures& more);

}  // namespace quarnel02
