// Each promise that a stored model keeps, broken once, and told by name.
#include "tireless/StoredModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <stdexcept>

#include "support/TestModel.h"

namespace quarnel02::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// Three tasks, two resources; the line is the second resource on tasks 1 and 2, the first one on
/// task 3. On task 2 alone the second resource is dearer, and on all tasks over the limit.
constexpr const char* kLine =
    "UPDATE Gen SET Tasks = 3, Resources = 2;"
    "INSERT INTO Tasks VALUES (1, 'a'), (2, 'b'), (3, 'c');"
    "INSERT INTO Resources (ResourceId) VALUES (1), (2);"
    "INSERT INTO Arcs (ArcId, TaskStart, TaskEnd) VALUES"
    " (0, 1, 2), (1, 2, 3), (2, 3, 4), (3, 1, 3), (4, 2, 4), (5, 1, 4);"
    "INSERT INTO Pathways (PathId, ArcId, ResourceId, Feasible) VALUES"
    " (1, 0, 1, 1), (2, 1, 1, 1), (3, 1, 2, 3), (4, 2, 1, 4), (5, 3, 2, 4), (6, 5, 2, 2);";

std::vector<std::string> BrokenAfter(const std::string& change) {
    const TestModel model(kLine + change);
    return StoredModel(model.File()).Broken();
}

