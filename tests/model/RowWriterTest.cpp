#include "model/RowWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::TestModel;

using Lines = std::vector<std::string>;

constexpr const char* kLabels = "SELECT * FROM BestPaths;";

TEST(RowWriter, AddsRowsBehindThoseThatAreThereAndLeavesTheRestToTheDefaults) {
    const TestModel model("INSERT INTO BestPaths VALUES (9, 8, 7, 6.5);");
    const Database database = model.Open();
    RowWriter rows = RowWriter::Adding(database, "BestPaths", {"ThisPath", "PathCost"});
    rows.Write({2, 10.5});
    rows.Write({1, 20.5});
    EXPECT_EQ(model.RowsOf(kLabels, 4), (Lines{"9|8|7|6.5", "2|0|0|10.5", "1|0|0|20.5"}));
}

TEST(RowWriter, ChangesTheRowsThatTheKeyNamesAndNoOthers) {
    const TestModel model("INSERT INTO BestPaths VALUES (1, 8, 7, 6), (2, 8, 7, 6), (3, 5, 7, 6);");
    const Database database = model.Open();
    RowWriter rows = RowWriter::Changing(database, "BestPaths", {"PathCost", "SubPath"}, "PathId");
    rows.Write({1.5, 4, 8});
    rows.Write({2.5, 4, 77});  // nobody
    EXPECT_EQ(model.RowsOf(kLabels, 4), (Lines{"1|8|4|1.5", "2|8|4|1.5", "3|5|7|6"}));
}

TEST(RowWriter, TakesTheFieldThatItChangesAsTheKeyToo) {
    const TestModel model("INSERT INTO Pathways (PathId, Feasible) VALUES (1, 4), (2, 3), (3, 4);");
    RowWriter::Changing(model.Open(), "Pathways", {"Feasible"}, "Feasible").Write({1, 4});
    EXPECT_EQ(model.RowsOf("SELECT PathId, Feasible FROM Pathways;", 2),
              (Lines{"1|1", "2|3", "3|1"}));
}

TEST(RowWriter, ConvertsValuesAsARecordSetDoes) {
    const TestModel model;
    const Database database = model.Open();
    RowWriter rows = RowWriter::Adding(database, "Demand", {"Volume", "Prob"});
    rows.Write({"12,500", 33.3});
    EXPECT_EQ(model.RowsOf("SELECT * FROM Demand;", 2), Lines{"12500|33.3"});
    const auto message = ExpectRunTimeError(ErrorKind::TypeMismatch, [&] {
        rows.Write({"many", 1});
    });
    EXPECT_NE(message.find("Demand.Volume"), std::string::npos) << message;
    RowWriter numbers = RowWriter::Adding(database, "BestPaths", {"ThisPath"});
    ExpectRunTimeError(ErrorKind::Overflow, [&] { numbers.Write({40000}); });
    EXPECT_EQ(model.RowsOf(kLabels, 4), Lines{});
}

TEST(RowWriter, LeavesOpenRecordSetsTheRowsThatTheyHad) {
    const TestModel model("INSERT INTO BestPaths VALUES (1, 2, 3, 4);");
    const Database database = model.Open();
    const RecordSet before = database.OpenRecordSet(kLabels);
    const RecordSet deleted = database.OpenRecordSet(kLabels);
    RowWriter::Adding(database, "BestPaths", {"ThisPath"}).Write({5});
    EXPECT_EQ(before.RecordCount(), 1);
    DeleteAllRows(database, "BestPaths");
    EXPECT_EQ(deleted.RecordCount(), 1);
    EXPECT_EQ(model.RowsOf(kLabels, 4), Lines{});
}

TEST(RowWriter, IsUndoneWithItsTransaction) {
    const TestModel model("INSERT INTO BestPaths VALUES (1, 2, 3, 4);");
    const Database database = model.Open();
    {
        const Transaction transaction(database);
        DeleteAllRows(database, "BestPaths");
        RowWriter::Adding(database, "BestPaths", {"ThisPath"}).Write({5});
        EXPECT_EQ(model.RowsOf(kLabels, 4), Lines{"5|0|0|0"});
    }
    EXPECT_EQ(model.RowsOf(kLabels, 4), Lines{"1|2|3|4"});
}

TEST(RowWriter, NeedsAnOpenDatabase) {
    const TestModel model;
    Database database = model.Open();
    RowWriter rows = RowWriter::Adding(database, "BestPaths", {"ThisPath"});
    database.Close();
    ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { rows.Write({1}); });
    ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { DeleteAllRows(database, "BestPaths"); });
    EXPECT_EQ(model.RowsOf(kLabels, 4), Lines{});
}

}  // namespace
}  // namespace quarnel02
