#include "shell/StoredScenarios.h"

#include "model/RowWriter.h"
#include "model/ScenariosTable.h"

namespace quarnel02 {

std::vector<Scenario> ReadScenarios(const Database& database) {
    std::vector<Scenario> scenarios;
    if (!HasScenarios(database)) {
        return scenarios;
    }
    RecordSet rows = database.OpenRecordSet("SELECT * FROM Scenarios;");
    for (; !rows.Eof(); rows.MoveNext()) {
        scenarios.push_back({rows.Text("Name"), rows.Text("Differences")});
    }
    return scenarios;
}

void WriteScenarios(const Database& database, const std::vector<Scenario>& scenarios) {
    Transaction transaction(database);
    DeleteAllRows(database, "Scenarios");
    RowWriter writer = RowWriter::Adding(database, "Scenarios", {"Name", "Differences"});
    for (const Scenario& scenario : scenarios) {
        writer.Write({scenario.Name, scenario.Differences});
    }
    transaction.Commit();
}

}  // namespace quarnel02
