#include "commands/DemandCommands.h"

#include <cctype>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "shell/Demand.h"
#include "shell/Figures.h"

namespace quarnel02 {

namespace {

/// A row of Demand as it is entered.
struct DemandRow {
    float Volume;
    float Prob;
};

/// The text less its last character, which is the percent sign.
std::string WithoutPercentSign(const std::string& text) {
    return text.substr(0, text.empty() ? 0 : text.size() - 1);
}

/// The number of a box, if it can be.
float Checked(float value, const char* field) {
    std::string objection = Objection(*FindFigure("Demand", field), DecimalOfSingle(value));
    if (objection.empty()) {
        return value;
    }
    objection.front() =
        static_cast<char>(std::toupper(static_cast<unsigned char>(objection.front())));
    throw RunTimeError(ErrorKind::Overflow, objection);
}

DemandRow RowInBoxes(const TextBoxes& boxes) {
    return {Checked(TextToSingle(boxes.Text(TextBox::txtVolume), "Volume"), "Volume"),
            Checked(TextToSingle(WithoutPercentSign(boxes.Text(TextBox::txtProb)), "Probability"),
                    "Prob")};
}

bool BothBoxesFilled(const TextBoxes& boxes) {
    return !boxes.Text(TextBox::txtVolume).empty() && !boxes.Text(TextBox::txtProb).empty();
}

void WriteRow(RecordSet& demand, const DemandRow& row) {
    demand.Set("Volume", double{row.Volume});
    demand.Set("Prob", double{row.Prob});
    demand.Update();
    demand.MoveToLastModified();
}

void EmptyBoxes(TextBoxes& boxes) {
    boxes.SetText(TextBox::txtVolume, "");
    boxes.SetText(TextBox::txtProb, "");
}

void ShowChanged(MainForm& form, CurrentModel& current) {
    ListDemand(form.Copy(), form);
    current.Changed = true;
}

void DeleteSelectedRow(MainForm& form, CurrentModel& current) {
    DemandRowOfLine(form.OpenWorkingCopy(), form.SelectedDemand()).Delete();
    EmptyBoxes(form);
    if (form.SelectedDemand() >= 0) {
        form.RemoveDemandLine(form.SelectedDemand());
    }
    ShowChanged(form, current);
}

}  // namespace

std::string WithPercentSign(const std::string& probability) {
    return probability.empty() || probability.ends_with('%') ? probability : probability + "%";
}

void cmdAdd_Click(MainForm& form, CurrentModel& current) {
    if (!BothBoxesFilled(form)) {
        return;
    }
    const DemandRow row = RowInBoxes(form);
    RecordSet demand = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Demand;");
    demand.AddNew();
    WriteRow(demand, row);
    EmptyBoxes(form);
    ShowChanged(form, current);
}

void cmdUpdate_Click(MainForm& form, CurrentModel& current) {
    if (form.SelectedDemand() < 0 || !BothBoxesFilled(form)) {
        return;
    }
    const DemandRow row = RowInBoxes(form);
    RecordSet demand = DemandRowOfLine(form.OpenWorkingCopy(), form.SelectedDemand());
    demand.Edit();
    WriteRow(demand, row);
    EmptyBoxes(form);
    ShowChanged(form, current);
}

void cmdDelete_Click(MainForm& form, CurrentModel& current) {
    if (form.SelectedDemand() < 0) {
        return;
    }
    try {
        DeleteSelectedRow(form, current);
    } catch (const RunTimeError& error) {  // no such line: nothing is deleted, and nothing said
        if (error.Kind() != ErrorKind::NoCurrentRecord) {
            throw;
        }
    }
}

}  // namespace quarnel02
