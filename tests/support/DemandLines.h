#pragma once

#include <string>
#include <vector>

#include "shell/MainForm.h"
#include "support/TestModel.h"

namespace quarnel02::test {

/// The lines of lstDemand.
inline std::vector<std::string> DemandLines(const MainForm& form) {
    std::vector<std::string> lines;
    for (int line = 0; line < form.DemandCount(); ++line) {
        lines.push_back(form.DemandLine(line));
    }
    return lines;
}

/// The rows of Demand in the order in which they were added: "volume|probability".
inline std::vector<std::string> DemandRows(const TestModel& model) {
    return model.RowsOf("SELECT * FROM Demand;", 2);
}

}  // namespace quarnel02::test
