#pragma once

#include <array>
#include <optional>
#include <string>

#include "sheets/EnteredNumber.h"
#include "sheets/MatrixSheet.h"

namespace quarnel02 {

/// Time, tool number and tool cost of a pair as they are entered.
using FigureParts = std::array<std::string, 3>;

/// What a cell shows of a matrix row.
std::string FigureText(const InputRow& pair, ShownFigure figure);

/// The parts that a text entered into such a cell sets; "" for a figure that it does not name.
/// Nothing for more than three parts.
std::optional<FigureParts> PartsOf(const std::string& text, ShownFigure figure);

/// The decimal sign of all numbers of the block's cells.
DecimalSign DecimalSignOf(const TextBlock& block, ShownFigure figure);

}  // namespace quarnel02
