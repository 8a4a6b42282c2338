#pragma once

#include <string>
#include <vector>

#include "report/Document.h"
#include "studies/StudyPage.h"

namespace quarnel02 {

/// A tab of the study window for the report of the model: a heading with its name, which says when
/// it is out of date, what it is about, its charts and its tables, or the text that stands in their
/// place.
std::vector<DocumentPart> ReportSection(const StudyPage& page, const std::string& name);

}  // namespace quarnel02
