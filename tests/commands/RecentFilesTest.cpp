#include "commands/RecentFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "commands/FileDialog.h"
#include "commands/ModelPath.h"

namespace quarnel02 {
namespace {

using Lines = std::vector<std::string>;

TEST(ModelPath, JoinsWithTheSeparatorOfThePlatform) {
    EXPECT_EQ(ModelPath("/home/anna", "line.mdb"), "/home/anna/line.mdb");
    EXPECT_EQ(ModelPath("", "line.mdb"), "/line.mdb");
}

TEST(ModelPath, FindsFilesOnly) {
    const TemporaryDirectory directory;
    const std::string path = PathText(directory.Path() / "Förder band.mdb");
    EXPECT_FALSE(FileExists(path));
    WriteFile(path, "");
    EXPECT_TRUE(FileExists(path));
    EXPECT_FALSE(FileExists(PathText(directory.Path())));
    EXPECT_FALSE(FileExists(path + "/line.mdb"));
    EXPECT_FALSE(FileExists(""));
}

TEST(FileNamePart, IsRightOfTheLastSeparator) {
    EXPECT_EQ(FileNamePart("/home/anna/line.mdb"), "line.mdb");
    EXPECT_EQ(FileNamePart("C:\\models\\line.mdb"), "line.mdb");
    EXPECT_EQ(FileNamePart("/home/anna\\line.mdb"), "line.mdb");
    EXPECT_EQ(FileNamePart("/line.mdb"), "line.mdb");
    EXPECT_EQ(FileNamePart("/home/anna/"), "");
    EXPECT_EQ(DirectoryPart("/home/anna/line.mdb"), "/home/anna");
    EXPECT_EQ(DirectoryPart("/line.mdb"), "");
}

TEST(FileNamePart, LosesTheFirstCharacterWithoutASeparator) {
    EXPECT_EQ(FileNamePart("line.mdb"), "ine.mdb");
    EXPECT_EQ(FileNamePart("Überlauf.mdb"), "berlauf.mdb");
    EXPECT_EQ(FileNamePart("x"), "");
    EXPECT_EQ(FileNamePart(""), "");
    EXPECT_EQ(DirectoryPart("line.mdb"), "");
}

TEST(WithModelExtension, IsStrictAboutTheLastFourCharacters) {
    EXPECT_EQ(WithModelExtension("line"), "line.mdb");
    EXPECT_EQ(WithModelExtension("line.mdb"), "line.mdb");
    EXPECT_EQ(WithModelExtension("MODEL.MDB"), "MODEL.MDB.mdb");
    EXPECT_EQ(WithModelExtension("mdb"), "mdb.mdb");
    EXPECT_EQ(WithModelExtension(".mdb"), ".mdb");
    EXPECT_EQ(WithModelExtension(""), "");
}

class RecentFilesTest : public ::testing::Test {
  protected:
    [[nodiscard]] std::string Path(const std::string& name) const {
        return PathText(m_directory.Path() / name);
    }
    std::string MakeFile(const std::string& name) const {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        WriteFile(Path(name), "x");
        return Path(name);
    }
    void SetList(const std::string& text) const { WriteFile(Path("recent.cfg"), text); }
    [[nodiscard]] std::string List() const { return ReadFile(Path("recent.cfg")); }

    /// Captions of the menu, "*" behind the enabled ones.
    Lines Menu() {
        m_recent.FillMenu(m_items);
        Lines captions;
        for (const RecentItem& item : m_items) {
            captions.push_back(item.Caption + (item.Enabled ? "*" : ""));
        }
        return captions;
    }

