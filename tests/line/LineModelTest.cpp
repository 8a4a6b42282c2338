#include "line/LineModel.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;

Resource Numbered(int number, const char* name) {
    Resource resource;
    resource.Number = number;
    resource.ShortName = name;
    return resource;
}

std::vector<Task> Tasks(int count) {
    std::vector<Task> tasks;
    for (int task = 1; task <= count; ++task) {
        tasks.push_back({task, ""});
    }
    return tasks;
}

LineModel WithMatrix(const std::vector<MatrixRow>& matrix) {
    return {{}, {Numbered(1, "One"), Numbered(2, "Two")}, Tasks(3), matrix, {}};
}

TEST(LineModel, IsEmptyWhenNothingIsKnown) {
    const LineModel model;
    EXPECT_EQ(model.ResourceCount(), 0);
    EXPECT_EQ(model.TaskCount(), 0);
    EXPECT_TRUE(model.Demand().empty());
}

TEST(LineModel, OrdersRecordsByTheirNumbersAndKeepsTheOrderOfDemand) {
    const std::vector<MatrixRow> matrix = {{2, 3, {7, 4, 50}}, {1, 1, {5, 1, 20}}};
    const LineModel model({}, {Numbered(2, "Two"), Numbered(1, "One")},
                          {{3, "c"}, {1, "a"}, {2, "b"}}, matrix, {{200, 40}, {100, 60}});
    EXPECT_EQ(model.ResourceOf(1).ShortName, "One");
    EXPECT_EQ(model.ResourceOf(2).ShortName, "Two");
    EXPECT_EQ(model.Tasks()[1].Description, "b");
    EXPECT_EQ(model.Entry(2, 3).ToolNum, 4);
    EXPECT_EQ(model.Demand()[0].Volume, 200.0F);
}

TEST(LineModel, KnowsWhatAResourceCanDo) {
    const LineModel model = WithMatrix({{1, 1, {5, 1, 20}}, {1, 2, {0, 1, 20}}, {2, 3, {7, 1, 0}}});
    EXPECT_TRUE(model.CanDo(1, 1));
    EXPECT_FALSE(model.CanDo(1, 2)) << "a time of 0 says cannot";
    EXPECT_FALSE(model.CanDo(1, 3)) << "no row says cannot";
    EXPECT_FALSE(model.CanDo(2, 1));
    EXPECT_TRUE(model.CanDo(2, 3));
}

TEST(LineModel, HandsOutTheEntriesOfAResourceInTaskOrder) {
    const LineModel model =
        WithMatrix({{2, 3, {30, 1, 0}}, {2, 1, {10, 1, 0}}, {2, 2, {20, 1, 0}}});
    ASSERT_EQ(model.Row(2).size(), 3U);
    EXPECT_EQ(model.Row(2)[0].TaskTime, 10);
    EXPECT_EQ(model.Row(2)[2].TaskTime, 30);
    ASSERT_EQ(model.Entries(2, 2, 3).size(), 2U);
    EXPECT_EQ(model.Entries(2, 2, 3)[0].TaskTime, 20);
}

TEST(LineModel, RefusesNumbersWithGapsOrTwice) {
    const auto gap = ExpectRunTimeError(ErrorKind::NotAModel, [] {
        LineModel({}, {Numbered(1, ""), Numbered(3, "")}, Tasks(1), {}, {});
    });
    EXPECT_NE(gap.find("Resource 3"), std::string::npos) << gap;
    const auto twice = ExpectRunTimeError(ErrorKind::NotAModel, [] {
        LineModel({}, {}, {{1, ""}, {1, ""}}, {}, {});
    });
    EXPECT_NE(twice.find("Task 1"), std::string::npos) << twice;
}

TEST(LineModel, RefusesMoreTasksThanThereAreArcsFor) {
    EXPECT_EQ(LineModel({}, {}, Tasks(255), {}, {}).TaskCount(), 255);
    const auto message =
        ExpectRunTimeError(ErrorKind::Overflow, [] { LineModel({}, {}, Tasks(256), {}, {}); });
    EXPECT_NE(message.find("256 tasks, and at most 255"), std::string::npos) << message;
}

TEST(LineModel, RefusesMatrixRowsOfMissingRecordsAndPairsTwice) {
    const std::vector<MatrixRow> wrong_rows = {{0, 1, {}}, {3, 1, {}}, {1, 0, {}}, {1, 4, {}}};
    for (const MatrixRow& row : wrong_rows) {
        const auto message = ExpectRunTimeError(ErrorKind::NotAModel, [&] { WithMatrix({row}); });
        EXPECT_NE(message.find("Task " + std::to_string(row.Task) + " on resource " +
                               std::to_string(row.Resource)),
                  std::string::npos)
            << message;
    }
    const auto twice = ExpectRunTimeError(ErrorKind::NotAModel, [] {
        WithMatrix({{2, 1, {0, 0, 0}}, {2, 1, {3, 1, 1}}});
    });
    EXPECT_NE(twice.find("Task 1 on resource 2: the matrix has figures of them twice"),
              std::string::npos)
        << twice;
}

}  // namespace
}  // namespace quarnel02
