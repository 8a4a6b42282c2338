#include "fixed/cmdContinuous.h"

#include <string>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/CostPathways.h"
#include "fixed/GeneratePathways.h"

namespace quarnel02 {

namespace {

std::string AskDemand(MainForm& form, const std::string& proposal) {
    return form.InputBox("What is the fixed demand for this product?", "Fixed Demand", proposal);
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
        return form.Text(TextBox::txtVolume);
    }
    if (form.SelectedDemand() < 0) {
        form.SelectDemand(rows - 1);
    }
    return AskDemand(form, form.Text(TextBox::txtVolume));
}

/// Fills the station limit; false when the user cancels.
bool ChooseStationLimit(MainForm& form) {
    FixedDemandState& state = form.FixedDemandSolve;
    if (!form.AskYesNo("Do you want to limit parallel stations?", MessageIcon::None, Answer::Yes)) {
        state.StationLimitText = "--";
        state.StationLimit = -1;
        return true;
    }
    const std::string answer =
        form.InputBox("What is the maximum number of stations allowed?", kApplicationTitle, "");
    if (answer.empty()) {
        return false;
    }
    if (TextToDouble(answer, "Station Limit") < 1) {
        state.StationLimit = -1;  // Meant: the text of the last limit stays.
        return true;
    }
    const std::int16_t limit = TextToInteger(answer, "Station Limit");
    state.StationLimitText = answer;
    state.StationLimit = limit;
    return true;
}

/// Seconds of production per year over the units of the year.
double CycleTimeFor(double days, std::int16_t shifts, double demand) {
    constexpr double hours_per_shift = 8;
    constexpr double seconds_per_hour = 3600;
    if (demand == 0) {
        throw RunTimeError(ErrorKind::DivisionByZero,
                           "Fixed Demand is 0. Enter an annual volume above 0.");
    }
    if (demand < 0) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Fixed Demand: " + NumberText(demand) +
                               " is negative. Enter an annual volume above 0.");
    }
    return days * shifts * hours_per_shift * seconds_per_hour / demand;
}

}  // namespace

void cmdContinuous_Click(MainForm& form, std::int16_t index) {
    FixedDemandState& state = form.FixedDemandSolve;
    state.ShiftCount = index;
    for (Picture& picture : form.picGraph) {
        picture.Clear();
    }
    const std::string demand = ChooseDemand(form);
    if (demand.empty()) {
        return;
    }
    state.FixedDemand = demand;
    if (!ChooseStationLimit(form)) {
        return;
    }
    form.GenRecords = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Gen;");
    state.AvailableCycleTime = CycleTimeFor(form.GenRecords.Number("Days"), state.ShiftCount,
                                            TextToDouble(demand, "Fixed Demand"));
    GeneratePathways(form);
    CostPathways(form);
}

}  // namespace quarnel02
