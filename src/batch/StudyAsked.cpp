#include "batch/StudyAsked.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "batch/Answers.h"
#include "study/LargestVolume.h"
#include "study/Sensitivity.h"

namespace quarnel02 {

namespace {

int WholeVolume(const std::string& text, const char* option) {
    const double volume = TextToDouble(text, option);
    if (volume != std::trunc(volume) || volume < 1 || volume > kMostVolume) {
        throw RunTimeError(ErrorKind::Overflow, std::string(option) + ": " + text +
                                                    " must be a whole number from 1 to " +
                                                    Format(kMostVolume, "#,###") + ".");
    }
    return static_cast<int>(volume);
}

/// Twice the largest volume of the demand rows.
int UsualLastVolume(const SolveRequest& request, const LineModel& model) {
    double most = 0;
    for (const DemandPoint& point : model.Demand()) {
        most = std::max(most, std::ceil(2 * static_cast<double>(point.Volume)));
    }
    if (most < 1) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           PathText(request.Model) +
                               " has no demand row with a volume. Say with --to up to which annual "
                               "volume to look.");
    }
    return static_cast<int>(std::min<double>(most, kMostVolume));
}

}  // namespace

FixedDemandRequest FixedRequestOf(BatchForm& form, const SolveRequest& request) {
    const FixedDemandAnswers answers = AnswersOf(form, request);
    return {TextToDouble(answers.Demand, "Fixed Demand"), answers.Shifts, StationLimitOf(request)};
}

VolumeSpan SpanOf(const SolveRequest& request, const LineModel& model) {
    const StudyOrder& order = *request.Study;
    VolumeSpan span;
    span.From = order.From ? WholeVolume(*order.From, "--from") : 1;
    span.To = order.To ? WholeVolume(*order.To, "--to") : UsualLastVolume(request, model);
    span.StationLimit = StationLimitOf(request);
    return span;
}

double ShareOf(const SolveRequest& request) {
    constexpr double percent = 100;
    const auto& share = request.Study->Share;
    return share ? TextToDouble(*share, "--share") / percent : kUsualShare;
}

}  // namespace quarnel02
