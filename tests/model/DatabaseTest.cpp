#include "model/Database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <functional>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "model/Connection.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::RawStore;
using test::TestModel;
using Texts = std::vector<std::string>;

void AddDemand(const Database& database, double volume, double percent) {
    RecordSet demand = database.OpenRecordSet("SELECT * FROM Demand;");
    demand.AddNew();
    demand.Set("Volume", volume);
    demand.Set("Prob", percent);
    demand.Update();
}

TEST(Template, HoldsOneRowOfDefaults) {
    const TestModel model;
    EXPECT_EQ(model.RowsOf("SELECT * FROM GEN;", 8), Texts{"0|0|250|0.25|20|5|0|Untitled"});
}

TEST(Template, HoldsNothingElse) {
    const TestModel model;
    for (const std::string table :
         {"Tasks", "Resources", "Matrix", "Demand", "Arcs", "Pathways", "BestPaths"}) {
        EXPECT_EQ(model.RowsOf("SELECT COUNT(*) FROM " + table + ";", 1), Texts{"0"}) << table;
    }
}

TEST(Database, DoesNotOpenAMissingFile) {
    const TestModel model;
    const fs::path file = model.File("no such.seq");
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileNotFound, [&] { Database::Open(file); });
    EXPECT_NE(message.find(PathText(file)), std::string::npos) << message;
    EXPECT_FALSE(fs::exists(file));
}

TEST(Database, DoesNotOpenWhatIsNoDatabase) {
    const TestModel model;
    const fs::path file = model.File("text.seq");
    WriteFile(file, std::string(2000, 'x'));
    const std::string message =
        ExpectRunTimeError(ErrorKind::NotAModel, [&] { Database::Open(file); });
    EXPECT_NE(message.find(PathText(file)), std::string::npos) << message;
    EXPECT_EQ(ReadFile(file), std::string(2000, 'x'));
}

TEST(Database, DoesNotOpenADirectory) {
    const TestModel model;
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { Database::Open(model.Directory()); });
    EXPECT_NE(message.find(PathText(model.Directory())), std::string::npos) << message;
}

TEST(Database, OpensAPathWithUmlautsBlanksAndCommas) {
    const TestModel model;
    const fs::path folder = model.Directory() / fs::path(u8"Öl, neu");
    fs::create_directory(folder);
    const fs::path file = folder / fs::path(u8"größer 1,5.mdb");
    CopyWhole(model.File(), file);
    AddDemand(Database::Open(file), 12500, 100);
    EXPECT_EQ(Database::Open(file).OpenRecordSet("SELECT * FROM Demand;").RecordCount(), 1);
    EXPECT_EQ(test::NamesIn(folder), Texts{"größer 1,5.mdb"});
}

TEST(Database, IsClosedAtFirst) {
    const Database database;
    EXPECT_FALSE(database.IsOpen());
    ExpectRunTimeError(ErrorKind::ObjectClosed,
                       [&] { (void)database.OpenRecordSet("SELECT * FROM Gen;"); });
}

TEST(Database, CopiesOfAHandleAreTheSameOpening) {
    const TestModel model;
    Database first = model.Open();
    const Database second = first;
    first.Close();
    EXPECT_FALSE(first.IsOpen());
    EXPECT_FALSE(second.IsOpen());
    first.Close();
}

TEST(Database, ClosingEndsItsRecordSetsOnly) {
    const TestModel model;
    Database first = model.Open();
    const Database second = model.Open();
    const RecordSet unread = first.OpenRecordSet("SELECT * FROM Gen;");
    const RecordSet read = first.OpenRecordSet("SELECT Tasks FROM Gen;");
    const RecordSet other = second.OpenRecordSet("SELECT * FROM Gen;");
    EXPECT_EQ(read.RecordCount(), 1);
    first.Close();
    EXPECT_FALSE(unread.IsOpen());
    EXPECT_FALSE(read.IsOpen());
    ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { (void)unread.RecordCount(); });
    ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { (void)read.Field(0); });
    EXPECT_EQ(other.Text("Product"), "Untitled");
}

TEST(Database, RecordSetsKeepTheirDatabaseOpen) {
    const TestModel model;
    RecordSet gen = Database::Open(model.File()).OpenRecordSet("SELECT * FROM Gen;");
    EXPECT_TRUE(gen.IsOpen());
    EXPECT_EQ(gen.Number("Days"), 250);
}

TEST(Database, OpeningsOfAFileSeeEachOthersRows) {
    const TestModel model;
    const Database first = model.Open();
    const Database second = Database::Open(model.Directory() / "." / "working.seq");
    AddDemand(first, 10000, 40);
    AddDemand(second, 20000, 60);
    EXPECT_EQ(first.OpenRecordSet("SELECT * FROM Demand;").RecordCount(), 2);
    EXPECT_EQ(second.OpenRecordSet("SELECT * FROM Demand;").RecordCount(), 2);
}

TEST(Database, IsOneFileOnceItIsClosed) {
    const TestModel model;
    Database database = model.Open();
    AddDemand(database, 10000, 40);
    {
        Transaction transaction(database);
        AddDemand(database, 20000, 60);
        transaction.Commit();
    }
    database.Close();
    EXPECT_EQ(test::NamesIn(model.Directory()), (Texts{"blank.seq", "working.seq"}));
    CopyWhole(model.File(), model.File("copy.seq"));
    EXPECT_EQ(RawStore(model.File("copy.seq")).Rows("SELECT * FROM Demand"),
              (Texts{"10000.0|40.0", "20000.0|60.0"}));
}

