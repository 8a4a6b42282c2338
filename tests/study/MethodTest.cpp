// docs/method.md shows what the program itself computes for the worked example.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "basic/Files.h"
#include "line/CheapestLine.h"
#include "line/StochasticDesign.h"
#include "study/HowComputed.h"
#include "study/VolumePieces.h"

namespace quarnel02 {
namespace {

/// As examples/worked-example.sql has it.
LineModel WorkedExample() {
    const Resource press{1, "Press", "Assembly press", 1, 10000, 20, 90, 1.2, 10, 1};
    const std::vector<MatrixRow> matrix = {{1, 1, {30, 1, 500}}, {1, 2, {20, 1, 500}}};
    return {{250, 0.3, 15, 5, 0, "Worked example"},
            {press},
            {{1, "First task"}, {2, "Second task"}},
            matrix,
            {{100000, 50}, {200000, 50}}};
}

std::string StepsOf(const LineModel& model, const LineTable& table) {
    std::string text;
    int number = 0;
    for (const StationRow& row : table.Rows) {
        text += HowComputed(model, row, ++number, table.Basis);
    }
    return text + HowComputed(model, table);
}

std::string FixedSteps(const LineModel& model) {
    const FixedDemandRequest request{100000, 1, {}};
    const auto line = CheapestLine(Prepare(model), request);
    return StepsOf(model, TableOf(model, GroupsOf(*line), BasisOf(request, model.Parameters())));
}

std::string ExpectedSteps(const LineModel& model) {
    return StepsOf(model, TableOf(model, *DesignForDemand(model, 0).Line));
}

/// What stands between ``` in the document.
std::string BlocksIn(const std::string& document) {
    std::istringstream lines(document);
    std::string blocks;
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("```")) {
            inside = !inside;
        } else if (inside) {
            blocks += line + "\n";
        }
    }
    return blocks;
}

TEST(Method, ShowsWhatTheProgramComputes) {
    const LineModel model = WorkedExample();
    EXPECT_EQ(BlocksIn(ReadFile(std::string(QUARNEL02_SOURCES) + "/../docs/method.md")),
              FixedSteps(model) + ExpectedSteps(model));
}

}  // namespace
}  // namespace quarnel02
