#include "batch/SolveFile.h"

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/RunTimeError.h"
#include "batch/Interruption.h"
#include "batch/Results.h"
#include "fixed/LoadModel.h"
#include "fixed/cmdContinuous.h"
#include "model/ReadModel.h"
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

/// An empty answer would cancel the solve without a word.
void RequireStationLimit(const SolveRequest& request) {
    if (request.Answers.StationLimit && request.Answers.StationLimit->empty()) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "--station-limit is empty. Give a number of stations, or leave the "
                           "option out for no limit.");
    }
}

/// Whether the solve will find a demand: the one that is given, or the only row's volume.
bool HasDemand(BatchForm& form, const SolveRequest& request) {
    if (request.Answers.Demand) {
        return !request.Answers.Demand->empty();
    }
    if (form.DemandCount() != 1) {
        return false;
    }
    form.SelectDemand(0);
    return !form.Text(TextBox::txtVolume).empty();
}

void RequireDemand(BatchForm& form, const SolveRequest& request) {
    if (HasDemand(form, request)) {
        return;
    }
    const std::string volumes = VolumesOf(form.Model);
    throw RunTimeError(ErrorKind::TypeMismatch,
                       PathText(request.Model) +
                           (volumes.empty() ? " has no demand row."
                                            : " has these demand volumes: " + volumes + ".") +
                           " Say which annual demand to design for with --demand.");
}

/// What a solve has printed, and the report file that it has left.
struct Printed {
    std::string Text;
    const char* ReportFile;
};

Printed SolveFixedDemand(BatchForm& form, const SolveRequest& request) {
    RequireDemand(form, request);
    cmdContinuous_Click(form, request.Shifts);
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
    BatchForm form(application.Path(), request.Answers);
    ReadModel(request.Model, form.WorkingCopy(), PathText(request.Model));

    LoadModel(form);
    ListDemand(form);
    const Printed printed =
        request.Stochastic ? SolveStochastic(form, request) : SolveFixedDemand(form, request);
    form.CloseModel();
    SolveOutcome outcome = TakeOutcome(form, request, printed.ReportFile);
    if (!outcome.Report.empty()) {
        outcome.Report.insert(0, printed.Text);
    }
    return outcome;
}

}  // namespace quarnel02
