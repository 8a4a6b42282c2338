#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace {

/// Sees every flush of this program; what it returns is the error that the flush ends with, 0 for
/// none.
std::function<int(int descriptor)> on_flush;

/// Whether the system gives a nameless file no name.
bool only_named = false;

}  // namespace

// In place of the system's.
extern "C" int fsync(int descriptor) {
    errno = on_flush ? on_flush(descriptor) : 0;
    return errno != 0 ? -1 : static_cast<int>(::syscall(SYS_fsync, descriptor));
}
extern "C" int linkat(int from, const char* source, int to, const char* target,
                      int flags) noexcept {
    errno = only_named ? EOPNOTSUPP : 0;
    return only_named ? -1
                      : static_cast<int>(::syscall(SYS_linkat, from, source, to, target, flags));
}

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;
using Names = std::vector<std::string>;

class FlushTest : public testing::Test {
  protected:
    /// A flush as it was asked for.
    struct Flush {
        ino_t File;
        bool OfDirectory;
        off_t Size;
        std::string Target;  ///< content of the target at that moment
    };

    void SetUp() override {
        WriteFile(Target, "old");
        on_flush = [this](int descriptor) {
            struct stat status {};
            EXPECT_EQ(::fstat(descriptor, &status), 0);
            Flushes.push_back(
                {status.st_ino, S_ISDIR(status.st_mode), status.st_size, ReadFile(Target)});
            return 0;
        };
    }
    void TearDown() override {
        on_flush = nullptr;
        only_named = false;
    }

    [[nodiscard]] static ino_t NumberOf(const fs::path& file) {
        struct stat status {};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_ino;
    }
    std::string ExpectFailure(int code) const {
        on_flush = [code](int /*descriptor*/) { return code; };
        const std::string message =
            ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(Target, "new content"); });
        on_flush = nullptr;
        EXPECT_TRUE(message.starts_with("Cannot write " + PathText(Target))) << message;
        return message;
    }

    TemporaryDirectory Folder;
    fs::path Target = Folder.Path() / "line.mdb";
    std::vector<Flush> Flushes;
};

TEST_F(FlushTest, TheContentIsOnTheDiskBeforeItTakesTheOldOnesPlace) {
    for (const auto& write : {WriteWhole, WritePrivate}) {
        WriteFile(Target, "old");
        Flushes.clear();
        write(Target, "new content");
        ASSERT_EQ(Flushes.size(), 2U);
        EXPECT_EQ(Flushes[0].File, NumberOf(Target));
        EXPECT_EQ(Flushes[0].Size, 11);
        EXPECT_EQ(Flushes[0].Target, "old");
        EXPECT_TRUE(Flushes[1].OfDirectory);
        EXPECT_EQ(Flushes[1].File, NumberOf(Folder.Path()));
        EXPECT_EQ(Flushes[1].Target, "new content");
    }
}

TEST_F(FlushTest, AWholeCopyIsOnTheDiskBeforeAFileWithFurtherNamesIsTouched) {
    fs::create_hard_link(Target, Folder.Path() / "other.mdb");
    WriteWhole(Target, "new content");
    ASSERT_EQ(Flushes.size(), 3U);
    EXPECT_NE(Flushes[0].File, NumberOf(Target));
    EXPECT_EQ(Flushes[0].Size, 11);
    EXPECT_EQ(Flushes[0].Target, "old");
    EXPECT_TRUE(Flushes[1].OfDirectory);
    EXPECT_EQ(Flushes[1].Target, "old");
    EXPECT_EQ(Flushes[2].File, NumberOf(Target));
    EXPECT_EQ(Flushes[2].Target, "new content");
}

TEST_F(FlushTest, AFileWhoseContentCannotBeFlushedTakesNoPlace) {
    ExpectFailure(EIO);
    EXPECT_EQ(ReadFile(Target), "old");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(FlushTest, ADiskThatIsFullAtLastIsCalledSo) {
    for (const int code : {ENOSPC, EDQUOT}) {
        EXPECT_EQ(ExpectFailure(code),
                  "Cannot write " + PathText(Target) +
                      ". The disk is full: free some space, or choose another disk.");
        EXPECT_EQ(ReadFile(Target), "old");
        EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
    }
}

TEST_F(FlushTest, AFileThatHasANameFromTheStartIsFlushedToo) {
    only_named = true;
    WriteWhole(Target, "new content");
    ASSERT_EQ(Flushes.size(), 3U);  // the first is that of the nameless file
    EXPECT_EQ(Flushes[1].File, NumberOf(Target));
    EXPECT_EQ(Flushes[1].Size, 11);
    EXPECT_EQ(Flushes[1].Target, "old");
    EXPECT_EQ(ReadFile(Target), "new content");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(FlushTest, AFileThatHasANameFromTheStartIsRemovedWhenItFails) {
    only_named = true;
    int left = 1;
    on_flush = [&left](int /*descriptor*/) { return left-- > 0 ? 0 : EIO; };
    ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(Target, "new content"); });
    EXPECT_EQ(ReadFile(Target), "old");
    EXPECT_EQ(NamesIn(Folder.Path()), Names{"line.mdb"});
}

TEST_F(FlushTest, ADamagedFileWithFurtherNamesLeavesAWholeCopyAndSaysWhere) {
    fs::create_hard_link(Target, Folder.Path() / "other.mdb");
    int left = 2;
    on_flush = [&left](int /*descriptor*/) { return left-- > 0 ? 0 : EIO; };
    const std::string message =
        ExpectRunTimeError(ErrorKind::FileAccess, [&] { WriteWhole(Target, "new content"); });
    const std::string words = "The file is damaged now; a whole copy is ";
    ASSERT_NE(message.find(words), std::string::npos) << message;
    std::string copy = message.substr(message.find(words) + words.size());
    copy.pop_back();
    EXPECT_EQ(ReadFile(copy), "new content");
}

}  // namespace
}  // namespace quarnel02
