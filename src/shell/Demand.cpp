#include "shell/Demand.h"

#include "basic/NumberFormat.h"

namespace quarnel02 {

int CountDemandRows(MainForm& form) {
    return form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Demand;").RecordCount();
}

void ShowDemandRow(MainForm& form, int line) {
    RecordSet demand =
        form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    demand.MoveLast();
    demand.MoveFirst();
    demand.Move(line);
    form.SetText(TextBox::txtVolume, Format(demand.Number("Volume"), "#,###,###"));
    form.SetText(TextBox::txtProb, demand.Text("Prob") + "%");
}

}  // namespace quarnel02
