#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "model/Database.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::TestModel;
using Texts = std::vector<std::string>;

/// Three tasks between four nodes, two resources; the chosen line is pathway 1 followed by 5.
constexpr const char* kModel = R"(
UPDATE Gen SET Resources = 2, Tasks = 3, Penalty = 1.5, Product = 'Pump';
INSERT INTO Tasks VALUES (1, 'Insert'), (2, 'Screw'), (3, 'Test');
INSERT INTO Resources VALUES (1, 'MNL', 'Bench', 0, 1000, 1.5, 100, 1, 0, 1),
                             (2, 'FXD', 'Press', 1, 50000, 10, 95, 1.2, 5, 2);
INSERT INTO Matrix VALUES (1, 1, 30, 2, 100), (1, 2, 20, 1, 50), (2, 2, 5, 7, 2500),
                          (2, 3, 0, 7, 0), (1, 3, 12.5, 2, 100);
INSERT INTO Demand VALUES (20000, 25), (10000, 33.3), (12500, 41.7);
INSERT INTO Arcs VALUES (0, 1, 2, 100, 50, 0, 3), (1, 1, 3, 150, 75, 3, 6),
                        (2, 1, 4, 200, 100, 0, 3), (3, 2, 3, 250, 50, 3, 6),
                        (4, 2, 4, 300, 75, 0, 3), (5, 3, 4, 350, 50, 3, 6);
INSERT INTO Pathways VALUES (1, 0, 1, 4, 1000, 30, 1, 5000, 800),
                            (2, 1, 1, 1, 2500, 50, 2, 9000, 1700),
                            (3, 3, 1, 1, 1200, 20, 1, 4000, 700),
                            (4, 3, 2, 1, 1100, 5, 1, 60000, 100),
                            (5, 4, 1, 4, 2000.5, 32.5, 2, 8000, 1500),
                            (6, 5, 1, 1, 900, 12.5, 1, 3000, 600),
                            (7, 2, 1, 2, 0, 62.5, 0, 0, 0),
                            (8, 5, 2, 3, 950, 3, 1, 0, 0);
INSERT INTO BestPaths VALUES (2, 1, 1, 1000), (3, 2, 1, 2500), (4, 5, 2, 3000.5);
)";

struct Statement {
    std::string Sql;
    int Fields;
    Texts Rows;
};

