// Every program without windows says which build it is, in the same words, and without a screen.

#include "basic/Version.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

class ProgramVersion : public testing::TestWithParam<std::string> {};

TEST_P(ProgramVersion, IsTheOneOfTheBuild) {
    const auto result =
        test::RunProgram({std::string(QUARNEL02_PROGRAMS) + "/" + GetParam(), "--version"},
                         {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Out, GetParam() + " " + Version() + "\n");
    EXPECT_EQ(result.Err, "");
}

INSTANTIATE_TEST_SUITE_P(EveryProgram, ProgramVersion,
                         testing::Values("quarnel02-solve", "quarnel02-generate",
                                         "quarnel02-make-model"));

TEST(Version, HasThreeNumbers) {
    EXPECT_TRUE(std::regex_match(Version(), std::regex(R"(\d+\.\d+\.\d+)"))) << Version();
}

}  // namespace
}  // namespace quarnel02
