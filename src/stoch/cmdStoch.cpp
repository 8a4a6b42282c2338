#include "stoch/cmdStoch.h"

#include <cmath>
#include <set>
#include <string>

#include "shell/Demand.h"
#include "shell/ModelCheck.h"
#include "shell/Reports.h"
#include "stoch/AddExpectedPenalties.h"

namespace quarnel02 {

namespace {

constexpr int kFewestPoints = 2;

/// Whether each resource that Gen counts is there. The run says so when it is not.
bool HasEveryResource(const Database& database) {
    RecordSet rows = database.OpenRecordSet("SELECT ResourceId FROM Resources;");
    std::set<Value> numbers;
    for (; !rows.Eof(); rows.MoveNext()) {
        numbers.insert(rows.Field(0));
    }
    const RecordSet gen = database.OpenRecordSet("SELECT Resources FROM Gen;");
    std::int64_t number = gen.Integer(0);
    while (number > 0 && numbers.contains(Value(number))) {
        --number;
    }
    return number == 0;
}

/// Whether the planner wants a design for probabilities that do not add up to 100.
bool WantsProbabilities(MainForm& form) {
    constexpr double tolerated = 0.05;
    constexpr double complete = 100;
    const double sum = SumOfProbabilities(form.Model);
    return std::fabs(sum - complete) <= tolerated ||
           form.SolveAnyway("The probabilities add up to " + PercentText(sum) + ".");
}

/// Everything that may stop a run before it touches anything.
bool MayRun(MainForm& form) {
    if (!HasTasksAndResources(form)) {  // which opens the model
        return false;
    }
    RequireUsableResources(form.Model);  // one entered twice leaves another number without a row
    if (HasEveryResource(form.Model)) {
        RequireUsableModel(form.Model);
        RequireUsableDemand(form.Model);
        (void)PenaltyPerUnit(form);
    }
    return WantsProbabilities(form);
}

}  // namespace

void cmdStoch_Click(MainForm& form, const RunListener& listener) {
    ClearResults(form);
    if (form.DemandCount() < kFewestPoints) {
        form.ShowMessage("You must first enter a probability distribution for demand.",
                         MessageIcon::Information);
        return;
    }
    if (MayRun(form)) {
        RunStochastic(form, listener);
    }
    form.Model.Close();
}

}  // namespace quarnel02
