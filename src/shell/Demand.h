#pragma once

#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

/// Line of lstDemand for a row: "12,500:  25%".
std::string DemandLineText(double volume, const std::string& probability);

/// Refills lstDemand in ascending order of volume, and lblSum with the sum of the probabilities:
/// dark blue for exactly 100, else red. Errors end it silently; with no demand row list and sum
/// keep what they showed.
void ListDemand(MainForm& form);

/// What selecting a line of lstDemand does: txtVolume and txtProb show the row that stands at
/// that place (from 0) in ascending order of volume. Throws NoCurrentRecord for a line beyond
/// the table.
void ShowDemandRow(MainForm& form, int line);

}  // namespace quarnel02
