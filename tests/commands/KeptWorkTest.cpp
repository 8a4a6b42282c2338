#include "commands/KeptWork.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "commands/InputWatch.h"
#include "commands/KeptName.h"
#include "commands/SessionState.h"
#include "files/ModelFile.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

using Lines = std::vector<std::string>;

struct Keeping : ::testing::Test {
    void SetDays(int days) const {
        RecordSet gen = Model.Open().OpenRecordSet("SELECT * FROM Gen;");
        gen.Edit();
        gen.Set("Days", days);
        gen.Update();
    }
    [[nodiscard]] Lines Captions() const {
        Lines captions;
        for (const KeptModel& kept : Work.List()) {
            captions.push_back(kept.Caption);
        }
        return captions;
    }

    test::TestModel Model{
        "UPDATE Gen SET Product = 'Pump / 2';"
        "INSERT INTO Tasks VALUES (1, 'a'), (2, 'b');"
        "INSERT INTO Resources (ResourceId) VALUES (1);"};
    fs::path Directory = Model.File("Recovered");
    KeptWork Work{Directory};
    KeptWork::Clock::time_point Now = KeptWork::Clock::now();
};

TEST_F(Keeping, NamesAModelByProductDateAndTime) {
    const fs::path kept = Work.Keep(Model.File(), Now);
    EXPECT_EQ(PathText(kept.filename()), "Pump _ 2 " + KeptTime(Now) + ".mdb");
    CheckModelFile(kept, "kept");
    std::string shown = KeptTime(Now).substr(0, 16);
    shown[13] = ':';
    EXPECT_EQ(Captions(), Lines{shown + "  Pump / 2  (2 tasks, 1 resource)"});
}

TEST_F(Keeping, IsForTheOwnerOnly) {
    const fs::path kept = Work.Keep(Model.File(), Now);
    EXPECT_EQ(fs::status(kept).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(Directory).permissions(), fs::perms::owner_all);
}

TEST_F(Keeping, DoesNotKeepTheSameTwiceInARow) {
    const fs::path first = Work.Keep(Model.File(), Now);
    EXPECT_EQ(Work.Keep(Model.File(), Now + 1min), first);
    SetDays(200);
    EXPECT_NE(Work.Keep(Model.File(), Now + 2min), first);
    SetDays(250);
    static_cast<void>(Work.Keep(Model.File(), Now + 3min));
    EXPECT_EQ(Work.List().size(), 3U);
}

TEST_F(Keeping, TellsTwoOfTheSameSecondApart) {
    const fs::path first = Work.Keep(Model.File(), Now);
    SetDays(200);
    const fs::path second = Work.Keep(Model.File(), Now);
    EXPECT_EQ(PathText(second.filename()), "Pump _ 2 " + KeptTime(Now) + " (2).mdb");
    ASSERT_EQ(Work.List().size(), 2U);
    EXPECT_EQ(Work.List()[0].Path, second);
    EXPECT_EQ(Work.List()[1].Path, first);
}

TEST_F(Keeping, StopsAtTheNewestTwentyAndSparesFilesOfOthers) {
    fs::create_directory(Directory);
    WriteFile(Directory / "mine.mdb", "x");
    WriteFile(Directory / "Notes 2026.mdb", "x");
    std::vector<fs::path> kept;
    for (int work = 0; work < 23; ++work) {
        SetDays(100 + work);
        kept.push_back(Work.Keep(Model.File(), Now + work * 1min));
    }
    ASSERT_EQ(Work.List().size(), 20U);
    EXPECT_EQ(Work.List().front().Path, kept.back());
    EXPECT_EQ(Work.List().back().Path, kept[3]);
    EXPECT_FALSE(fs::exists(kept[2]));
    EXPECT_TRUE(fs::exists(Directory / "mine.mdb"));
    EXPECT_TRUE(fs::exists(Directory / "Notes 2026.mdb"));
}

/// A clock that was set back must not make the newest work the first to go.
TEST_F(Keeping, NeverRemovesWhatItHasJustKept) {
    for (int work = 0; work < 20; ++work) {
        SetDays(100 + work);
        static_cast<void>(Work.Keep(Model.File(), Now + work * 1min));
    }
    SetDays(99);
    EXPECT_TRUE(fs::exists(Work.Keep(Model.File(), Now - 1h)));
    EXPECT_EQ(Work.List().size(), 20U);
}

TEST_F(Keeping, ListsOnlyWhatCanBeRead) {
    const fs::path kept = Work.Keep(Model.File(), Now);
    WriteFile(Directory / ("Pump " + KeptTime(Now + 1min) + ".mdb"), "torn");
    ASSERT_EQ(Work.List().size(), 1U);
    EXPECT_EQ(Work.List()[0].Path, kept);
}

