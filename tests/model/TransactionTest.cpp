#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/Database.h"
#include "support/RawStore.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::RawStore;
using test::TestModel;
using Texts = std::vector<std::string>;

class TransactionTest : public testing::Test {
  protected:
    static void AddTask(const Database& database, int number) {
        RecordSet tasks = database.OpenRecordSet("SELECT * FROM Tasks;");
        tasks.AddNew();
        tasks.Set("TaskId", std::int64_t{number});
        tasks.Update();
    }
    /// What another program sees.
    [[nodiscard]] Texts StoredTasks() const {
        return RawStore(Model.File()).Rows("SELECT TaskId FROM Tasks");
    }

    TestModel Model{"INSERT INTO Tasks VALUES (1, 'Insert');"};
    Database Handle = Model.Open();
};

TEST_F(TransactionTest, WritesTogetherOnCommit) {
    Transaction transaction(Handle);
    AddTask(Handle, 2);
    AddTask(Handle, 3);
    EXPECT_EQ(StoredTasks(), Texts{"1"});
    transaction.Commit();
    EXPECT_EQ(StoredTasks(), (Texts{"1", "2", "3"}));
}

TEST_F(TransactionTest, UndoesEverythingWithoutCommit) {
    {
        const Transaction transaction(Handle);
        AddTask(Handle, 2);
        RecordSet tasks = Handle.OpenRecordSet("SELECT * FROM Tasks;");
        tasks.Delete();
        tasks.MoveNext();
        tasks.Edit();
        tasks.Set("TaskId", std::int64_t{9});
        tasks.Update();
        EXPECT_EQ(Handle.OpenRecordSet("SELECT * FROM Tasks;").Integer("TaskId"), 9);
    }
    EXPECT_EQ(StoredTasks(), Texts{"1"});
    EXPECT_EQ(Handle.OpenRecordSet("SELECT * FROM Tasks;").Text("Description"), "Insert");
}

TEST_F(TransactionTest, UndoesEverythingWhenAWriteFails) {
    ExpectRunTimeError(ErrorKind::Overflow, [&] {
        Transaction transaction(Handle);
        AddTask(Handle, 2);
        AddTask(Handle, 40000);
        transaction.Commit();
    });
    EXPECT_EQ(StoredTasks(), Texts{"1"});
    AddTask(Handle, 4);
    EXPECT_EQ(StoredTasks(), (Texts{"1", "4"}));
}

TEST_F(TransactionTest, DoNotNest) {
    Transaction outer(Handle);
    AddTask(Handle, 2);
    for (const Database& database : {Handle, Model.Open()}) {
        const std::string message = ExpectRunTimeError(ErrorKind::DatabaseFailure,
                                                       [&] { const Transaction inner(database); });
        EXPECT_NE(message.find("within a transaction"), std::string::npos) << message;
    }
    AddTask(Handle, 3);
    EXPECT_EQ(StoredTasks(), Texts{"1"});
    outer.Commit();
    EXPECT_EQ(StoredTasks(), (Texts{"1", "2", "3"}));
}

TEST_F(TransactionTest, MayFollowOneThatIsCommittedAndStillThere) {
    Transaction first(Handle);
    AddTask(Handle, 2);
    first.Commit();
    {
        const Transaction second(Handle);
        AddTask(Handle, 3);
    }
    EXPECT_EQ(StoredTasks(), (Texts{"1", "2"}));
}

TEST_F(TransactionTest, SpansAllOpeningsOfTheFile) {
    const Database other = Model.Open();
    {
        const Transaction transaction(Handle);
        AddTask(other, 2);
    }
    EXPECT_EQ(StoredTasks(), Texts{"1"});
}

TEST_F(TransactionTest, CanFollowOneAnother) {
    for (int number = 2; number < 5; ++number) {
        Transaction transaction(Handle);
        AddTask(Handle, number);
        if (number != 3) {
            transaction.Commit();
        }
    }
    EXPECT_EQ(StoredTasks(), (Texts{"1", "2", "4"}));
}

TEST_F(TransactionTest, NeedsAnOpenDatabase) {
    Handle.Close();
    ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { const Transaction never(Handle); });
}

TEST_F(TransactionTest, IsUndoneWhenTheDatabaseCloses) {
    {
        Transaction transaction(Handle);
        AddTask(Handle, 2);
        Handle.Close();
        ExpectRunTimeError(ErrorKind::ObjectClosed, [&] { transaction.Commit(); });
    }
    EXPECT_EQ(StoredTasks(), Texts{"1"});
    EXPECT_EQ(test::NamesIn(Model.Directory()), (Texts{"blank.seq", "working.seq"}));
}

TEST_F(TransactionTest, IsUndoneWhenItsOpeningClosesAndAnotherStaysOpen) {
    const Database other = Model.Open();
    {
        const Transaction transaction(Handle);
        AddTask(Handle, 2);
        Handle.Close();
    }
    AddTask(other, 3);
    EXPECT_EQ(StoredTasks(), (Texts{"1", "3"}));
}

TEST_F(TransactionTest, LeavesTheTablesWhenTheDiskIsFull) {
    {
        const test::FileSizeLimit limit(std::filesystem::file_size(Model.File()));
        ExpectRunTimeError(ErrorKind::FileAccess, [&] {
            Transaction transaction(Handle);
            RecordSet tasks = Handle.OpenRecordSet("SELECT * FROM Tasks;");
            for (int i = 0; i < 200; ++i) {
                tasks.AddNew();
                tasks.Set("Description", std::string(1000, 'x'));
                tasks.Update();
            }
            transaction.Commit();
        });
    }
    EXPECT_EQ(StoredTasks(), Texts{"1"});
    AddTask(Handle, 2);
    EXPECT_EQ(StoredTasks(), (Texts{"1", "2"}));
}

TEST_F(TransactionTest, OpenSetsKeepTheirRowsWhenItIsUndone) {
    for (const std::string sql : {"SELECT * FROM Tasks;", "SELECT * FROM Tasks ORDER BY TaskId;"}) {
        RecordSet open = Handle.OpenRecordSet(sql);
        {
            const Transaction transaction(Handle);
            open.AddNew();
            open.Set("TaskId", std::int64_t{2});
            open.Update();
            open.Delete();
        }
        EXPECT_EQ(open.RecordCount(), 1);
        open.MoveFirst();
        EXPECT_EQ(open.Integer("TaskId"), 2);
        ExpectRunTimeError(ErrorKind::NoCurrentRecord, [&] {
            open.Edit();
            open.Set("TaskId", std::int64_t{3});
            open.Update();
        });
    }
    EXPECT_EQ(StoredTasks(), Texts{"1"});
}

TEST_F(TransactionTest, ReadsDoNotRememberWhatWasUndone) {
    const auto tasks = [&] {
        return Handle.OpenRecordSet("SELECT TaskId FROM Tasks WHERE TaskId = 2;").RecordCount();
    };
    {
        const Transaction transaction(Handle);
        AddTask(Handle, 2);
        for (int i = 0; i < 40; ++i) {
            ASSERT_EQ(tasks(), 1);
        }
    }
    for (int i = 0; i < 40; ++i) {
        ASSERT_EQ(tasks(), 0);
    }
    const Transaction transaction(Handle);
    for (int i = 0; i < 40; ++i) {
        ASSERT_EQ(tasks(), 0);
    }
}

}  // namespace
}  // namespace quarnel02
