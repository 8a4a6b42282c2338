#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace quarnel02 {

class MainForm;

/// The design whose results the form shows, and what it was made from.
struct DesignMade {
    std::string Caption;  ///< "2 shifts, 60,000 units a year" or "Capacity 84,000 units a year"
    std::string Product;
    std::chrono::system_clock::time_point When;
    std::uint64_t Inputs;  ///< digest of the entered tables at that time
};

/// Records that the results of a design of the working copy as it now is are shown.
void NoteDesign(MainForm& form, const std::string& caption);

/// Whether results are shown that were made from other figures than the working copy now holds.
/// Throws what the store reports.
bool ResultsAreOutOfDate(MainForm& form);

}  // namespace quarnel02