TEST_F(Keeping, SetsAsideAModelAsAModelAndAnythingElseAsItIs) {
    WriteFile(Model.File("torn"), "torn");
    const fs::path torn = Work.SetAside(Model.File("torn"), Now);
    EXPECT_EQ(PathText(torn.filename()), "Unreadable " + KeptTime(Now) + ".seq");
    EXPECT_EQ(ReadFile(torn), "torn");
    EXPECT_EQ(Work.List().size(), 0U);

    const fs::path kept = Work.SetAside(Model.File(), Now + 1min);
    EXPECT_EQ(kept.extension(), ".mdb");
    EXPECT_FALSE(fs::exists(Model.File()));
    EXPECT_EQ(Work.List().size(), 1U);
}

/// File systems tell times apart only so finely.
TEST_F(Keeping, SeesTwoWritesWithinOneTickOfTheFileSystem) {
    InputWatch watch(Model.File());
    SetDays(200);
    const auto time = fs::last_write_time(Model.File());
    const auto first = watch.Digest();
    SetDays(201);
    fs::last_write_time(Model.File(), time);
    EXPECT_NE(watch.Digest(), first);
}

TEST_F(Keeping, DoesNotReadAModelAgainThatNobodyWrote) {
    InputWatch watch(Model.File());
    const auto time = fs::last_write_time(Model.File()) - 1h;
    fs::last_write_time(Model.File(), time);
    const auto first = watch.Digest();
    SetDays(201);
    fs::last_write_time(Model.File(), time);  // as if it had never been written
    EXPECT_EQ(watch.Digest(), first);
    fs::last_write_time(Model.File(), time + 1s);
    EXPECT_NE(watch.Digest(), first);
}

TEST(KeptNames, HoldProductsOfEveryKind) {
    EXPECT_EQ(KeptProduct("Pump"), "Pump");
    EXPECT_EQ(KeptProduct("a/b\\c:d*e?f\"g<h>i|j\nk"), "a_b_c_d_e_f_g_h_i_j_k");
    EXPECT_EQ(KeptProduct(" ..hidden. "), "hidden");
    EXPECT_EQ(KeptProduct(" . "), "Untitled");
    EXPECT_EQ(KeptProduct(""), "Untitled");
    const std::string umlauts = KeptProduct(std::string(99, 'x') + "ü");
    EXPECT_EQ(umlauts, std::string(99, 'x'));
}

TEST(KeptNames, AreReadBack) {
    const auto name = ReadKeptName("Pump (2) 2026-11-21 10-05-33 (3).mdb");
    ASSERT_TRUE(name.has_value());
    EXPECT_EQ(name->Product, "Pump (2)");
    EXPECT_EQ(name->Time, "2026-11-21 10-05-33");
    EXPECT_EQ(name->Number, 3);
    EXPECT_EQ(name->Text(), "Pump (2) 2026-11-21 10-05-33 (3).mdb");
    for (const char* other :
         {"Pump.mdb", "2026-11-21 10-05-33.mdb", " 2026-11-21 10-05-33.mdb",
          "Pump 2026-11-21 10:05:33.mdb", "Pump 2026-11-21 10-05-33.txt",
          "Pump 2026-11-21 10-05-33 (x).mdb", "Pump 2026-11-21 10-05-33 (1).mdb", ""}) {
        EXPECT_FALSE(ReadKeptName(other).has_value()) << other;
    }
}

TEST(SessionStates, AreReadAsTheyWereWritten) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "session.state";
    EXPECT_FALSE(ReadSessionState(file).has_value());
    WriteSessionState(file, {0x00123456789ABCDEU, true, false});
    auto state = ReadSessionState(file);
    ASSERT_TRUE(state.has_value());
    EXPECT_EQ(state->Saved, 0x00123456789ABCDEU);
    EXPECT_TRUE(state->Orderly);
    EXPECT_FALSE(state->OfferKept);
    WriteSessionState(file, {std::nullopt, false, true});
    state = ReadSessionState(file);
    EXPECT_FALSE(state->Saved.has_value());
    EXPECT_FALSE(state->Orderly);
    EXPECT_TRUE(state->OfferKept);
}

TEST(SessionStates, OfDamagedFilesKnowNothing) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "session.state";
    for (const char* content : {"", "saved", "saved 12zz\norderly 1\noffer 0\n",
                                "saved 12\norderly 1\n", "orderly 1\nsaved 12\noffer 0\n"}) {
        WriteFile(file, content);
        const auto state = ReadSessionState(file);
        ASSERT_TRUE(state.has_value()) << content;
        EXPECT_FALSE(state->Saved.has_value()) << content;
        EXPECT_FALSE(state->Orderly) << content;
    }
}

}  // namespace
}  // namespace quarnel02
