#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "model/Database.h"
#include "support/RunTimeErrors.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::TestModel;

class RecordSetMoveTest : public testing::Test {
  protected:
    static void ExpectNoCurrent(const std::function<void()>& action) {
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, action);
    }

    TestModel Model{
        "INSERT INTO Tasks VALUES (1, 'Insert'), (2, 'Screw'), (3, 'Test'), (4, 'Pack');"};
    Database Handle = Model.Open();
    RecordSet Tasks = Handle.OpenRecordSet("SELECT * FROM Tasks;");
    RecordSet Empty = Handle.OpenRecordSet("SELECT * FROM Arcs;");
};

TEST_F(RecordSetMoveTest, StartsOnTheFirstRow) {
    EXPECT_FALSE(Tasks.Eof());
    EXPECT_FALSE(Tasks.Bof());
    EXPECT_EQ(Tasks.Integer("TaskId"), 1);
}

TEST_F(RecordSetMoveTest, CountsAllRowsFromTheStart) {
    EXPECT_EQ(Tasks.RecordCount(), 4);
    Tasks.MoveNext();
    EXPECT_EQ(Tasks.RecordCount(), 4);
    EXPECT_EQ(Empty.RecordCount(), 0);
}

TEST_F(RecordSetMoveTest, WalksForwardsToTheEnd) {
    std::string seen;
    for (; !Tasks.Eof(); Tasks.MoveNext()) {
        seen += Tasks.Text("TaskId");
    }
    EXPECT_EQ(seen, "1234");
    EXPECT_FALSE(Tasks.Bof());
    ExpectNoCurrent([&] { Tasks.MoveNext(); });
    Tasks.MovePrevious();
    EXPECT_EQ(Tasks.Integer("TaskId"), 4);
}

TEST_F(RecordSetMoveTest, WalksBackwardsToTheStart) {
    Tasks.MoveLast();
    std::string seen;
    for (; !Tasks.Bof(); Tasks.MovePrevious()) {
        seen += Tasks.Text("TaskId");
    }
    EXPECT_EQ(seen, "4321");
    EXPECT_FALSE(Tasks.Eof());
    ExpectNoCurrent([&] { Tasks.MovePrevious(); });
    Tasks.MoveNext();
    EXPECT_EQ(Tasks.Integer("TaskId"), 1);
}

TEST_F(RecordSetMoveTest, MovesByACount) {
    Tasks.Move(2);
    EXPECT_EQ(Tasks.Integer("TaskId"), 3);
    Tasks.Move(0);
    EXPECT_EQ(Tasks.Integer("TaskId"), 3);
    Tasks.Move(-1);
    EXPECT_EQ(Tasks.Integer("TaskId"), 2);
    Tasks.Move(3);
    EXPECT_TRUE(Tasks.Eof());
    ExpectNoCurrent([&] { Tasks.Move(1); });
    Tasks.MoveFirst();
    Tasks.Move(-1);
    EXPECT_TRUE(Tasks.Bof());
    ExpectNoCurrent([&] { Tasks.Move(-1); });
    Tasks.MoveLast();
    ExpectNoCurrent([&] { Tasks.Move(2); });
}

TEST_F(RecordSetMoveTest, EmptySetIsAtBothEnds) {
    EXPECT_TRUE(Empty.Eof());
    EXPECT_TRUE(Empty.Bof());
    Empty.Move(0);
    for (const auto& move : std::vector<std::function<void()>>{
             [&] { Empty.MoveFirst(); }, [&] { Empty.MoveLast(); }, [&] { Empty.MoveNext(); },
             [&] { Empty.MovePrevious(); }, [&] { Empty.Move(1); }, [&] { Empty.Move(-1); }}) {
        ExpectNoCurrent(move);
    }
}

TEST_F(RecordSetMoveTest, ReadingNeedsARow) {
    Tasks.Move(4);
    for (RecordSet* set : {&Empty, &Tasks}) {
        ExpectNoCurrent([&] { (void)set->Field(0); });
        ExpectNoCurrent([&] { (void)set->Integer(0); });
        ExpectNoCurrent([&] { (void)set->Number(0); });
        ExpectNoCurrent([&] { (void)set->Single(0); });
        ExpectNoCurrent([&] { (void)set->Text(0); });
        ExpectNoCurrent([&] { set->Edit(); });
        ExpectNoCurrent([&] { set->Delete(); });
        ExpectNoCurrent([&] { set->MoveToLastModified(); });
    }
}

TEST_F(RecordSetMoveTest, SaysWhichTableHasNoRow) {
    EXPECT_EQ(ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] { Empty.MoveFirst(); }),
              "No current record in table Arcs.");
}

TEST_F(RecordSetMoveTest, FindsFieldsByNameInAnyCaseAndByPosition) {
    EXPECT_EQ(Tasks.Text("DESCRIPTION"), "Insert");
    EXPECT_EQ(Tasks.Text("description"), "Insert");
    EXPECT_EQ(Tasks.Text(1), "Insert");
    for (const int position : {-1, 2, 100}) {
        ExpectRunTimeError(ErrorKind::FieldNotFound, [&] { (void)Tasks.Field(position); });
    }
    const std::string message =
        ExpectRunTimeError(ErrorKind::FieldNotFound, [&] { (void)Tasks.Field("Volume"); });
    EXPECT_NE(message.find("Volume"), std::string::npos) << message;
}

TEST_F(RecordSetMoveTest, ClosedSetRefusesEverything) {
    Tasks.Close();
    Tasks.Close();
    EXPECT_FALSE(Tasks.IsOpen());
    RecordSet never;
    EXPECT_FALSE(never.IsOpen());
    for (RecordSet* set : {&Tasks, &never}) {
        for (const auto& call : std::vector<std::function<void()>>{
                 [&] { (void)set->RecordCount(); }, [&] { (void)set->Eof(); },
                 [&] { (void)set->Bof(); }, [&] { set->MoveFirst(); }, [&] { set->MoveNext(); },
                 [&] { set->Move(0); }, [&] { (void)set->Field(0); },
                 [&] { (void)set->Text("TaskId"); }, [&] { set->AddNew(); }, [&] { set->Edit(); },
                 [&] { set->Set("TaskId", 1.0); }, [&] { set->Update(); }, [&] { set->Delete(); },
                 [&] { set->MoveToLastModified(); }}) {
            ExpectRunTimeError(ErrorKind::ObjectClosed, call);
        }
    }
}

TEST_F(RecordSetMoveTest, MovedSetKeepsItsRows) {
    Tasks.Move(1);
    RecordSet taken = std::move(Tasks);
    EXPECT_EQ(taken.Integer("TaskId"), 2);
    Empty = std::move(taken);
    EXPECT_EQ(Empty.Text("Description"), "Screw");
}

}  // namespace
}  // namespace quarnel02
