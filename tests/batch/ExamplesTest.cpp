// The shipped examples with published task times, and what the guide says of them.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"
#include "support/SolveRun.h"

namespace quarnel02 {
namespace {

using test::SolveRun;
using Lines = std::vector<std::string>;

struct Published {
    const char* Name;
    int Tasks;
    double Seconds;  ///< in all
    double Longest;
};

class PublishedExample : public testing::TestWithParam<Published> {};

std::string Example(const std::string& name) {
    return std::string(QUARNEL02_PROGRAMS) + "/examples/" + name + ".mdb";
}

TEST_P(PublishedExample, HasThePublishedTimesOnTheBench) {
    const auto& [name, tasks, seconds, longest] = GetParam();
    const Database database = Database::Open(Example(name));
    ASSERT_NO_THROW(RequireUsableModel(database));
    ASSERT_NO_THROW(RequireUsableDemand(database));
    const LineModel model = LoadLineModel(database);
    EXPECT_EQ(model.TaskCount(), tasks);
    EXPECT_EQ(model.ResourceCount(), 4);
    double sum = 0;
    double most = 0;
    for (const MatrixEntry& entry : model.Row(1)) {
        sum += entry.TaskTime;
        most = std::max(most, entry.TaskTime);
    }
    EXPECT_EQ(sum, seconds);
    EXPECT_EQ(most, longest);
    for (int type = 0; type < 4; ++type) {
        EXPECT_EQ(model.ResourceOf(type + 1).Type, type);
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, PublishedExample,
                         testing::Values(Published{"buxey", 29, 324, 25},
                                         Published{"gunther", 35, 483, 40},
                                         Published{"kilbridge", 45, 552, 55},
                                         Published{"seventy", 70, 3510, 156}),
                         [](const auto& each) { return std::string(each.param.Name); });

std::string Study(const std::string& name, Lines words) {
    const SolveRun run;
    words.insert(words.begin(), {Example(name), "--study"});
    words.insert(words.end(), {"--format", "csv"});
    const auto result = run(words);
    EXPECT_EQ(result.Status, 0) << result.Err;
    return result.Out;
}

const Lines kAtHundredThousand = {"alternatives", "--shifts", "2", "--demand", "100000"};
const Lines kExpected = {"alternatives", "--stochastic"};

void ExpectIn(const std::string& out, const Lines& parts) {
    for (const std::string& part : parts) {
        EXPECT_NE(out.find(part), std::string::npos) << part << " in:\n" << out;
    }
}

TEST(Examples, ShowWhatTheGuideSays) {
    ExpectIn(Study("buxey", {"volumes", "--to", "17000", "--shifts", "1"}),
             {"\n1,1,16413,Bench 1-29,"});
    ExpectIn(Study("buxey", kAtHundredThousand),
             {"\n1,280242.7,0,", "\n2,281636,1393.3125,",
              "Cell 1-10; Fixed 11; Cell 12-21; Fixed 22; Cell 23-29"});
    ExpectIn(Study("gunther", kExpected),
             {"\n1,450000,423076,0,994800,", "\n2,375000,426803.72,0,924000,"});
    ExpectIn(Study("kilbridge", kAtHundredThousand),
             {"\n1,431684.25,0,460600,234624,", "\n2,431765.3,81.0625,607200,179712,"});
    ExpectIn(Study("seventy", kExpected), {"\n1,152543.73,1514137.2,194912.5"});
}

}  // namespace
}  // namespace quarnel02
