// The batch program on Access databases.

#include <gtest/gtest.h>

#include <string>

#include "files/ReadModel.h"
#include "files/SaveModel.h"
#include "jet/TinyModel.h"
#include "model/Database.h"
#include "support/AccessTables.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ProgramResult;
using test::SolveRun;
using test::WorkedExample;

struct AccessProgram : ::testing::Test {
    AccessProgram() {
        Own = Run.Make("own.mdb", WorkedExample());
        Access = PathText(Run.File("access.mdb"));
        SaveModel(Own, Access, ModelFormat::Access);
    }
    [[nodiscard]] ProgramResult Solve(const std::string& model,
                                      const std::vector<std::string>& more = {}) const {
        std::vector<std::string> words = {model, "--shifts", "1", "--demand", "100000"};
        words.insert(words.end(), more.begin(), more.end());
        return Run(words);
    }
    /// Solves and saves to "out.mdb"; gives its format.
    [[nodiscard]] ModelFormat SavedFrom(const std::string& model,
                                        std::vector<std::string> more = {}) const {
        more.insert(more.end(), {"--save", Out()});
        const ProgramResult result = Solve(model, more);
        EXPECT_EQ(result.Status, 0) << result.Err;
        ReadModel(Out(), Run.File("copy.seq"), "out.mdb");
        EXPECT_EQ(Database::Open(Run.File("copy.seq"))
                      .OpenRecordSet("SELECT * FROM BestPaths;")
                      .RecordCount(),
                  2);
        return FormatOfFile(Out()).value();
    }
    [[nodiscard]] std::string Out() const { return PathText(Run.File("out.mdb")); }
    void ExpectRefused(const ProgramResult& result, const std::string& words) const {
        EXPECT_EQ(result.Status, 1);
        EXPECT_EQ(result.Out, "");
        EXPECT_EQ(result.Err, "quarnel02-solve: " + words + "\n");
        EXPECT_FALSE(fs::exists(Out()));
        EXPECT_TRUE(Run.LeftNothing());
    }

    SolveRun Run;
    std::string Own;
    std::string Access;
};

TEST_F(AccessProgram, PrintsTheSameReportForEitherFormat) {
    const std::string before = ReadFile(Access);
    const ProgramResult own = Solve(Own);
    const ProgramResult access = Solve(Access);
    EXPECT_EQ(access.Status, 0) << access.Err;
    EXPECT_NE(access.Out.find("Total Cost:         $64,336"), std::string::npos) << access.Out;
    EXPECT_EQ(access.Out, own.Out);
    EXPECT_EQ(ReadFile(Access), before);
}

TEST_F(AccessProgram, SavesWhatTheFileWas) {
    EXPECT_EQ(SavedFrom(Own), ModelFormat::Sqlite);
    EXPECT_EQ(SavedFrom(Access), ModelFormat::Access);
}

TEST_F(AccessProgram, SavesTheFormatThatIsAskedFor) {
    EXPECT_EQ(SavedFrom(Own, {"--format", "access"}), ModelFormat::Access);
    EXPECT_EQ(SavedFrom(Access, {"--format", "sqlite"}), ModelFormat::Sqlite);
}

TEST_F(AccessProgram, RefusesAFormatOfNothing) {
    ExpectRefused(Solve(Own, {"--format", "access"}),
                  "--format sqlite and --format access say how --save writes the model. Give "
                  "--save FILE too.");
    ExpectRefused(Solve(Own, {"--save", Out(), "--format", "access", "--format", "sqlite"}),
                  "--format is given both as sqlite and as access. Give one of them.");
    EXPECT_NE(Solve(Own, {"--save", Out(), "--format", "excel"}).Status, 0);
    EXPECT_FALSE(fs::exists(Out()));
}

TEST_F(AccessProgram, SaysThatAModelIsOpenElsewhere) {
    WriteFile(Run.File("access.ldb"), "PLANNING");
    ExpectRefused(Solve(Access),
                  Access + " is open in Access: the lock file access.ldb stands beside it. Close " +
                      "it there. If nobody has it open, delete access.ldb.");
}

TEST_F(AccessProgram, SavesOverNothingThatHoldsMore) {
    jet::TinyFile file = jet::TinyFileOf(1, test::TablesIn(Access));
    file.AddObject("Costs", 5);
    WriteFile(Run.File("more.mdb"), file.Content());
    const std::string more = PathText(Run.File("more.mdb"));
    for (const char* format : {"access", "sqlite"}) {
        ExpectRefused(Solve(Own, {"--save", more, "--format", format}),
                      more +
                          " holds more than a model: query Costs. Such a file is never "
                          "replaced. Save the model as another file.");
        EXPECT_EQ(ReadFile(more), file.Content());
    }
}

}  // namespace
}  // namespace quarnel02
