#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace fs = std::filesystem;

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::NamesIn;
using test::PermissionsOf;

class CopyWholeTest : public testing::Test {
  protected:
    CopyWholeTest() { WriteFile(Source, Content); }

    void ExpectRefused(ErrorKind kind, const fs::path& from, const fs::path& to,
                       const fs::path& named) const {
        const auto before = NamesIn(Folder.Path());
        const std::string message = ExpectRunTimeError(kind, [&] { CopyWhole(from, to); });
        EXPECT_NE(message.find(PathText(named)), std::string::npos) << message;
        EXPECT_EQ(NamesIn(Folder.Path()), before);
    }

    TemporaryDirectory Folder;
    fs::path Source = Folder.Path() / "from.seq";
    fs::path Target = Folder.Path() / "to.seq";
    std::string Content = std::string(100000, 'x') + std::string("\0\xff\n", 3);
};

TEST_F(CopyWholeTest, MakesAnEqualFileAndNothingElse) {
    CopyWhole(Source, Target);
    EXPECT_EQ(ReadFile(Target), Content);
    EXPECT_EQ(ReadFile(Source), Content);
    EXPECT_EQ(NamesIn(Folder.Path()), (std::vector<std::string>{"from.seq", "to.seq"}));
}

TEST_F(CopyWholeTest, ReplacesALongerFileWhole) {
    WriteFile(Source, "short");
    WriteFile(Target, Content);
    CopyWhole(Source, Target);
    EXPECT_EQ(ReadFile(Target), "short");
}

TEST_F(CopyWholeTest, CopiesAnEmptyFile) {
    WriteFile(Source, "");
    WriteFile(Target, "old");
    CopyWhole(Source, Target);
    EXPECT_EQ(ReadFile(Target), "");
}

TEST_F(CopyWholeTest, CopiesAFileOntoItself) {
    CopyWhole(Source, Source);
    EXPECT_EQ(ReadFile(Source), Content);
    EXPECT_EQ(NamesIn(Folder.Path()), std::vector<std::string>{"from.seq"});
}

TEST_F(CopyWholeTest, TakesUmlautsBlanksAndCommas) {
    const fs::path folder = Folder.Path() / fs::path(u8"Träger, neu und größer");
    fs::create_directory(folder);
    const fs::path target = folder / fs::path(u8"Modell 1,5 für Öl.mdb");
    CopyWhole(Source, target);
    CopyWhole(target, folder / "b.mdb");
    EXPECT_EQ(ReadFile(folder / "b.mdb"), Content);
    EXPECT_EQ(NamesIn(folder), (std::vector<std::string>{"Modell 1,5 für Öl.mdb", "b.mdb"}));
}

TEST_F(CopyWholeTest, KeepsThePermissionsOfTheTarget) {
    test::SetPermissions(Source, 0600);
    for (const unsigned bits : {0644U, 0640U, 0660U, 0755U, 0200U}) {
        WriteFile(Target, "old");
        test::SetPermissions(Target, bits);
        CopyWhole(Source, Target);
        EXPECT_EQ(PermissionsOf(Target), bits);
        EXPECT_EQ(ReadFile(Target), Content);
        fs::remove(Target);
    }
}

TEST_F(CopyWholeTest, GivesANewFileOrdinaryPermissions) {
    test::SetPermissions(Source, 0400);
    {
        const test::FileMask mask(022);
        CopyWhole(Source, Target);
        EXPECT_EQ(PermissionsOf(Target), 0644U);
    }
    const test::FileMask mask(027);
    const fs::path other = Folder.Path() / "other.seq";
    CopyWhole(Source, other);
    EXPECT_EQ(PermissionsOf(other), 0640U);
}

TEST_F(CopyWholeTest, FollowsALinkToTheFileItNames) {
    fs::create_directory(Folder.Path() / "real");
    const fs::path real = Folder.Path() / "real" / "model.mdb";
    WriteFile(real, "old");
    test::SetPermissions(real, 0640);
    fs::create_symlink("real/model.mdb", Target);
    CopyWhole(Source, Target);
    EXPECT_TRUE(fs::is_symlink(Target));
    EXPECT_FALSE(fs::is_symlink(real));
    EXPECT_EQ(ReadFile(real), Content);
    EXPECT_EQ(PermissionsOf(real), 0640U);
    EXPECT_EQ(NamesIn(Folder.Path() / "real"), std::vector<std::string>{"model.mdb"});
}

TEST_F(CopyWholeTest, ReadsThroughALink) {
    fs::create_symlink("from.seq", Folder.Path() / "link");
    CopyWhole(Folder.Path() / "link", Target);
    EXPECT_FALSE(fs::is_symlink(Target));
    EXPECT_EQ(ReadFile(Target), Content);
}