const std::vector<Statement>& Statements() {
    static const std::vector<Statement> statements = {
        {"SELECT * FROM Gen;", 8, {"2|3|250|0.25|20|5|1.5|Pump"}},
        {"SELECT * FROM GEN;", 8, {"2|3|250|0.25|20|5|1.5|Pump"}},
        {"SELECT Penalty FROM Gen;", 1, {"1.5"}},
        {"SELECT Tasks FROM Gen;", 1, {"3"}},
        {"SELECT Tasks FROM GEN;", 1, {"3"}},
        {"SELECT Resources FROM Gen;", 1, {"2"}},
        {"SELECT * FROM Tasks;", 2, {"1|Insert", "2|Screw", "3|Test"}},
        {"SELECT COUNT(*) FROM Tasks;", 1, {"3"}},
        {"SELECT * FROM Resources;",
         10,
         {"1|MNL|Bench|0|1000|1.5|100|1|0|1", "2|FXD|Press|1|50000|10|95|1.2|5|2"}},
        {"SELECT COUNT(*) FROM Resources;", 1, {"2"}},
        {"SELECT * FROM Resources WHERE ResourceId = 2;",
         10,
         {"2|FXD|Press|1|50000|10|95|1.2|5|2"}},
        {"SELECT * FROM Resources WHERE ResourceId = 3;", 10, {}},
        {"SELECT ShortName, FixedCost, UpTime, ToolChange, VarCost, ICF, StatPerWrk, Type FROM "
         "Resources WHERE ResourceId = 2;",
         8,
         {"FXD|50000|95|5|10|1.2|2|1"}},
        {"SELECT Resources.Description, Tasks.Description From Resources, Tasks WHERE "
         "Resources.ResourceId=2 AND Tasks.TaskId=3;",
         2,
         {"Press|Test"}},
        {"SELECT * FROM Matrix;",
         5,
         {"1|1|30|2|100", "1|2|20|1|50", "2|2|5|7|2500", "2|3|0|7|0", "1|3|12.5|2|100"}},
        {"SELECT * FROM Matrix WHERE TaskId = 2 AND ResourceId = 1;", 5, {"1|2|20|1|50"}},
        {"SELECT * From Matrix WHERE ResourceId =2 AND TaskId =2;", 5, {"2|2|5|7|2500"}},
        {"SELECT * From Matrix WHERE ResourceId =2 AND TaskId =1;", 5, {}},
        {"SELECT TaskTime, ToolNum, ToolCost From Matrix WHERE ResourceId =1 AND TaskId =3;",
         3,
         {"12.5|2|100"}},
        {"SELECT TaskTime, ToolNum, ToolCost FROM Matrix WHERE ResourceId = 1 AND TaskId = 1;",
         3,
         {"30|2|100"}},
        {"SELECT TaskId FROM Matrix WHERE ResourceId = 1 ORDER BY TaskId;", 1, {"1", "2", "3"}},
        {"SELECT ToolNum FROM Matrix WHERE ResourceId = 2 AND TaskId = 3;", 1, {"7"}},
        {"SELECT TaskTime, ToolNum, ToolCost From Matrix WHERE (ResourceId = 1 AND TaskId Between "
         "1 And 3) ORDER BY ToolNum;",
         3,
         {"20|1|50", "30|2|100", "12.5|2|100"}},
        {"SELECT TaskTime, ToolNum, ToolCost From Matrix WHERE (ResourceId = 1 AND TaskId Between "
         "2 And 3) ORDER BY TaskId;",
         3,
         {"20|1|50", "12.5|2|100"}},
        {"SELECT Matrix.TaskTime, Matrix.ToolNum, Matrix.ToolCost FROM Tasks INNER JOIN (Resources "
         "INNER JOIN Matrix ON Resources.ResourceId = Matrix.ResourceId) ON Tasks.TaskId = "
         "Matrix.TaskId WHERE (((Matrix.ResourceId)=2) AND ((Matrix.TaskId)=2));",
         3,
         {"5|7|2500"}},
        {"SELECT * FROM Demand;", 2, {"20000|25", "10000|33.3", "12500|41.7"}},
        {"SELECT * FROM Demand ORDER BY Volume;", 2, {"10000|33.3", "12500|41.7", "20000|25"}},
        {"SELECT * FROM Demand WHERE Volume = 12500 AND Prob = 41.7;", 2, {"12500|41.7"}},
        {"SELECT SUM(Prob) FROM Demand;", 1, {"100"}},
        {"SELECT Volume, Prob FROM Demand ORDER BY Volume;",
         2,
         {"10000|33.3", "12500|41.7", "20000|25"}},
        {"SELECT * FROM Arcs;",
         7,
         {"0|1|2|100|50|0|3", "1|1|3|150|75|3|6", "2|1|4|200|100|0|3", "3|2|3|250|50|3|6",
          "4|2|4|300|75|0|3", "5|3|4|350|50|3|6"}},
        {"SELECT * FROM Arcs WHERE ArcId = 0;", 7, {"0|1|2|100|50|0|3"}},
        {"SELECT ArcId FROM Arcs WHERE TaskStart = 2 AND TaskEnd = 4;", 1, {"4"}},
        {"SELECT * FROM Pathways;",
         9,
         {"1|0|1|4|1000|30|1|5000|800", "2|1|1|1|2500|50|2|9000|1700", "3|3|1|1|1200|20|1|4000|700",
          "4|3|2|1|1100|5|1|60000|100", "5|4|1|4|2000.5|32.5|2|8000|1500",
          "6|5|1|1|900|12.5|1|3000|600", "7|2|1|2|0|62.5|0|0|0", "8|5|2|3|950|3|1|0|0"}},
        {"SELECT * FROM Pathways WHERE Feasible = 1;", 1, {"2", "3", "4", "6"}},
        {"SELECT * FROM Pathways WHERE Feasible = 1 ORDER BY ArcId, Cost;",
         1,
         {"2", "4", "3", "6"}},
        {"SELECT * FROM Pathways WHERE Feasible = 4;", 1, {"1", "5"}},
        {"SELECT DISTINCT ArcId FROM Pathways WHERE Feasible = 1;", 1, {"1", "3", "5"}},
        {"SELECT DISTINCT ArcId FROM Pathways WHERE Feasible = 2;", 1, {"2"}},
        {"SELECT DISTINCT ArcId FROM Pathways WHERE Feasible = 4;", 1, {"0", "4"}},
        {"SELECT Feasible FROM Pathways WHERE PathId = 7;", 1, {"2"}},
        {"SELECT Feasible FROM Pathways WHERE ArcId = 5 AND ResourceId = 2;", 1, {"3"}},
        {"SELECT Investment, AnnualLabor FROM Pathways WHERE PathId = 5;", 2, {"8000|1500"}},
        {"SELECT Pathways.PathId, Arcs.TaskEnd, Arcs.TaskStart, Pathways.Cost FROM Arcs INNER JOIN "
         "Pathways ON Arcs.ArcId = Pathways.ArcId Where ((Pathways.Feasible = 1)) ORDER BY "
         "Arcs.TaskEnd, Arcs.TaskStart;",
         4,
         {"2|3|1|2500", "3|3|2|1200", "4|3|2|1100", "6|4|3|900"}},
        {"SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.ResourceId, Resources.ShortName, "
         "Pathways.Cost, Pathways.Time, Pathways.Stations FROM (Pathways INNER JOIN Arcs ON "
         "Pathways.ArcId = Arcs.ArcId) INNER JOIN Resources ON Pathways.ResourceId = "
         "Resources.ResourceId Where (((Pathways.Feasible) = 4)) ORDER BY Arcs.TaskStart;",
         7,
         {"1|2|1|MNL|1000|30|1", "2|4|1|MNL|2000.5|32.5|2"}},
        {"SELECT Max(Pathways.Time) AS MaxOfTime FROM Pathways WHERE (((Pathways.Feasible)=4));",
         1,
         {"32.5"}},
        {"SELECT Sum(Pathways.Cost) AS SumOfCost FROM Pathways WHERE (((Pathways.Feasible)=4));",
         1,
         {"3000.5"}},
        {"SELECT Arcs.TaskStart, Arcs.TaskEnd, Pathways.ResourceId, Resources.Type, "
         "Pathways.Stations FROM (Pathways INNER JOIN Arcs ON Pathways.ArcId = Arcs.ArcId) INNER "
         "JOIN Resources ON Pathways.ResourceId = Resources.ResourceId Where "
         "(((Pathways.Feasible) = 4)) ORDER BY Arcs.TaskStart;",
         5,
         {"1|2|1|0|1", "2|4|1|0|2"}},
        {"SELECT * FROM BestPaths;", 4, {"2|1|1|1000", "3|2|1|2500", "4|5|2|3000.5"}},
        {"SELECT * FROM BestPaths ORDER BY ThisPath DESC;",
         4,
         {"4|5|2|3000.5", "3|2|1|2500", "2|1|1|1000"}},
        {"SELECT PathCost FROM BestPaths WHERE ThisPath = 4;", 1, {"3000.5"}},
    };
    return statements;
}

