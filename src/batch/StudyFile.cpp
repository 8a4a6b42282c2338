#include "batch/StudyFile.h"

#include "batch/Answers.h"
#include "batch/Json.h"
#include "batch/OpenedModel.h"
#include "batch/PrintStudy.h"
#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kFewestPoints = 2;

/// Whether the model can be studied; else the form has said what is missing.
bool IsComplete(BatchForm& form, const Database& database, const SolveRequest& request) {
    if (!HasTasksAndResources(database, form)) {
        return false;
    }
    RequireUsableModel(database);
    if (!request.Stochastic) {
        return true;
    }
    RequireUsableDemand(database);
    if (LoadLineModel(database).Demand().size() < kFewestPoints) {
        form.ShowMessage("You must first enter a probability distribution for demand.",
                         MessageIcon::Information);
        return false;
    }
    return true;
}

SolveOutcome NotComplete(const BatchForm& form, const SolveRequest& request) {
    SolveOutcome outcome{"", form.Messages(), ""};
    if (request.Format == PrintFormat::Json) {
        outcome.Report = JsonLine(NoResultJson(JsonHead(request), outcome.Messages));
    }
    return outcome;
}

}  // namespace

SolveOutcome StudyFile(const SolveRequest& request) {
    RequireStationLimit(request);
    OpenedModel opened(request.Model, request.Progress);
    BatchForm& form = opened.Form();
    const Database database = form.OpenWorkingCopy();
    if (!IsComplete(form, database, request)) {
        return NotComplete(form, request);
    }
    const StudyFindings findings = FindingsOf(form, request, LoadLineModel(database));
    SolveOutcome outcome{PrintStudy(request, findings), {}, findings.WhyNot};
    if (!findings.Found) {
        outcome.Messages = {"There is no feasible solution."};
    }
    return outcome;
}

}  // namespace quarnel02
