#include "stoch/cmdStoch.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/DrawLinks.h"
#include "shell/Demand.h"
#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

constexpr int kFewestPoints = 2;

/// What txtPenalty holds, dollars per unit of unmet demand.
float PenaltyPerUnit(const TextBoxes& boxes) {
    const float penalty = TextToSingle(boxes.Text(TextBox::txtPenalty), "Penalty ($/unit)");
    if (penalty < 0) {
        throw RunTimeError(ErrorKind::Overflow, "Penalty ($/unit) is " + NumberText(penalty) +
                                                    "; it must be at least 0.");
    }
    return penalty;
}

/// Whether the planner wants a design for probabilities that do not add up to 100.
bool WantsProbabilities(const Database& database, Dialogs& dialogs) {
    constexpr double tolerated = 0.05;
    constexpr double complete = 100;
    const double sum = SumOfProbabilities(database);
    return std::fabs(sum - complete) <= tolerated ||
           dialogs.SolveAnyway("The probabilities add up to " + PercentText(sum) + ".");
}

/// Refuses figures that a run cannot be made of. Returns the penalty per unit; without one where a
/// resource is missing, which is for the run to say.
float UsablePenalty(const Database& database, const TextBoxes& boxes) {
    RequireUsableResources(database);  // one entered twice leaves another number without a row
    if (!HasEveryResource(database)) {
        return 0;
    }
    RequireUsableModel(database);
    RequireUsableDemand(database);
    return PenaltyPerUnit(boxes);
}

StochasticOutcome Design(MainForm& form, const Database& database,
                         const std::optional<std::filesystem::path>& keepRunFiles) {
    if (!HasTasksAndResources(database, form)) {
        return {};
    }
    const float penalty = UsablePenalty(database, form);
    if (!WantsProbabilities(database, form)) {
        return {};
    }
    return RunStochastic(database, {form.Copy().Directory(), penalty, keepRunFiles}, form, form,
                         form);
}

std::optional<DesignedLine> DesignedLineOf(LineModel model, const StochasticOutcome& outcome) {
    if (!outcome.Line) {
        return std::nullopt;
    }
    std::vector<StationGroup> groups;
    for (const ExpectedGroup& each : outcome.Line->Groups) {
        groups.push_back(each.Group);
    }
    return DesignedLine{std::move(model), std::move(groups), outcome.Line};
}

}  // namespace

StochasticOutcome cmdStoch_Click(MainForm& form,
                                 const std::optional<std::filesystem::path>& keepRunFiles) {
    const PictureBoxes before = static_cast<const PictureBoxes&>(form);
    ClearResults(form);
    if (form.DemandCount() < kFewestPoints) {
        form.ShowMessage("You must first enter a probability distribution for demand.",
                         MessageIcon::Information);
        return {};
    }
    Database database = form.OpenWorkingCopy();
    StochasticOutcome outcome = Design(form, database, keepRunFiles);
    if (outcome.End == StochasticEnd::Designed) {
        DrawLinks(database, form, form.picArc, PathwayCosts::Unknown);
        form.LastDesign = NewDesign(database, "Capacity " + outcome.CapacityText + " units a year",
                                    form.Text(TextBox::txtProduct));
        form.LastDesign->Cost = outcome.CostText + " expected";
        form.LastDesign->Took = outcome.Took;
        form.LastDesign->Line = DesignedLineOf(LoadLineModel(database), outcome);
        OpenReport(form.Copy(), kProductionReport, form);
    } else if (outcome.End == StochasticEnd::Cancelled) {
        ShowResultsAgain(before, form);
    }
    database.Close();  // ending the program cleans nothing up
    if (outcome.End == StochasticEnd::ImpossibleTask) {
        form.EndProgram();
    }
    return outcome;
}

}  // namespace quarnel02