class StatementsTest : public testing::Test {
  protected:
    void ExpectAll() const {
        for (const Statement& each : Statements()) {
            EXPECT_EQ(Model.RowsOf(each.Sql, each.Fields), each.Rows) << each.Sql;
        }
    }
    TestModel Model{kModel};
    Database Handle = Model.Open();
};

TEST_F(StatementsTest, RunAsTheyStand) {
    ExpectAll();
    ExpectAll();
}

TEST_F(StatementsTest, GiveTheSameRowsInATransactionThatReadsOften) {
    const Transaction transaction(Handle);
    for (int i = 0; i < 20; ++i) {
        ExpectAll();
    }
}

TEST_F(StatementsTest, TellPossiblePairsFromOthers) {
    Texts pairs = Model.RowsOf("SELECT TaskId, ResourceId From Matrix WHERE (TaskTime)>0;", 2);
    std::sort(pairs.begin(), pairs.end());
    EXPECT_EQ(pairs, (Texts{"1|1", "2|1", "2|2", "3|1"}));
}

TEST_F(StatementsTest, NameTheirFields) {
    const RecordSet longest = Handle.OpenRecordSet(
        "SELECT Max(Pathways.Time) AS MaxOfTime FROM Pathways WHERE (((Pathways.Feasible)=4));");
    EXPECT_EQ(longest.Number("maxoftime"), 32.5);
    const RecordSet stations = Handle.OpenRecordSet(
        "SELECT Arcs.TaskStart, Resources.ShortName, Pathways.Cost FROM (Pathways INNER JOIN Arcs "
        "ON Pathways.ArcId = Arcs.ArcId) INNER JOIN Resources ON Pathways.ResourceId = "
        "Resources.ResourceId Where (((Pathways.Feasible) = 4)) ORDER BY Arcs.TaskStart;");
    EXPECT_EQ(stations.Integer("TaskStart"), 1);
    EXPECT_EQ(stations.Text("ShortName"), "MNL");
    EXPECT_EQ(stations.Number("Cost"), 1000);
}

