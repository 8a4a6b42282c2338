#include "batch/SolveFile.h"

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/RunTimeError.h"
#include "batch/BatchForm.h"
#include "batch/Interruption.h"
#include "batch/Results.h"
#include "commands/LoadModel.h"
#include "commands/SolveFixedDemand.h"
#include "files/ReadModel.h"
#include "shell/Demand.h"
#include "shell/Reports.h"
#include "stoch/cmdStoch.h"

namespace quarnel02 {

namespace {

std::string VolumesOf(const Database& database) {
    RecordSet demand = database.OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    std::string volumes;
    for (; !demand.Eof(); demand.MoveNext()) {
        volumes += (volumes.empty() ? "" : "; ") + Format(demand.Number("Volume"), "#,##0");
    }
    return volumes;
}

/// An empty text is no answer.
void RequireStationLimit(const SolveRequest& request) {
    if (request.StationLimit && request.StationLimit->empty()) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "--station-limit is empty. Give a number of stations, or leave the "
                           "option out for no limit.");
    }
}

/// The demand that is given, or the only row's volume as the demand list shows it; "" for none.
std::string DemandOf(BatchForm& form, const SolveRequest& request) {
    if (request.Demand) {
        return *request.Demand;
    }
    if (form.DemandCount() != 1) {
        return {};
    }
    form.SelectDemand(0);
    return form.Text(TextBox::txtVolume);
}

FixedDemandAnswers AnswersOf(BatchForm& form, const SolveRequest& request) {
    const std::string demand = DemandOf(form, request);
    if (demand.empty()) {
        const std::string volumes = VolumesOf(form.OpenWorkingCopy());
        throw RunTimeError(ErrorKind::TypeMismatch,
                           PathText(request.Model) +
                               (volumes.empty() ? " has no demand row."
                                                : " has these demand volumes: " + volumes + ".") +
                               " Say which annual demand to design for with --demand.");
    }
    return {request.Shifts, demand, request.StationLimit.value_or("")};
}

/// What a solve has printed, and the report file that it has left.
struct Printed {
    std::string Text;
    const char* ReportFile;
};

Printed SolveFixedDemand(BatchForm& form, const SolveRequest& request) {
    SolveFixedDemand(form, AnswersOf(form, request));
    return {"", kRunReport};
}

Printed SolveStochastic(BatchForm& form, const SolveRequest& request) {
    MakeRunFileDirectory(request);
    const StochasticOutcome outcome = cmdStoch_Click(form, request.KeepRunFiles);
    return {outcome.Summary + "\n", kProductionReport};
}

}  // namespace

SolveOutcome SolveFile(const SolveRequest& request) {
    RequireModelSpared(request);
    RequireStationLimit(request);
    const ScratchDirectory application;
    BatchForm form(application.Path(), request.Progress);
    const ModelFormat format =
        ReadModel(request.Model, form.Copy().Path(), PathText(request.Model));

    LoadModel(form);
    ListDemand(form.Copy(), form);
    const Printed printed =
        request.Stochastic ? SolveStochastic(form, request) : SolveFixedDemand(form, request);
    SolveOutcome outcome = TakeOutcome(form, request, printed.ReportFile, format);
    if (!outcome.Report.empty()) {
        outcome.Report.insert(0, printed.Text);
    }
    return outcome;
}

}  // namespace quarnel02