    TemporaryDirectory m_directory;
    RecentFiles m_recent{m_directory.Path() / "recent.cfg"};
    std::array<RecentItem, 4> m_items{};
};

TEST_F(RecentFilesTest, BeginsEmpty) {
    EXPECT_EQ(m_recent.Entries(), Lines{});
    EXPECT_EQ(Menu(), (Lines{"1.", "2.", "3.", "4."}));
    EXPECT_EQ(m_recent.EntryFor("1. ..\\line.mdb"), "");
}

TEST_F(RecentFilesTest, IsMadeByTheFirstFile) {
    m_recent.Add("/models", "line.mdb");
    EXPECT_EQ(List(), "/models/line.mdb\n");
}

TEST_F(RecentFilesTest, NeedsADirectoryAndAFile) {
    m_recent.Add("", "line.mdb");
    m_recent.Add("/models", "");
    EXPECT_FALSE(std::filesystem::exists(Path("recent.cfg")));
}

TEST_F(RecentFilesTest, PutsTheNewestFirst) {
    m_recent.Add("/models", "a.mdb");
    m_recent.Add("/models", "b.mdb");
    EXPECT_EQ(List(), "/models/b.mdb\n/models/a.mdb\n");
}

TEST_F(RecentFilesTest, MovesAKnownFileToTheTop) {
    SetList("/m/a\n/m/b\n/m/c\n");
    m_recent.Add("/m", "c");
    EXPECT_EQ(List(), "/m/c\n/m/a\n/m/b\n");
    m_recent.Add("/m", "c");
    EXPECT_EQ(List(), "/m/c\n/m/a\n/m/b\n");
}

TEST_F(RecentFilesTest, DropsTheSeventhOldLine) {
    SetList("/m/1\n/m/2\n/m/3\n/m/4\n/m/5\n/m/6\n/m/7\n");
    m_recent.Add("/m", "new");
    EXPECT_EQ(List(), "/m/new\n/m/1\n/m/2\n/m/3\n/m/4\n/m/5\n/m/6\n");
}

TEST_F(RecentFilesTest, LosesTheSeventhLineEvenWhenAKnownFileMovesUp) {
    SetList("/m/1\n/m/2\n/m/3\n/m/4\n/m/5\n/m/6\n/m/7\n");
    m_recent.Add("/m", "3");
    EXPECT_EQ(List(), "/m/3\n/m/1\n/m/2\n/m/4\n/m/5\n/m/6\n");
}

TEST_F(RecentFilesTest, WritesNoRepetitionsAndNoBlankLines) {
    SetList("/m/a\n\n/m/b\n/m/a\n");
    m_recent.Add("/m", "c");
    EXPECT_EQ(List(), "/m/c\n/m/a\n/m/b\n");
}

TEST_F(RecentFilesTest, CutsALineAtItsComma) {
    m_recent.Add("/models", "pump, small.mdb");
    EXPECT_EQ(List(), "/models/pump, small.mdb\n");
    EXPECT_EQ(m_recent.Entries(), Lines{"/models/pump"});
    m_recent.Add("/models", "b.mdb");
    EXPECT_EQ(List(), "/models/b.mdb\n/models/pump\n");
}

TEST_F(RecentFilesTest, UsesACutPathAsItStands) {
    const std::string cut = MakeFile("pump");
    SetList(Path("pump, small.mdb") + "\n");
    EXPECT_EQ(Menu(), (Lines{"1. ..\\pump*", "2.", "3.", "4."}));
    EXPECT_EQ(m_recent.EntryFor("1. ..\\pump"), cut);
}

TEST_F(RecentFilesTest, ReadsLinesOfOtherPlatforms) {
    SetList("/m/a\r\n/m/b\r\n/m/c");
    EXPECT_EQ(m_recent.Entries(), (Lines{"/m/a", "/m/b", "/m/c"}));
}

TEST_F(RecentFilesTest, TakesAnythingButAFileForNoList) {
    std::filesystem::create_directory(Path("recent.cfg"));
    EXPECT_EQ(m_recent.Entries(), Lines{});
}

TEST_F(RecentFilesTest, ShowsTheFirstFourFiles) {
    SetList(MakeFile("a.mdb") + "\n" + MakeFile("Förder band.mdb") + "\n" + MakeFile("c.mdb") +
            "\n" + MakeFile("d.mdb") + "\n" + MakeFile("e.mdb") + "\n");
    EXPECT_EQ(Menu(), (Lines{"1. ..\\a.mdb*", "2. ..\\Förder band.mdb*", "3. ..\\c.mdb*",
                             "4. ..\\d.mdb*"}));
}

TEST_F(RecentFilesTest, SkipsADeletedFileButKeepsItsLine) {
    const std::string gone = Path("gone.mdb");
    const std::string here = MakeFile("here.mdb");
    SetList(gone + "\n\n" + here + "\n");
    EXPECT_EQ(Menu(), (Lines{"1. ..\\here.mdb*", "2.", "3.", "4."}));
    EXPECT_EQ(List(), gone + "\n\n" + here + "\n");
    m_recent.Add("/m", "new");
    EXPECT_EQ(List(), "/m/new\n" + gone + "\n" + here + "\n");
}

TEST_F(RecentFilesTest, LeavesTheFourthItemAsItWasWithThreeFiles) {
    const Lines four = {MakeFile("a.mdb"), MakeFile("b.mdb"), MakeFile("c.mdb"), MakeFile("d.mdb")};
    SetList(four[0] + "\n" + four[1] + "\n" + four[2] + "\n" + four[3] + "\n");
    Menu();
    std::filesystem::remove(four[0]);
    EXPECT_EQ(Menu(), (Lines{"1. ..\\b.mdb*", "2. ..\\c.mdb*", "3. ..\\d.mdb*", "4. ..\\d.mdb*"}));
    std::filesystem::remove(four[1]);
    EXPECT_EQ(Menu(), (Lines{"1. ..\\c.mdb*", "2. ..\\d.mdb*", "3.", "4."}));
}

TEST_F(RecentFilesTest, FindsTheMoreRecentOfEqualNames) {
    SetList("/new/line.mdb\n/old/line.mdb\n/old/other.mdb\n");
    EXPECT_EQ(m_recent.EntryFor("2. ..\\line.mdb"), "/new/line.mdb");
    EXPECT_EQ(m_recent.EntryFor("3. ..\\other.mdb"), "/old/other.mdb");
    EXPECT_EQ(m_recent.EntryFor("1. ..\\Line.mdb"), "");
    EXPECT_EQ(m_recent.EntryFor("4."), "");
}

}  // namespace
}  // namespace quarnel02