TEST_F(StatementsTest, MayCarryNegativeAndRealNumbers) {
    EXPECT_TRUE(Model.RowsOf("SELECT * FROM Arcs WHERE ArcId = -1;", 1).empty());
    EXPECT_EQ(Model.RowsOf("SELECT * FROM Demand WHERE Volume = 1.25E+04 AND Prob = 41.7;", 1),
              Texts{"12500"});
    EXPECT_EQ(Model.RowsOf("SELECT TaskId FROM Tasks WHERE TaskId > .5 AND TaskId < 2.5;", 1),
              (Texts{"1", "2"}));
}

TEST_F(StatementsTest, MayCarryNumbersBeyondSixtyFourBits) {
    EXPECT_EQ(Model.RowsOf("SELECT * FROM Demand WHERE Volume < 99999999999999999999;", 1).size(),
              3U);
}

TEST_F(StatementsTest, MayCarryTextsWithDigits) {
    EXPECT_EQ(Model.RowsOf("SELECT ResourceId FROM Resources WHERE ShortName = 'MNL';", 1),
              Texts{"1"});
    EXPECT_TRUE(
        Model.RowsOf("SELECT ResourceId FROM Resources WHERE ShortName = '12 AND 3';", 1).empty());
}

TEST(EqualRows, ComeInTheOrderInWhichTheyWereAdded) {
    const TestModel model(
        "INSERT INTO Matrix VALUES (1, 3, 9, 5, 1), (1, 1, 8, 5, 2), (1, 2, 1, 4, 3), "
        "(1, 2, 7, 5, 4), (1, 1, 6, 5, 5);"
        "INSERT INTO Demand VALUES (5, 40), (5, 10), (1, 20), (5, 30);"
        "INSERT INTO BestPaths VALUES (2, 9, 1, 7), (3, 8, 1, 1), (2, 1, 1, 3);");
    const Database database = model.Open();
    const Transaction transaction(database);
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(model.RowsOf("SELECT ToolCost FROM Matrix WHERE (ResourceId = 1 AND TaskId "
                               "Between 1 And 3) ORDER BY ToolNum;",
                               1),
                  (Texts{"3", "1", "2", "4", "5"}));
        EXPECT_EQ(model.RowsOf("SELECT ToolCost FROM Matrix WHERE (ResourceId = 1 AND TaskId "
                               "Between 1 And 3) ORDER BY TaskId;",
                               1),
                  (Texts{"2", "5", "3", "4", "1"}));
        EXPECT_EQ(model.RowsOf("SELECT * FROM Demand ORDER BY Volume;", 2),
                  (Texts{"1|20", "5|40", "5|10", "5|30"}));
        EXPECT_EQ(model.RowsOf("SELECT * FROM BestPaths ORDER BY ThisPath DESC;", 2),
                  (Texts{"3|8", "2|9", "2|1"}));
    }
}

}  // namespace
}  // namespace quarnel02