TEST(Database, LeavesNoLogWhenAnotherProgramUsedOne) {
    const TestModel model;
    RawStore(model.File()).Run("PRAGMA journal_mode = WAL; INSERT INTO Demand VALUES (1, 2)");
    Database database = model.Open();
    AddDemand(database, 3, 4);
    database.Close();
    EXPECT_EQ(test::NamesIn(model.Directory()), (Texts{"blank.seq", "working.seq"}));
    EXPECT_EQ(RawStore(model.File()).Rows("PRAGMA journal_mode"), Texts{"delete"});
    EXPECT_EQ(model.RowsOf("SELECT * FROM Demand;", 2), (Texts{"1|2", "3|4"}));
}

TEST(Database, SeesAFileThatWasReplacedWhileItWasClosed) {
    const TestModel model;
    Database database = model.Open();
    AddDemand(database, 10000, 40);
    database.Close();
    CopyWhole(model.File("blank.seq"), model.File());
    EXPECT_TRUE(model.RowsOf("SELECT * FROM Demand;", 2).empty());
}

TEST(Database, ReportsATextThatTheStoreDoesNotUnderstand) {
    const TestModel model;
    const Database database = model.Open();
    for (const std::string sql : {"SELECT * FROM Nothing;", "SELECT Nothing FROM Gen;", "nonsense",
                                  "SELECT * FROM", "SELECT * FROM Matrix WHERE TaskId = ;"}) {
        const std::string message = ExpectRunTimeError(ErrorKind::DatabaseFailure,
                                                       [&] { (void)database.OpenRecordSet(sql); });
        EXPECT_NE(message.find(PathText(model.File())), std::string::npos) << message;
    }
    EXPECT_EQ(database.OpenRecordSet("SELECT * FROM Gen;").RecordCount(), 1);
}

TEST(Database, ReportsAnEmptyText) {
    const TestModel model;
    const Database database = model.Open();
    for (const std::string sql : {"", "  ", ";"}) {
        ExpectRunTimeError(ErrorKind::DatabaseFailure,
                           [&] { (void)database.OpenRecordSet(sql).RecordCount(); });
    }
}

class LockedDatabase : public testing::Test {
  protected:
    void ExpectLocked(const std::function<void()>& action) const {
        const auto start = std::chrono::steady_clock::now();
        const std::string message = ExpectRunTimeError(ErrorKind::DatabaseLocked, action);
        const auto waited = std::chrono::steady_clock::now() - start;
        EXPECT_NE(message.find(PathText(Model.File())), std::string::npos) << message;
        EXPECT_GE(waited, std::chrono::milliseconds(900));
        EXPECT_LE(waited, std::chrono::seconds(20));
    }

    TestModel Model;
    RawStore Other{Model.File()};
};

TEST_F(LockedDatabase, IsReportedAfterAWhile) {
    Other.Run("BEGIN EXCLUSIVE");
    ExpectLocked([&] {
        (void)Database::Open(Model.File()).OpenRecordSet("SELECT * FROM Gen;").RecordCount();
    });
    Other.Run("ROLLBACK");
    EXPECT_EQ(Model.RowsOf("SELECT Tasks FROM Gen;", 1), Texts{"0"});
}

TEST_F(LockedDatabase, CannotBeWrittenAndStaysAsItWas) {
    const Database database = Model.Open();
    RecordSet demand = database.OpenRecordSet("SELECT * FROM Demand;");
    demand.AddNew();
    demand.Set("Volume", 500.0);
    Other.Run("BEGIN IMMEDIATE");
    ExpectLocked([&] { demand.Update(); });
    Other.Run("ROLLBACK");
    EXPECT_TRUE(Other.Rows("SELECT * FROM Demand").empty());
    demand.Update();
    EXPECT_EQ(demand.RecordCount(), 1);
    EXPECT_EQ(Other.Rows("SELECT * FROM Demand"), Texts{"500.0|0.0"});
}

TEST_F(LockedDatabase, BeginsNoTransaction) {
    const Database database = Model.Open();
    Other.Run("BEGIN IMMEDIATE");
    ExpectLocked([&] { const Transaction never(database); });
    Other.Run("ROLLBACK");
    AddDemand(database, 1, 2);
    EXPECT_EQ(Other.Rows("SELECT * FROM Demand"), Texts{"1.0|2.0"});
}

TEST_F(LockedDatabase, IsWrittenOnceTheOtherProgramLetsGo) {
    const Database database = Model.Open();
    Other.Run("BEGIN EXCLUSIVE");
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        Other.Run("COMMIT");
    });
    EXPECT_NO_THROW(AddDemand(database, 1, 2));
    release.join();
    EXPECT_EQ(Other.Rows("SELECT * FROM Demand"), Texts{"1.0|2.0"});
}

TEST_F(LockedDatabase, HoldsNoLockBetweenCalls) {
    const Database database = Model.Open();
    const RecordSet unread = database.OpenRecordSet("SELECT * FROM Gen;");
    const RecordSet read = database.OpenRecordSet("SELECT * FROM Gen ORDER BY Tasks;");
    EXPECT_EQ(read.RecordCount(), 1);
    AddDemand(database, 1, 2);
    EXPECT_NO_THROW(Other.Run("BEGIN EXCLUSIVE; DELETE FROM Demand; COMMIT"));
}

TEST(Translated, SaysThatTheDiskIsFull) {
    const RunTimeError error = Translated(SQLite::Exception("full", SQLITE_FULL), "/a/line.mdb");
    EXPECT_EQ(error.Kind(), ErrorKind::FileAccess);
    EXPECT_EQ(std::string(error.what()),
              "The model database /a/line.mdb cannot be written. The disk is full: free some space "
              "and try again.");
}

TEST(Translated, PassesOnThatMemoryIsShort) {
    EXPECT_THROW((void)Translated(SQLite::Exception("memory", SQLITE_NOMEM), "x"), std::bad_alloc);
}

}  // namespace
}  // namespace quarnel02
