#pragma once

#include <memory>
#include <string>
#include <vector>

#include "line/FixedDemand.h"
#include "line/Pathways.h"
#include "study/Scenarios.h"

namespace quarnel02 {

/// Which design a study is about.
struct StudyQuestion {
    bool Expected = false;       ///< that for the demand distribution; else that of Request
    FixedDemandRequest Request;  ///< of the fixed design; its volume is 0 as long as none is known

    bool operator==(const StudyQuestion& other) const;
};

/// "60,000 units a year in 2 shifts, at most 3 parallel stations" or "the demand distribution".
std::string QuestionText(const StudyQuestion& question);

/// What the tabs of the study window work on, as values: safe to be read in another thread.
struct StudyInput {
    std::shared_ptr<const PreparedLine> Line;
    StudyQuestion Question;
    std::vector<Scenario> Scenarios = {};            ///< that the model keeps
    std::shared_ptr<const DesignOrder> Opened = {};  ///< what the window first showed of the model

    [[nodiscard]] const LineModel& Model() const { return Line->Model; }
    /// Dollars per unit of unmet demand.
    [[nodiscard]] float Penalty() const;
};

/// Of the demand rows of a model the volume that is the most probable one, the lowest of equals; 0
/// without any.
double LikeliestVolume(const LineModel& model);

/// The volumes that a question is about: its own, or those of the demand rows.
std::vector<double> AskedVolumes(const StudyInput& input);

/// Why the question has no line, with what would have one; "" when there is one. Throws as
/// ExplainNoLine does.
std::string NoLineText(const StudyInput& input);

}  // namespace quarnel02