/// Fills the first page of a table or an index with zeros.
void Damage(const TestModel& model, const std::string& name) {
    const StoredModel whole(model.File());
    const int size = whole.Number("PRAGMA page_size");
    const int page = whole.Number("SELECT rootpage FROM sqlite_master WHERE name = '" + name + "'");
    std::fstream file(model.File(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(page - 1) * size);
    file << std::string(static_cast<std::size_t>(size), '\0');
    ASSERT_TRUE(file.flush());
}

TEST(StoredModel, FindsNothingBrokenInASoundModel) {
    EXPECT_THAT(BrokenAfter(""), IsEmpty());
    EXPECT_THAT(StoredModel(TestModel().File()).Broken(), IsEmpty()) << "an empty one";
}

TEST(StoredModel, CountsTasksAndResources) {
    EXPECT_THAT(BrokenAfter("INSERT INTO Tasks VALUES (4, 'd');"),
                ElementsAre("Gen says 3 Tasks, there are 4"));
    EXPECT_THAT(BrokenAfter("DELETE FROM Resources WHERE ResourceId = 2;"),
                ElementsAre("Gen says 2 Resources, there are 1"));
    EXPECT_THAT(BrokenAfter("UPDATE Gen SET Resources = 20;"),
                ElementsAre("Gen says 20 Resources, there are 2"));
}

TEST(StoredModel, WantsOneRowOfGen) {
    EXPECT_THAT(BrokenAfter("DELETE FROM Gen;"), ElementsAre("Gen has 0 rows"));
    EXPECT_THAT(BrokenAfter("INSERT INTO Gen SELECT * FROM Gen;"), ElementsAre("Gen has 2 rows"));
}

TEST(StoredModel, MissesAnArc) {
    EXPECT_THAT(BrokenAfter("DELETE FROM Arcs WHERE ArcId = 4;"),
                ElementsAre("5 arcs, 5 of them sound, for 3 tasks"));
}

TEST(StoredModel, FindsAnArcTwice) {
    EXPECT_THAT(BrokenAfter("INSERT INTO Arcs (ArcId, TaskStart, TaskEnd) VALUES (6, 2, 4);"),
                ElementsAre("7 arcs, 6 of them sound, for 3 tasks"));
    EXPECT_THAT(BrokenAfter("UPDATE Arcs SET TaskStart = 1 WHERE ArcId = 4;"),
                ElementsAre("6 arcs, 5 of them sound, for 3 tasks"))
        << "in the place of another one";
    EXPECT_THAT(BrokenAfter("UPDATE Arcs SET ArcId = 0 WHERE ArcId = 4;"),
                ElementsAre("6 arcs have 5 numbers"));
}

TEST(StoredModel, FindsAnArcThatCannotBe) {
    for (const char* nodes : {"TaskStart = 0", "TaskEnd = 5", "TaskStart = 4, TaskEnd = 2",
                              "TaskStart = 2, TaskEnd = 2", "TaskStart = Null"}) {
        EXPECT_THAT(BrokenAfter(std::string("UPDATE Arcs SET ") + nodes + " WHERE ArcId = 4;"),
                    ElementsAre("6 arcs, 5 of them sound, for 3 tasks"))
            << nodes;
    }
}

TEST(StoredModel, FindsAPathwayOnNoArc) {
    EXPECT_THAT(BrokenAfter("UPDATE Pathways SET ArcId = 77 WHERE PathId = 1;"),
                ElementsAre("1 pathways are on no arc"));
}

TEST(StoredModel, FindsAGapInTheChosenLine) {
    EXPECT_THAT(BrokenAfter("UPDATE Pathways SET ArcId = 0 WHERE PathId = 5;"),
                ElementsAre("the chosen pathways are no line: at node 2 goes on with 3|4"));
}

TEST(StoredModel, FindsTwoChosenLines) {
    const std::string also = "UPDATE Pathways SET Feasible = 4 WHERE PathId IN ";
    EXPECT_THAT(BrokenAfter(also + "(1, 2);"),
                ElementsAre("the chosen pathways are no line: at node 2 goes on with 1|3"));
    EXPECT_THAT(BrokenAfter(also + "(6);"),
                ElementsAre("the chosen pathways are no line: at node 3 goes on with 1|4"));
    EXPECT_THAT(BrokenAfter("INSERT INTO Pathways (PathId, ArcId, ResourceId, Feasible) "
                            "VALUES (7, 2, 2, 4);"),
                ElementsAre("the chosen pathways are no line: at node 4 goes on with 3|4"))
        << "two resources for the same tasks";
}

TEST(StoredModel, FindsALineThatEndsThoughPathwaysReachFurther) {
    for (const char* state : {"1", "3"}) {
        EXPECT_THAT(BrokenAfter(std::string("UPDATE Pathways SET Feasible = ") + state +
                                " WHERE PathId = 4;"),
                    ElementsAre("the chosen line ends at node 3, and pathways reach further"));
    }
}

TEST(StoredModel, LetsALineEndEarlyWhereNoPathwayWithinTheLimitReachesFurther) {
    EXPECT_THAT(BrokenAfter("UPDATE Pathways SET Feasible = 2 WHERE PathId = 4;"), IsEmpty());
}

TEST(StoredModel, FindsALineThatBeginsLateThoughPathwaysEndThere) {
    EXPECT_THAT(BrokenAfter("UPDATE Pathways SET Feasible = 1 WHERE PathId = 5;"),
                ElementsAre("the chosen line begins with 3|4, where others end"));
}

TEST(StoredModel, LetsALineBeginWhereTheWayBackIsCutOff) {
    EXPECT_THAT(BrokenAfter("UPDATE Pathways SET Feasible = 2 WHERE ArcId IN (1, 3);"), IsEmpty());
}

TEST(StoredModel, FindsADamagedPage) {
    for (const char* name : {"Tasks", "ArcsById", "Pathways"}) {
        const TestModel model(kLine);
        Damage(model, name);
        EXPECT_THAT(StoredModel(model.File()).Broken(), ElementsAre(StartsWith("damaged: ")))
            << name;
    }
}

TEST(StoredModel, FindsAnIndexThatLacksARow) {
    const TestModel model(kLine);
    sqlite3* file = nullptr;
    ASSERT_EQ(sqlite3_open(model.File().c_str(), &file), SQLITE_OK);
    const char* lack =
        "PRAGMA writable_schema = ON;"
        "UPDATE sqlite_master SET sql = 'CREATE INDEX ArcsById ON Arcs (TaskEnd)' "
        "WHERE name = 'ArcsById';";
    EXPECT_EQ(sqlite3_exec(file, lack, nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(file);
    EXPECT_THAT(StoredModel(model.File()).Broken(), ElementsAre(HasSubstr("ArcsById")));
}

TEST(StoredModel, TellsWhichInputsDiffer) {
    const TestModel before(kLine);
    for (const char* change :
         {"UPDATE Tasks SET Description = Null WHERE TaskId = 2;",
          "UPDATE Resources SET ICF = 2 WHERE ResourceId = 1;",
          "INSERT INTO Matrix VALUES (1, 1, 2, 3, 4);", "INSERT INTO Demand VALUES (100, 100);",
          "INSERT INTO Scenarios VALUES ('more', 'Demand = 7');",
          "UPDATE Gen SET Product = 'Pump';"}) {
        const TestModel after(std::string(kLine) + change);
        EXPECT_NE(StoredModel(before.File()).Inputs(), StoredModel(after.File()).Inputs())
            << change;
    }
    const TestModel designed(std::string(kLine) + "DELETE FROM Pathways;");
    EXPECT_EQ(StoredModel(before.File()).Inputs(), StoredModel(designed.File()).Inputs());
    EXPECT_TRUE(StoredModel(before.File()).HasChosenLine());
    EXPECT_FALSE(StoredModel(designed.File()).HasChosenLine());
}

TEST(StoredModel, NamesAFileThatIsNone) {
    const TestModel model;
    EXPECT_THROW(StoredModel(model.File("none.mdb")), std::runtime_error);
}

}  // namespace
}  // namespace quarnel02::test
