#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "line/LineModel.h"

namespace quarnel02 {

/// A figure that a design may hang on.
enum class FigureKind : std::int8_t {
    Days,
    ACF,
    LaborCost,
    TransportTime,
    Penalty,  ///< of stochastic designs only
    FixedCost,
    VarCost,
    UpTime,
    ICF,
    ToolChange,
    StatPerWrk,
    TaskTimes  ///< all task times of a resource, percent of today's
};

struct ModelFigure {
    FigureKind Kind = FigureKind::Days;
    int Resource = 0;  ///< whose figure it is; 0 for a parameter of the line

    bool operator==(const ModelFigure&) const = default;
};

/// All figures that a fixed design may hang on: the parameters, then those of each resource.
std::vector<ModelFigure> FiguresOf(const LineModel& model);

/// The same for a stochastic design: the penalty stands with the parameters.
std::vector<ModelFigure> ExpectedFiguresOf(const LineModel& model);

/// As it stands on screen: "Labour cost", "Bench: fixed cost".
std::string FigureName(const LineModel& model, const ModelFigure& figure);

/// Today's value, in the unit that the planner enters; 100 for task times.
double ValueOf(const LineModel& model, const ModelFigure& figure);

/// The model with another value of a figure.
LineModel WithValue(const LineModel& model, const ModelFigure& figure, double value);

}  // namespace quarnel02
