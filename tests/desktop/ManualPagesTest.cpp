// The manual pages keep up with the programs.
#include <gmock/gmock.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "basic/Files.h"
#include "basic/Version.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

const fs::path kPages = fs::path(QUARNEL02_ROOT) / "docs" / "man";

std::string Page(const std::string& program) {
    return ReadFile(kPages / (program + ".1"));
}

std::set<std::string> OptionsIn(const std::string& text) {
    static const std::regex form("(^|[^-a-z])(--[a-z][-a-z]+)");
    std::set<std::string> options;
    for (std::sregex_iterator each(text.begin(), text.end(), form), end; each != end; ++each) {
        options.insert((*each)[2]);
    }
    return options;
}

/// As a reader sees it: a hyphen is written "\-".
std::string Read(const std::string& page) {
    return std::regex_replace(page, std::regex(R"(\\-)"), "-");
}

class ManualPage : public ::testing::TestWithParam<std::string> {};

TEST_P(ManualPage, NamesTheOptionsThatTheProgramHasAndNoOthers) {
    const auto help =
        test::RunProgram({std::string(QUARNEL02_PROGRAMS) + "/" + GetParam(), "--help"});
    ASSERT_EQ(help.Status, 0) << help.Err;
    EXPECT_EQ(OptionsIn(Read(Page(GetParam()))), OptionsIn(help.Out));
}

INSTANTIATE_TEST_SUITE_P(EveryBatchProgram, ManualPage,
                         ::testing::Values("quarnel02-solve", "quarnel02-convert"));

TEST(ManualPages, TellTheVersion) {
    for (const auto& entry : fs::directory_iterator(kPages)) {
        EXPECT_THAT(ReadFile(entry.path()),
                    HasSubstr("\"Quarnel02 " + std::string(Version()) + "\""))
            << entry.path();
    }
}

TEST(ManualPages, ReferOnlyToPagesThatThereAre) {
    static const std::regex reference(R"(\.BR (quarnel02[-\\a-z0-9]*) \(1\))");
    for (const auto& entry : fs::directory_iterator(kPages)) {
        const std::string page = ReadFile(entry.path());
        for (std::sregex_iterator each(page.begin(), page.end(), reference), end; each != end;
             ++each) {
            EXPECT_TRUE(fs::exists(kPages / (Read((*each)[1]) + ".1"))) << each->str();
        }
    }
}

}  // namespace
}  // namespace quarnel02
