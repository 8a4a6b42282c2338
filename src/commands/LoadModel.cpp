#include "commands/LoadModel.h"

#include <array>

#include "basic/ScopeGuard.h"
#include "fixed/CreateLinks.h"
#include "shell/Demand.h"
#include "shell/Reports.h"

namespace quarnel02 {

namespace {

/// The boxes in the order of the columns of Gen.
constexpr std::array kGenBoxes = {
    TextBox::txtResources, TextBox::txtTasks,     TextBox::txtDays,    TextBox::txtACF,
    TextBox::txtLaborCost, TextBox::txtTransTime, TextBox::txtPenalty, TextBox::txtProduct};

void FillBoxes(const Database& database, TextBoxes& boxes) {
    const RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    for (std::size_t position = 0; position < kGenBoxes.size(); ++position) {
        boxes.SetText(kGenBoxes[position], gen.Text(static_cast<int>(position)));
    }
}

}  // namespace

void LoadModel(MainForm& form) {
    form.SetBusy(true);
    const ScopeGuard pointer([&] { form.SetBusy(false); });
    const Database database = form.OpenWorkingCopy();
    FillBoxes(database, form);
    ClearResults(form);
    for (const TextBox box : {TextBox::txtVolume, TextBox::txtProb}) {
        form.SetText(box, "");
    }
    CreateLinks(database, form, form.picArc);
}

void ShowDemand(MainForm& form) {
    form.ClearDemand();
    form.ShowDemandSum("", {});
    ListDemand(form.Copy(), form);
}

void ShowInputs(MainForm& form) {
    const Database database = form.OpenWorkingCopy();
    FillBoxes(database, form);
    ShowDemand(form);
    CreateLinks(database, form, form.picArc);
}

}  // namespace quarnel02
