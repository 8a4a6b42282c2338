// Where the template, working copy and reports live.
#include <gtest/gtest.h>

#include "app/ApplicationDirectory.h"
#include "basic/Files.h"
#include "files/ModelFile.h"
#include "model/Database.h"
#include "model/InputDigest.h"
#include "support/RunTimeErrors.h"
#include "support/Surroundings.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

class ChosenDirectory : public ::testing::Test {
  protected:
    ChosenDirectory() { fs::create_directories(Program); }

    void PutTemplate(const fs::path& directory) {
        fs::create_directories(directory);
        WriteFile(directory / "blank.seq", "template");
    }

    TemporaryDirectory Root;
    fs::path Program = Root.Path() / "bin";
    fs::path Data = Root.Path() / "home" / "data";
};

TEST_F(ChosenDirectory, IsThatOfTheProgramWithATemplate) {
    PutTemplate(Program);
    EXPECT_EQ(PrepareApplicationDirectory(Program, Data), Program);
    EXPECT_FALSE(fs::exists(Data));
}

TEST_F(ChosenDirectory, IsElseTheUsersOwnWithTheInstalledTemplate) {
    PutTemplate(Root.Path() / "share" / "quarnel02");
    EXPECT_EQ(PrepareApplicationDirectory(Program, Data), Data);
    EXPECT_EQ(ReadFile(Data / "blank.seq"), "template");
}

TEST_F(ChosenDirectory, IsElseTheUsersOwnWhereThatOfTheProgramIsWriteProtected) {
    PutTemplate(Program);
    fs::create_directories(Data);
    test::SetPermissions(Root.Path(), 0755);
    test::SetPermissions(Data, 0777);
    test::SetPermissions(Program, 0555);
    {
        const test::OrdinaryUser user;
        EXPECT_EQ(PrepareApplicationDirectory(Program, Data), Data);
        EXPECT_EQ(ReadFile(Data / "blank.seq"), "template");
    }
    test::SetPermissions(Program, 0755);
    fs::remove(Data / "blank.seq");
    EXPECT_EQ(PrepareApplicationDirectory(Program, Data), Program);
    EXPECT_FALSE(fs::exists(Data / "blank.seq"));
}

TEST_F(ChosenDirectory, KeepsATemplateThatIsThere) {
    PutTemplate(Root.Path() / "share" / "quarnel02");
    fs::create_directories(Data);
    WriteFile(Data / "blank.seq", "mine");
    EXPECT_EQ(PrepareApplicationDirectory(Program, Data), Data);
    EXPECT_EQ(ReadFile(Data / "blank.seq"), "mine");
}

TEST_F(ChosenDirectory, GetsATemplateOfTheProgramsOwnWhereNoneIsLeft) {
    EXPECT_EQ(PrepareApplicationDirectory(Program, Data), Data);
    CheckModelFile(Data / "blank.seq", "blank.seq");
    const Database made = Database::Open(Data / "blank.seq");
    const Database shipped = Database::Open(QUARNEL02_TEMPLATE_FILE);
    EXPECT_EQ(InputDigest(made), InputDigest(shipped));
}

TEST_F(ChosenDirectory, TakesADirectoryOfThatNameForNoTemplate) {
    fs::create_directories(Program / "blank.seq");
    fs::create_directories(Data / "blank.seq" / "in the way");
    const std::string message = test::ExpectRunTimeError(
        ErrorKind::FileAccess, [&] { PrepareApplicationDirectory(Program, Data); });
    EXPECT_NE(message.find(PathText(Data / "blank.seq")), std::string::npos) << message;
}

TEST_F(ChosenDirectory, KnowsWhereTheExamplesAre) {
    EXPECT_EQ(ExamplesDirectory(Program), fs::path());
    const fs::path shared = Root.Path() / "share" / "quarnel02" / "examples";
    fs::create_directories(shared);
    EXPECT_EQ(ExamplesDirectory(Program), shared);
    fs::create_directories(Program / "examples");
    EXPECT_EQ(ExamplesDirectory(Program), Program / "examples");
}

TEST_F(ChosenDirectory, FailsWhereItCannotBeMade) {
    PutTemplate(Root.Path() / "share" / "quarnel02");
    WriteFile(Root.Path() / "home", "a file");
    test::ExpectRunTimeError(ErrorKind::FileAccess,
                             [&] { PrepareApplicationDirectory(Program, Data); });
}

}  // namespace
}  // namespace quarnel02
