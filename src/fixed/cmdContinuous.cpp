#include "fixed/cmdContinuous.h"

#include <optional>
#include <string>

#include "basic/Numbers.h"
#include "fixed/CostPathways.h"
#include "fixed/GeneratePathways.h"
#include "line/FixedDemand.h"
#include "shell/ModelCheck.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

std::string AskDemand(MainForm& form, const std::string& proposal) {
    return form.InputBox("What is the fixed demand for this product?", "Fixed Demand", proposal);
}

/// The volume that the only demand row shows; "" when that is none, which the user is told.
std::string VolumeOfOnlyRow(MainForm& form) {
    std::string volume = form.Text(TextBox::txtVolume);
    if (volume.empty()) {
        form.ShowMessage(
            "The volume of the only demand row is 0. Enter a volume above 0 and press Update, or "
            "press Delete to be asked for the demand.",
            MessageIcon::Information);
    }
    return volume;
}

/// The annual demand as text; "" when the user gives none.
std::string ChooseDemand(MainForm& form) {
    const int rows = form.DemandCount();
    if (rows == 0) {
        return AskDemand(form, "");
    }
    if (rows == 1) {
        form.SelectDemand(0);
        form.DoEvents();
        return VolumeOfOnlyRow(form);
    }
    if (form.SelectedDemand() < 0) {
        form.SelectDemand(rows - 1);
    }
    return AskDemand(form, form.Text(TextBox::txtVolume));
}

/// The station limit as answered, "" for none; nothing when the user cancels.
std::optional<std::string> AskStationLimit(MainForm& form) {
    if (!form.AskYesNo("Do you want to limit parallel stations?", MessageIcon::None, Answer::Yes)) {
        return "";
    }
    const std::string answer =
        form.InputBox("What is the maximum number of stations allowed?", kApplicationTitle, "");
    return answer.empty() ? std::nullopt : std::optional(answer);
}

/// An answer below 1 is no limit.
void TakeStationLimit(FixedDemandState& state, const std::string& answer) {
    if (answer.empty() || TextToDouble(answer, "Station Limit") < 1) {
        state.StationLimitText = "--";
        state.StationLimit = -1;
        return;
    }
    state.StationLimit = TextToInteger(answer, "Station Limit");
    state.StationLimitText = answer;
}

}  // namespace

void cmdContinuous_Click(MainForm& form, std::int16_t index) {
    FixedDemandState& state = form.FixedDemandSolve;
    state.ShiftCount = index;
    ClearResults(form);
    const std::string demand = ChooseDemand(form);
    if (demand.empty()) {
        return;
    }
    state.FixedDemand = demand;
    const auto limit = AskStationLimit(form);
    if (!limit) {
        return;
    }
    RemoveReport(form.ApplicationDirectory(), kRunReport);
    TakeStationLimit(state, *limit);
    if (!HasTasksAndResources(form)) {
        return;
    }
    RequireUsableModel(form.OpenWorkingCopy());
    form.GenRecords = form.Model.OpenRecordSet("SELECT * FROM Gen;");
    Production production;
    production.Days = form.GenRecords.Number("Days");
    const FixedDemandRequest request{.Volume = TextToDouble(demand, "Fixed Demand"),
                                     .Shifts = state.ShiftCount,
                                     .StationLimit = std::nullopt};
    state.AvailableCycleTime = WorkloadOf(request, production).AvailableCycleTime;
    GeneratePathways(form);
    CostPathways(form);
}

}  // namespace quarnel02
