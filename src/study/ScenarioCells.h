#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "study/Scenarios.h"

namespace quarnel02 {

// A scenario as a sheet: a row for every figure that it may change, with what is typed there.

/// What a scenario may change, without values: the annual demand, the shifts, the station limit,
/// then the figures of the model.
std::vector<Difference> PossibleDifferences(const LineModel& model);

/// "Annual demand", "Shifts per day", "Station limit", else as FigureName has it.
std::string DifferenceName(const LineModel& model, const Difference& difference);

/// What stands in the base in place of a difference: "60,000", "none"; "--" for what a design for a
/// demand distribution is not asked for.
std::string BaseText(const DesignOrder& base, const Difference& difference);

/// A difference as it is typed into its row: "80000", "+10%", "none".
std::string CellText(const Difference& difference);

/// Reads what is typed into the row of `target`; none for an empty cell. Throws TypeMismatch with
/// one line that begins with the name of the figure.
std::optional<Difference> DifferenceOfCell(const LineModel& model, const Difference& target,
                                           std::string_view text);

/// The differences with another one in place of that of the same figure, or behind the others; none
/// removes it.
std::vector<Difference> WithDifference(std::vector<Difference> differences,
                                       const Difference& target,
                                       const std::optional<Difference>& difference);

/// Whether both are about the same figure.
bool SameTarget(const Difference& a, const Difference& b);

}  // namespace quarnel02
