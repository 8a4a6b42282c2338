#include "app/DemandCommands.h"

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "shell/Demand.h"

namespace quarnel02 {

namespace {

/// A row of Demand as it is found: by both its numbers.
struct DemandRow {
    float Volume;
    float Prob;
};

/// The text less its last character, which is the percent sign.
std::string WithoutPercentSign(const std::string& text) {
    return text.substr(0, text.empty() ? 0 : text.size() - 1);
}

DemandRow RowInBoxes(const MainForm& form) {
    return {TextToSingle(form.Text(TextBox::txtVolume), "Volume"),
            TextToSingle(WithoutPercentSign(form.Text(TextBox::txtProb)), "Probability")};
}

DemandRow RowInLine(const std::string& line) {
    const std::string between = ":  ";
    const auto colon = line.find(between);
    return {TextToSingle(line.substr(0, colon), "Volume of the selected line"),
            TextToSingle(WithoutPercentSign(line.substr(colon + between.size())),
                         "Probability of the selected line")};
}

bool BothBoxesFilled(const MainForm& form) {
    return !form.Text(TextBox::txtVolume).empty() && !form.Text(TextBox::txtProb).empty();
}

RecordSet RowsLike(MainForm& form, const DemandRow& row) {
    RecordSet demand = form.OpenWorkingCopy().OpenRecordSet(
        "SELECT * FROM Demand WHERE Volume = " + NumberText(row.Volume) +
        " AND Prob = " + NumberText(row.Prob) + ";");
    if (demand.Eof()) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "No demand row has volume " + NumberText(row.Volume) +
                               " and probability " + NumberText(row.Prob) +
                               "%. Put the row's exact numbers into the boxes, delete it and "
                               "add it again.");
    }
    return demand;
}

void Write(RecordSet& demand, const DemandRow& row) {
    demand.Set("Volume", double{row.Volume});
    demand.Set("Prob", double{row.Prob});
    demand.Update();
    demand.MoveToLastModified();
}

void EmptyBoxes(MainForm& form) {
    form.SetText(TextBox::txtVolume, "");
    form.SetText(TextBox::txtProb, "");
}

void ShowChanged(MainForm& form) {
    ListDemand(form);
    form.Changed = true;
}

void DeleteRowInBoxes(MainForm& form) {
    RowsLike(form, RowInBoxes(form)).Delete();
    EmptyBoxes(form);
    if (form.SelectedDemand() >= 0) {
        form.RemoveDemandLine(form.SelectedDemand());
    }
    ShowChanged(form);
}

}  // namespace

std::string WithPercentSign(const std::string& probability) {
    return probability.empty() || probability.ends_with('%') ? probability : probability + "%";
}

void cmdAdd_Click(MainForm& form) {
    if (!BothBoxesFilled(form)) {
        return;
    }
    RecordSet demand = form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Demand;");
    demand.AddNew();
    Write(demand, RowInBoxes(form));
    EmptyBoxes(form);
    ShowChanged(form);
}

void cmdUpdate_Click(MainForm& form) {
    if (form.SelectedDemand() < 0 || !BothBoxesFilled(form)) {
        return;
    }
    RecordSet demand = RowsLike(form, RowInLine(form.DemandLine(form.SelectedDemand())));
    demand.Edit();
    Write(demand, RowInBoxes(form));
    EmptyBoxes(form);
    ShowChanged(form);
}

void cmdDelete_Click(MainForm& form) {
    if (form.SelectedDemand() < 0) {
        return;
    }
    try {
        DeleteRowInBoxes(form);
    } catch (const RunTimeError&) {  // no such row: nothing is deleted, and nothing said
        return;
    }
}

}  // namespace quarnel02
