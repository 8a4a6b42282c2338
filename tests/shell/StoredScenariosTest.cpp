#include "shell/StoredScenarios.h"

#include <gtest/gtest.h>

#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::TestModel;

const std::vector<Scenario>& Two() {
    static const std::vector<Scenario> two = {{"Wages", "LaborCost +10%"},
                                              {"", "Days = 5;\nACF = 1"}};
    return two;
}

TEST(StoredScenarios, AreReadAsTheyWereWritten) {
    const TestModel model;
    const Database database = model.Open();
    EXPECT_TRUE(ReadScenarios(database).empty());
    WriteScenarios(database, Two());
    EXPECT_EQ(ReadScenarios(database), Two());
    WriteScenarios(database, {{"One", ""}});
    EXPECT_EQ(ReadScenarios(database), (std::vector<Scenario>{{"One", ""}}));
}

TEST(StoredScenarios, AreNoneInAnOlderModel) {
    const TestModel model("DROP TABLE Scenarios;");
    const Database database = model.Open();
    EXPECT_TRUE(ReadScenarios(database).empty());
    test::ExpectRunTimeError(ErrorKind::DatabaseFailure, [&] { WriteScenarios(database, Two()); });
}

}  // namespace
}  // namespace quarnel02
