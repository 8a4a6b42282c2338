#pragma once

#include <string>

#include "shell/DemandList.h"
#include "shell/TextBoxes.h"
#include "shell/WorkingCopy.h"

namespace quarnel02 {

/// Line of lstDemand for a row: "12,500:  25%".
std::string DemandLineText(double volume, const std::string& probability);

/// Whether a row of Demand holds a volume and a probability, both within the range of a single.
/// One that does not is left out of list, sum and design.
bool IsDemandPoint(const RecordSet& demand);

/// Sum of the probabilities of the demand points, percent; 0 without any.
double SumOfProbabilities(const Database& database);

/// Whether a sum of probabilities rounds to 100.00, which the rounding of singles allows for.
bool IsComplete(double percent);

/// A sum of probabilities to two decimals: "85%".
std::string PercentText(double percent);

/// Refills lstDemand in ascending order of volume, and lblSum with the sum of the probabilities:
/// dark blue and "100%" for a complete one, else red with what is missing or too much ("85% (15%
/// missing)"). Rows that are no demand points are left out, which lblSum says. Errors end it
/// silently; with no demand row list and sum keep what they showed.
void ListDemand(const WorkingCopy& copy, DemandList& list);

/// The row behind a line of lstDemand (from 0), the current one of an updatable set. Throws
/// NoCurrentRecord for a line beyond the demand points.
RecordSet DemandRowOfLine(const Database& database, int line);

/// What selecting a line of lstDemand does: txtVolume and txtProb show its row. Throws
/// NoCurrentRecord for a line beyond the demand points.
void ShowDemandRow(const Database& database, int line, TextBoxes& boxes);

}  // namespace quarnel02
