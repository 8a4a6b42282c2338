#include "line/Pathways.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <vector>

#include "line/ContentTwin.h"
#include "line/RandomLine.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

/// Resources with an uptime, and which of the tasks they can do, each in a second.
LineModel Able(int tasks, const std::vector<std::vector<int>>& tasksOfResources) {
    test::ModelScript model;
    model.Tasks = tasks;
    for (const std::vector<int>& can_do : tasksOfResources) {
        model.Resources.emplace_back();
        const int resource = static_cast<int>(model.Resources.size());
        for (const int task : can_do) {
            model.Matrix.push_back({resource, task, 1, 1, 10});
        }
    }
    return model.Model();
}

std::vector<int> UpTo(int last) {
    std::vector<int> numbers;
    for (int number = 1; number <= last; ++number) {
        numbers.push_back(number);
    }
    return numbers;
}

TEST(Pathways, BeginAnywhereInAnUnbrokenChain) {
    const std::vector<Pathway> expected = {{1, 1, 1}, {1, 1, 2}, {1, 1, 3},
                                           {1, 2, 2}, {1, 2, 3}, {1, 3, 3}};
    EXPECT_EQ(PathwaysOf(Able(3, {{1, 2, 3}})), expected);
}

TEST(Pathways, BreakAtATaskThatTheResourceCannotDo) {
    const std::vector<Pathway> expected = {{1, 1, 1}, {1, 1, 2}, {1, 2, 2}, {1, 4, 4}};
    EXPECT_EQ(PathwaysOf(Able(4, {{1, 2, 4}})), expected);
}

TEST(Pathways, AreNumberedResourceByResource) {
    const std::vector<Pathway> pathways = PathwaysOf(Able(3, {{1, 2, 3}, {}, {1, 2, 3}}));
    ASSERT_EQ(pathways.size(), 12U);
    EXPECT_EQ(pathways[5], (Pathway{1, 3, 3}));
    EXPECT_EQ(pathways[6], (Pathway{3, 1, 1}));
}

TEST(Pathways, AreNoneWithoutTasksOrResources) {
    EXPECT_TRUE(PathwaysOf({}).empty());
    EXPECT_TRUE(PathwaysOf(Able(3, {})).empty());
    EXPECT_TRUE(PathwaysOf(Able(3, {{}, {}})).empty());
    EXPECT_TRUE(ContentsOf({}, {}).empty());
}

TEST(Pathways, ReachTheLargestNumberAndNoFurther) {
    // A chain of 255 tasks has 255 x 256 / 2 = 32,640 pathways, one of 15 has 120: 7 are left.
    EXPECT_EQ(PathwaysOf(Able(255, {UpTo(255), UpTo(15), {1, 2, 3, 5}})).size(), 32767U);
    const auto message = test::ExpectRunTimeError(ErrorKind::Overflow, [] {
        PathwaysOf(Able(255, {UpTo(255), UpTo(15), {1, 2, 3, 5, 7}}));
    });
    EXPECT_EQ(message,
              "Pathways: the model has more than 32,767 pathways (a task range and a resource that "
              "can do it). Remove tasks, resources or matrix rows.");
}

TEST(Pathways, AreListedWhateverTheFiguresOfTheResources) {
    Resource broken;
    broken.Number = 1;
    broken.ShortName = "Robot";
    const std::vector<MatrixRow> matrix = {{1, 1, {5, 1, 0}}};
    const LineModel model({}, {broken}, {{1, ""}}, matrix, {});
    const std::vector<Pathway> pathways = PathwaysOf(model);
    EXPECT_EQ(pathways.size(), 1U);
    const auto message =
        test::ExpectRunTimeError(ErrorKind::DivisionByZero, [&] { ContentsOf(model, pathways); });
    EXPECT_NE(message.find("Resource 1 (Robot)"), std::string::npos) << message;
}

RC_GTEST_PROP(Pathways, AreAllRangesOfTasksThatAResourceCanDo, ()) {
    const LineModel model = test::RandomModel(test::Roll(3, 10)).Model();
    std::vector<Pathway> expected;
    for (int resource = 1; resource <= model.ResourceCount(); ++resource) {
        for (int first = 1; first <= model.TaskCount(); ++first) {
            for (int last = first; last <= model.TaskCount(); ++last) {
                const auto entries = model.Entries(resource, first, last);
                if (std::all_of(entries.begin(), entries.end(),
                                [](const MatrixEntry& entry) { return entry.TaskTime > 0; })) {
                    expected.push_back({static_cast<std::int16_t>(resource),
                                        static_cast<std::int16_t>(first),
                                        static_cast<std::int16_t>(last)});
                }
            }
        }
    }
    RC_ASSERT(PathwaysOf(model) == expected);
}

RC_GTEST_PROP(Pathways, HaveTheContentsOfTheirTasksWhereverTheyBegin, ()) {
    const PreparedLine line = Prepare(test::RandomModel(test::Roll(5, 10)).Model());
    RC_ASSERT(line.Contents.size() == line.Pathways.size());
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        const auto& [resource, first, last] = line.Pathways[place];
        RC_ASSERT(line.Contents[place] ==
                  test::ContentTwin(line.Model.Entries(resource, first, last),
                                    line.Model.ResourceOf(resource),
                                    line.Model.Parameters().TransportTime));
    }
}

RC_GTEST_PROP(Pathways, HaveTheSameContentsWhicheverOfThemAreAskedFor, ()) {
    const PreparedLine line = Prepare(test::RandomModel(test::Roll(5, 10)).Model());
    std::vector<Pathway> some;
    std::vector<WorkContent> expected;
    for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
        if (test::Roll(0, 2) != 0) {
            some.push_back(line.Pathways[place]);
            expected.push_back(line.Contents[place]);
        }
    }
    RC_ASSERT(ContentsOf(line.Model, some) == expected);
    std::reverse(some.begin(), some.end());
    std::reverse(expected.begin(), expected.end());
    RC_ASSERT(ContentsOf(line.Model, some) == expected);
}

}  // namespace
}  // namespace quarnel02
