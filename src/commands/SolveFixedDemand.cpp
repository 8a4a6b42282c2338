#include "commands/SolveFixedDemand.h"

#include <chrono>
#include <exception>
#include <utility>
#include <vector>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/ScopeGuard.h"
#include "charts/StationLoad.h"
#include "fixed/CostPathways.h"
#include "fixed/DrawLinks.h"
#include "fixed/FindBestPath.h"
#include "fixed/GeneratePathways.h"
#include "fixed/WriteSolutionSummary.h"
#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"
#include "shell/Reports.h"
#include "study/LineTable.h"

namespace quarnel02 {

namespace {

void DrawNetwork(MainForm& form, const Database& database) {
    DrawLinks(database, form, form.picArc);
}

/// After an error, so that no progress colour stays.
void RedrawNetwork(MainForm& form, const Database& database) noexcept {
    try {
        DrawNetwork(form, database);
    } catch (const std::exception&) {  // the first error is the one to report
        return;
    }
}

void ShowUncosted(Dialogs& dialogs, Costing costing) {
    if (costing == Costing::NoPathway) {
        dialogs.ShowMessage("Please complete the task and resource tables first.",
                            MessageIcon::Information);
    } else {
        dialogs.ShowMessage("There is not a feasible solution!", MessageIcon::Critical);
    }
}

void ShowDeadEnd(Dialogs& dialogs, DeadEnd end) {
    const bool broken = end == DeadEnd::BrokenChain;
    dialogs.ShowMessage(
        broken ? "There is no feasible solution!" : "There is no feasible solution.",
        end == DeadEnd::UnreachedStart ? MessageIcon::Information : MessageIcon::Critical);
}

/// How far a line that was found goes.
struct LineEnd {
    int LastTask;  ///< of the line
    int Tasks;     ///< of the model

    [[nodiscard]] bool LeavesTasksOut() const { return LastTask < Tasks; }
};

/// "2 shifts, 60,000 units a year"
std::string DesignCaption(const FixedDemandRequest& request, LineEnd end) {
    const std::string shifts =
        NumberText(int{request.Shifts}) + (request.Shifts == 1 ? " shift" : " shifts");
    const std::string volume = Format(request.Volume, "#,##0") + " units a year";
    return shifts + ", " + volume +
           (end.LeavesTasksOut() ? ", ends after task " + NumberText(end.LastTask) : "");
}

std::string LeftOutText(LineEnd end) {
    return "This line ends after task " + NumberText(end.LastTask) + ": no resource can do tasks " +
           NumberText(end.LastTask + 1) + " to " + NumberText(end.Tasks) + " within the limits.";
}

/// The stations of the line that the pathways in state 4 are.
std::vector<StationGroup> ChosenGroups(const Database& database) {
    RecordSet rows = database.OpenRecordSet(
        "SELECT Pathways.ResourceId, Arcs.TaskStart, Arcs.TaskEnd, Pathways.Stations FROM Pathways "
        "INNER JOIN Arcs ON Pathways.ArcId = Arcs.ArcId WHERE Pathways.Feasible = 4 ORDER BY "
        "Arcs.TaskStart;");
    std::vector<StationGroup> groups;
    for (; !rows.Eof(); rows.MoveNext()) {
        groups.push_back({rows.Integer(0), rows.Integer(1), rows.Integer(2) - 1, rows.Integer(3)});
    }
    return groups;
}

/// The search has ended with a line. The report comes last: another program shows it.
void ShowLine(MainForm& form, const Database& database, const LineModel& model,
              const FixedDemandOrder& order, LineEnd end) {
    const std::string cost =
        WriteSolutionSummary(database, model, order, form, form.Copy().File(kRunReport));
    std::vector<StationGroup> groups = ChosenGroups(database);
    DrawStationLoad(form.picLoad, model,
                    TableOf(model, groups, BasisOf(order.Request, model.Parameters())));
    form.LastDesign = NewDesign(database, DesignCaption(order.Request, end),
                                form.Text(TextBox::txtProduct), order.Request);
    form.LastDesign->Cost = cost;
    form.LastDesign->Line = DesignedLine{model, std::move(groups)};
    OpenReport(form.Copy(), kRunReport, form);
    if (end.LeavesTasksOut()) {
        form.ShowMessage(LeftOutText(end), MessageIcon::Critical);
    }
}

}  // namespace

void TakeStationLimit(const std::string& answer, FixedDemandOrder& order) {
    if (answer.empty() || TextToDouble(answer, "Station Limit") < 1) {
        return;
    }
    order.Request.StationLimit = TextToInteger(answer, "Station Limit");
    order.LimitText = answer;
}

void ReportLine(MainForm& form, const Database& database, const LineModel& model,
                const FixedDemandOrder& order) {
    const ReportedChain chain = FindBestPath(database);
    DrawNetwork(form, database);
    if (chain.End != DeadEnd::None) {
        ShowDeadEnd(form, chain.End);
        return;
    }
    ShowLine(form, database, model, order, {chain.Labels.back().Node - 1, model.TaskCount()});
}

void DesignLine(MainForm& form, const Database& database, const LineModel& model,
                const FixedDemandOrder& order) {
    const FailureGuard redraw([&] { RedrawNetwork(form, database); });
    const Costing costing = CostPathways(database, model, order.Request, form.picArc);
    if (costing != Costing::Feasible) {
        DrawNetwork(form, database);
        ShowUncosted(form, costing);
        return;
    }
    ReportLine(form, database, model, order);
}

void SolveFixedDemand(MainForm& form, const FixedDemandAnswers& answers) {
    const auto start = std::chrono::system_clock::now();
    RemoveReport(form.Copy(), kRunReport);
    FixedDemandOrder order;
    order.Request.Shifts = answers.Shifts;
    TakeStationLimit(answers.StationLimit, order);
    const Database database = form.OpenWorkingCopy();
    if (!HasTasksAndResources(database, form)) {
        return;
    }
    RequireUsableModel(database);
    order.Request.Volume = TextToDouble(answers.Demand, "Fixed Demand");
    const LineModel model = LoadLineModel(database);
    static_cast<void>(WorkloadOf(order.Request, model.Parameters()));  // refuses volumes
    GeneratePathways(database, form, form.picArc);
    DesignLine(form, database, model, order);
    if (form.LastDesign) {
        form.LastDesign->Took = form.LastDesign->When - start;
    }
}

}  // namespace quarnel02
