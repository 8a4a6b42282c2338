#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "report/Document.h"
#include "shell/MainForm.h"

namespace quarnel02 {

/// What a report needs to know besides the form.
struct ReportOccasion {
    std::string File;        ///< of the model, "" for one without
    bool OutOfDate = false;  ///< the model has been changed since the design was made
    std::chrono::system_clock::time_point When;
};

/// The report of the model that the form shows: product, parameters, demand, and the results of its
/// last design with all pictures, stations and their costs; without a design it says so. Sections
/// of results that are out of date say so in their headings, and the report at its beginning.
/// `further` is appended: for each study a HeadingPart with the parts that belong to it.
/// Throws as TableOf does for a line.
Document ComposeReport(const MainForm& form, const ReportOccasion& occasion,
                       std::vector<DocumentPart> further = {});

}  // namespace quarnel02
