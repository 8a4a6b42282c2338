// What each of the two packages consists of, and that the one for the shell stands by itself.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "basic/Version.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

class Installed : public ::testing::Test {
  protected:
    void Install(const std::string& component) {
        const auto run = test::RunProgram({QUARNEL02_CMAKE, "--install", QUARNEL02_BUILD,
                                           "--prefix", Place.string(), "--component", component});
        ASSERT_EQ(run.Status, 0) << run.Err;
    }

    [[nodiscard]] std::vector<std::string> Files() const {
        std::vector<std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(Place)) {
            if (!entry.is_directory()) {
                files.push_back(fs::relative(entry.path(), Place).string());
            }
        }
        return files;
    }

    [[nodiscard]] std::string LibrariesOf(const std::string& program) const {
        const auto run = test::RunProgram({"ldd", (Place / "bin" / program).string()});
        EXPECT_EQ(run.Status, 0) << run.Err;
        return run.Out;
    }

    TemporaryDirectory Directory;
    fs::path Place = Directory.Path() / "usr";
};

TEST_F(Installed, ForTheShellAreProgramsAndExamples) {
    Install("batch");
    EXPECT_THAT(
        Files(),
        UnorderedElementsAre(
            "bin/quarnel02-solve", "share/man/man1/quarnel02-solve.1.gz", "bin/quarnel02-convert",
            "share/man/man1/quarnel02-convert.1.gz", "share/quarnel02/examples/pump.mdb",
            "share/quarnel02/examples/worked-example.mdb", "share/quarnel02/examples/buxey.mdb",
            "share/quarnel02/examples/gunther.mdb", "share/quarnel02/examples/kilbridge.mdb",
            "share/quarnel02/examples/seventy.mdb", "share/doc/quarnel02-batch/changelog.gz",
            "share/doc/quarnel02-batch/changelog.Debian.gz",
            "share/doc/quarnel02-batch/copyright"));
}

TEST_F(Installed, ForTheDesktopIsWhatAMenuNeeds) {
    Install("desktop");
    EXPECT_THAT(
        Files(),
        UnorderedElementsAre(
            "bin/quarnel02", "share/man/man1/quarnel02.1.gz", "bin/quarnel02-report",
            "share/man/man1/quarnel02-report.1.gz", "share/quarnel02/blank.seq",
            "share/applications/quarnel02.desktop",
            "share/icons/hicolor/scalable/apps/quarnel02.svg", "share/mime/packages/quarnel02.xml",
            "share/metainfo/example.quarnel02.quarnel02.metainfo.xml",
            "share/doc/quarnel02/guide.md.gz", "share/doc/quarnel02/changelog.gz",
            "share/doc/quarnel02/changelog.Debian.gz", "share/doc/quarnel02/copyright"));
    EXPECT_THAT(LibrariesOf("quarnel02"), HasSubstr("libQt6Widgets"));
}

TEST_F(Installed, ProgramsOfTheShellLinkNoToolkit) {
    Install("batch");
    for (const auto& program : fs::directory_iterator(Place / "bin")) {
        const std::string libraries = LibrariesOf(program.path().filename().string());
        EXPECT_THAT(libraries, HasSubstr("libsqlite3"));
        EXPECT_THAT(libraries, Not(HasSubstr("Qt"))) << program.path();
        EXPECT_THAT(libraries, Not(HasSubstr("libX11"))) << program.path();
    }
}

TEST_F(Installed, TheSolverDesignsAnInstalledExample) {
    Install("batch");
    const auto run = test::RunProgram({(Place / "bin" / "quarnel02-solve").string(),
                                       (Place / "share/quarnel02/examples/pump.mdb").string(),
                                       "--shifts", "2", "--demand", "60000"});
    EXPECT_EQ(run.Status, 0) << run.Err;
    EXPECT_THAT(run.Out, HasSubstr("Total Cost:         $202,004"));
}

TEST_F(Installed, WithTheDesktopTheSolverMakesPdfFiles) {
    Install("batch");
    const std::vector<std::string> order = {(Place / "bin" / "quarnel02-solve").string(),
                                            (Place / "share/quarnel02/examples/pump.mdb").string(),
                                            "--shifts",
                                            "2",
                                            "--demand",
                                            "60000",
                                            "--pdf",
                                            (Place / "report.pdf").string()};
    const auto alone = test::RunProgram(order);
    EXPECT_EQ(alone.Status, 1);
    EXPECT_THAT(alone.Err, HasSubstr("Install the package quarnel02"));
    Install("desktop");
    const auto run = test::RunProgram(order);
    EXPECT_EQ(run.Status, 0) << run.Err;
    EXPECT_EQ(ReadFile(Place / "report.pdf").substr(0, 5), "%PDF-");
}

}  // namespace
}  // namespace quarnel02
