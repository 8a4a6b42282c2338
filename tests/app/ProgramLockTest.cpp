// When a lock file keeps the program out, and when it does not.
#include "app/ProgramLock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <QSysInfo>
#include <string>

#include "basic/Files.h"

namespace quarnel02 {
namespace {

struct Locking : ::testing::Test {
    [[nodiscard]] ProgramLock::Result Take() const { return ProgramLock(Place.Path()).Take(); }
    void Leave(const std::string& content) const {
        WriteFile(Place.Path() / "quarnel02.lock", content);
    }
    TemporaryDirectory Place;
};

std::string LockOf(qint64 pid, const std::string& program, const std::string& host) {
    return std::to_string(pid) + "\n" + program + "\n" + host + "\n";
}

/// The id of a process that is gone.
qint64 DeadProcess() {
    QProcess program;
    program.start(QStringLiteral("true"), QStringList());
    EXPECT_TRUE(program.waitForStarted());
    const qint64 id = program.processId();
    EXPECT_TRUE(program.waitForFinished());
    return id;
}

TEST_F(Locking, IsRefusedWhileALivingProgramHoldsIt) {
    ProgramLock first(Place.Path());
    EXPECT_EQ(first.Take(), ProgramLock::Result::Held);
    EXPECT_EQ(Take(), ProgramLock::Result::Running);
    EXPECT_EQ(Take(), ProgramLock::Result::Running) << "the refused one took the lock away";
}

TEST_F(Locking, IsFreeAfterTheProgramHasEnded) {
    EXPECT_EQ(Take(), ProgramLock::Result::Held);
    EXPECT_EQ(Take(), ProgramLock::Result::Held);
}

TEST_F(Locking, DoesNotCareForDamagedOrEmptyFiles) {
    for (const char* content : {"", "\n", "garbage", "99999999999999999999\nx\n", "-1\n\n\n"}) {
        Leave(content);
        EXPECT_EQ(Take(), ProgramLock::Result::Held) << content;
    }
}

TEST_F(Locking, DoesNotCareForLocksOfOtherHosts) {
    Leave(LockOf(1, "quarnel02", "another-host"));
    EXPECT_EQ(Take(), ProgramLock::Result::Held);
}

TEST_F(Locking, DoesNotCareForLocksOfTheDead) {
    const std::string host = QSysInfo::machineHostName().toStdString();
    Leave(LockOf(DeadProcess(), "quarnel02", host));
    EXPECT_EQ(Take(), ProgramLock::Result::Held);
}

/// Its process id may have gone to somebody else since.
TEST_F(Locking, DoesNotCareForLocksThatNobodyHolds) {
    const std::string host = QSysInfo::machineHostName().toStdString();
    Leave(LockOf(::getpid(), "app_tests", host));
    EXPECT_EQ(Take(), ProgramLock::Result::Held);
}

TEST_F(Locking, NeverWaitsForAPipe) {
    ASSERT_EQ(::mkfifo((Place.Path() / "quarnel02.lock").c_str(), 0600), 0);
    EXPECT_EQ(Take(), ProgramLock::Result::NotWritable);
}

TEST_F(Locking, NeedsADirectory) {
    EXPECT_EQ(ProgramLock(Place.Path() / "gone").Take(), ProgramLock::Result::NotWritable);
}

}  // namespace
}  // namespace quarnel02
