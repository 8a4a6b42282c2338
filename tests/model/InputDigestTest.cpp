#include "model/InputDigest.h"

#include <gtest/gtest.h>

#include <string>

#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::TestModel;

constexpr const char* kModel =
    "INSERT INTO Tasks VALUES (1, 'Press');"
    "INSERT INTO Resources VALUES (1, 'A', 'Arm', 3, 10, 20, 90, 1, 5, 1);"
    "INSERT INTO Matrix VALUES (1, 1, 12.5, 3, 400);"
    "INSERT INTO Demand VALUES (1000, 100);";

std::uint64_t DigestAfter(const std::string& change) {
    const TestModel model(kModel + change);
    return InputDigest(model.Open());
}

TEST(InputDigest, IsTheSameForTheSameContents) {
    EXPECT_EQ(DigestAfter(""), DigestAfter(""));
}

class InputChange : public testing::TestWithParam<const char*> {};

TEST_P(InputChange, GivesAnotherDigest) {
    EXPECT_NE(DigestAfter(GetParam()), DigestAfter(""));
}

INSTANTIATE_TEST_SUITE_P(
    EveryInputTable, InputChange,
    testing::Values("UPDATE Gen SET Product = 'Other';", "UPDATE Gen SET Product = NULL;",
                    "UPDATE Gen SET Days = 251;", "UPDATE Tasks SET Description = 'Pres';",
                    "UPDATE Resources SET UpTime = 91;", "UPDATE Matrix SET ToolCost = 401;",
                    "DELETE FROM Matrix;", "UPDATE Demand SET Prob = 99;",
                    "INSERT INTO Demand VALUES (1000, 100);",
                    "INSERT INTO Tasks VALUES (2, 'Glue');",
                    "INSERT INTO Scenarios VALUES ('More', 'Demand +10%');"));

TEST(InputDigest, TellsNullFromEmptyText) {
    EXPECT_NE(DigestAfter("UPDATE Gen SET Product = NULL;"),
              DigestAfter("UPDATE Gen SET Product = '';"));
}

TEST(InputDigest, DoesNotSeeDerivedTables) {
    EXPECT_EQ(DigestAfter("INSERT INTO Arcs VALUES (0, 1, 2, 0, 0, 0, 0);"
                          "INSERT INTO BestPaths VALUES (2, 1, 1, 5);"
                          "INSERT INTO Pathways (PathId) VALUES (1);"),
              DigestAfter(""));
}

TEST(InputDigest, WithoutScenariosIsThatOfAModelWithoutTheirTable) {
    EXPECT_EQ(DigestAfter("DROP TABLE Scenarios;"), DigestAfter(""));
}

TEST(InputDigest, SeesWhatScenariosSay) {
    EXPECT_NE(DigestAfter("INSERT INTO Scenarios VALUES ('More', 'Demand +10%');"),
              DigestAfter("INSERT INTO Scenarios VALUES ('More', 'Demand +11%');"));
}

TEST(DesignDigest, IsTheInputDigestWithoutScenarios) {
    const auto digest_after = [](const std::string& change) {
        return DesignDigest(TestModel(kModel + change).Open());
    };
    EXPECT_EQ(digest_after("INSERT INTO Scenarios VALUES ('More', 'Demand +10%');"),
              DigestAfter(""));
    EXPECT_NE(digest_after("UPDATE Gen SET Days = 251;"), DigestAfter(""));
}

}  // namespace
}  // namespace quarnel02
