#include "commands/cmdContinuous.h"

#include <optional>
#include <string>

#include "commands/SolveFixedDemand.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

std::string AskDemand(Dialogs& dialogs, const std::string& proposal) {
    return dialogs.InputBox("What is the fixed demand for this product?", "Fixed Demand", proposal);
}

/// The volume that the only demand row shows; "" when that is none, which the user is told.
std::string VolumeOfOnlyRow(MainForm& form) {
    form.SelectDemand(0);
    form.DoEvents();
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
        return VolumeOfOnlyRow(form);
    }
    if (form.SelectedDemand() < 0) {
        form.SelectDemand(rows - 1);
    }
    return AskDemand(form, form.Text(TextBox::txtVolume));
}

/// The station limit as answered, "" for none; nothing when the user cancels.
std::optional<std::string> AskStationLimit(Dialogs& dialogs) {
    if (!dialogs.AskYesNo("Do you want to limit parallel stations?", MessageIcon::None,
                          Answer::Yes)) {
        return "";
    }
    const std::string answer =
        dialogs.InputBox("What is the maximum number of stations allowed?", kApplicationTitle, "");
    return answer.empty() ? std::nullopt : std::optional(answer);
}

/// Nothing when the user cancels.
std::optional<FixedDemandAnswers> AskFixedDemand(MainForm& form, std::int16_t shifts) {
    const std::string demand = ChooseDemand(form);
    if (demand.empty()) {
        return std::nullopt;
    }
    const std::optional<std::string> limit = AskStationLimit(form);
    return limit ? std::optional(FixedDemandAnswers{shifts, demand, *limit}) : std::nullopt;
}

}  // namespace

void cmdContinuous_Click(MainForm& form, std::int16_t index) {
    ClearResults(form);
    if (const auto answers = AskFixedDemand(form, index)) {
        SolveFixedDemand(form, *answers);
    }
}

}  // namespace quarnel02
