#include "studies/StudyInput.h"

#include <algorithm>

#include "study/FigureText.h"
#include "study/WhyNot.h"

namespace quarnel02 {

bool StudyQuestion::operator==(const StudyQuestion& other) const {
    return Expected == other.Expected && Request.Volume == other.Request.Volume &&
           Request.Shifts == other.Request.Shifts &&
           Request.StationLimit == other.Request.StationLimit;
}

std::string QuestionText(const StudyQuestion& question) {
    if (question.Expected) {
        return "the demand distribution";
    }
    const FixedDemandRequest& request = question.Request;
    std::string text = FigureText(request.Volume) + " units a year in " +
                       CountText(request.Shifts, "shift", "shifts");
    if (request.StationLimit) {
        text += ", at most " +
                CountText(*request.StationLimit, "parallel station", "parallel stations");
    }
    return text;
}

float StudyInput::Penalty() const {
    return static_cast<float>(Model().Parameters().Penalty);
}

double LikeliestVolume(const LineModel& model) {
    const auto points = model.Demand();
    const auto likeliest = std::max_element(points.begin(), points.end(),
                                            [](const DemandPoint& left, const DemandPoint& right) {
                                                return left.Probability < right.Probability;
                                            });
    return likeliest == points.end() ? 0 : static_cast<double>(likeliest->Volume);
}

std::vector<double> AskedVolumes(const StudyInput& input) {
    if (!input.Question.Expected) {
        return {input.Question.Request.Volume};
    }
    std::vector<double> volumes;
    for (const DemandPoint& point : input.Model().Demand()) {
        volumes.push_back(static_cast<double>(point.Volume));
    }
    return volumes;
}

std::string NoLineText(const StudyInput& input) {
    const FixedDemandRequest request =
        input.Question.Expected ? LeastExpectedRequest(input.Model()) : input.Question.Request;
    const std::string reasons = WhyNotText(ExplainNoLine(*input.Line, request), request);
    return reasons.empty()
               ? ""
               : "No line does all tasks for " + QuestionText(input.Question) + ".\n\n" + reasons;
}

}  // namespace quarnel02