TEST_F(CopyWholeTest, MakesTheFileThatALinkNames) {
    fs::create_directory(Folder.Path() / "real");
    fs::create_symlink("real/new.mdb", Target);
    CopyWhole(Source, Target);
    EXPECT_TRUE(fs::is_symlink(Target));
    EXPECT_EQ(NamesIn(Folder.Path() / "real"), std::vector<std::string>{"new.mdb"});
}

TEST_F(CopyWholeTest, TakesATargetInTheCurrentDirectory) {
    const fs::path before = fs::current_path();
    fs::current_path(Folder.Path());
    CopyWhole("from.seq", "plain.seq");
    fs::current_path(before);
    EXPECT_EQ(ReadFile(Folder.Path() / "plain.seq"), Content);
}

TEST_F(CopyWholeTest, LeavesTheTargetWhenThereIsNoSource) {
    WriteFile(Target, "old");
    const fs::path missing = Folder.Path() / "missing.seq";
    ExpectRefused(ErrorKind::FileNotFound, missing, Target, missing);
    EXPECT_EQ(ReadFile(Target), "old");
}

TEST_F(CopyWholeTest, LeavesTheTargetWhenTheSourceIsADirectory) {
    WriteFile(Target, "old");
    ExpectRefused(ErrorKind::FileAccess, Folder.Path(), Target, Folder.Path());
    EXPECT_EQ(ReadFile(Target), "old");
}

TEST_F(CopyWholeTest, RefusesADirectoryAsTarget) {
    fs::create_directory(Target);
    ExpectRefused(ErrorKind::FileAccess, Source, Target, Target);
    EXPECT_TRUE(fs::is_directory(Target));
    EXPECT_TRUE(NamesIn(Target).empty());
}

TEST_F(CopyWholeTest, RefusesAMissingDirectory) {
    const fs::path target = Folder.Path() / "missing" / "to.seq";
    ExpectRefused(ErrorKind::FileNotFound, Source, target, target);
}

TEST_F(CopyWholeTest, RefusesAFileWhereADirectoryIsNeeded) {
    const fs::path target = Source / "to.seq";
    ExpectRefused(ErrorKind::FileAccess, Source, target, target);
    EXPECT_EQ(ReadFile(Source), Content);
}

TEST_F(CopyWholeTest, RefusesADirectoryWithoutRights) {
    test::SetPermissions(Folder.Path(), 0755);
    const fs::path closed = Folder.Path() / "closed";
    fs::create_directory(closed);
    WriteFile(closed / "to.seq", "old");
    test::SetPermissions(closed, 0555);
    {
        const test::OrdinaryUser user;
        ExpectRefused(ErrorKind::FileAccess, Source, closed / "to.seq", closed / "to.seq");
        ExpectRefused(ErrorKind::FileAccess, Source, closed / "new.seq", closed / "new.seq");
    }
    EXPECT_EQ(NamesIn(closed), std::vector<std::string>{"to.seq"});
    EXPECT_EQ(ReadFile(closed / "to.seq"), "old");
    test::SetPermissions(closed, 0755);
}

TEST_F(CopyWholeTest, RefusesADirectoryThatCannotBeSearched) {
    test::SetPermissions(Folder.Path(), 0755);
    const fs::path closed = Folder.Path() / "closed";
    fs::create_directory(closed);
    test::SetPermissions(closed, 0);
    {
        const test::OrdinaryUser user;
        ExpectRefused(ErrorKind::FileAccess, Source, closed / "to.seq", closed / "to.seq");
        ExpectRefused(ErrorKind::FileAccess, closed / "from.seq", Target, closed / "from.seq");
    }
    test::SetPermissions(closed, 0755);
}

TEST_F(CopyWholeTest, LeavesEverythingWhenTheDiskIsFull) {
    WriteFile(Target, "old");
    {
        const test::FileSizeLimit limit(4096);
        ExpectRefused(ErrorKind::FileAccess, Source, Target, Target);
        const fs::path fresh = Folder.Path() / "fresh.seq";
        ExpectRefused(ErrorKind::FileAccess, Source, fresh, fresh);
    }
    EXPECT_EQ(ReadFile(Target), "old");
    EXPECT_EQ(ReadFile(Source), Content);
}

TEST_F(CopyWholeTest, RefusesASpecialFile) {
    const fs::path pipe = Folder.Path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    ExpectRefused(ErrorKind::FileAccess, Source, pipe, pipe);
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(CopyWholeTest, TakesTheLongestFileName) {
    const fs::path target = Folder.Path() / (std::string(251, 'n') + ".mdb");
    CopyWhole(Source, target);
    EXPECT_EQ(ReadFile(target), Content);
}

}  // namespace
}  // namespace quarnel02
