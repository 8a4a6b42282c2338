#include "shell/Demand.h"

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr Colour kComplete{0, 0, 128};
constexpr Colour kIncomplete{255, 0, 0};

std::string VolumeText(double volume) {
    return Format(volume, "#,###,###");
}

/// The demand rows in ascending order of volume, at the first one; throws when there is none.
RecordSet RowsByVolume(MainForm& form) {
    RecordSet demand =
        form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    demand.MoveLast();
    demand.MoveFirst();
    return demand;
}

void ShowSum(MainForm& form) {
    const RecordSet total = form.Model.OpenRecordSet("SELECT SUM(Prob) FROM Demand;");
    const double sum = total.Number(0);
    form.ShowDemandSum(NumberText(sum) + "%", sum == 100 ? kComplete : kIncomplete);
}

void Refill(MainForm& form) {
    RecordSet demand = RowsByVolume(form);
    form.ClearDemand();
    for (; !demand.Eof(); demand.MoveNext()) {
        form.AddDemandLine(DemandLineText(demand.Number("Volume"), demand.Text("Prob")));
    }
    ShowSum(form);
}

}  // namespace

std::string DemandLineText(double volume, const std::string& probability) {
    return VolumeText(volume) + ":  " + probability + "%";
}

void ListDemand(MainForm& form) {
    try {
        Refill(form);
    } catch (const RunTimeError&) {  // list and sum keep what they show
        return;
    }
}

void ShowDemandRow(MainForm& form, int line) {
    RecordSet demand = RowsByVolume(form);
    demand.Move(line);
    form.SetText(TextBox::txtVolume, VolumeText(demand.Number("Volume")));
    form.SetText(TextBox::txtProb, demand.Text("Prob") + "%");
}

}  // namespace quarnel02
