// Choosing the cheapest volume of a final table and tracing the design back.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "stoch/RecordFile.h"
#include "stoch/Records.h"
#include "support/RunTimeErrors.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::StochDesk;

using Designs = std::vector<DesignSegment>;

float After(float volume) {
    return std::nextafter(volume, 1e30F);
}

class ExtractTest : public testing::Test {
  protected:
    ExtractTest() { Desk.BuildDemandTables(); }

    void WriteFinal(int task, const Designs& designs) const {
        RecordWriter<DesignSegment> file(Desk.Run.Files.Final(task));
        for (const DesignSegment& design : designs) {
            file.Write(design);
        }
        file.Close();
    }

    StochDesk Desk{test::StagesModel()};
};

TEST_F(ExtractTest, TakesTheEarliestOfEqualCosts) {
    WriteFinal(2, {{100000, 150000, 90, 50, 1, 0, 1},
                   {After(150000), 200000, 50, 50, 1, 0, 2},
                   {After(200000), 600000, 50, 70, 1, 0, 3}});
    ExtractStochasticSolution(Desk.Run);
    EXPECT_EQ(Desk.Run.Capacity, 150000);
    EXPECT_EQ(Desk.Run.ExpectedCost, 50);
    ASSERT_EQ(Desk.Run.Solution.size(), 1U);
    EXPECT_EQ(Desk.Run.Solution[0].ArcInfo, 1);
    EXPECT_EQ(Desk.Run.Solution[0].StartTask, 1);
    EXPECT_EQ(Desk.Run.Solution[0].EndTask, 2);
}

TEST_F(ExtractTest, TakesTheStartOfALevelSegment) {
    WriteFinal(2, {{100000, 150000, 90, 60, 1, 0, 1}, {After(150000), 600000, 50, 50, 1, 0, 2}});
    ExtractStochasticSolution(Desk.Run);
    EXPECT_EQ(Desk.Run.Capacity, After(150000));
}

TEST_F(ExtractTest, TakesNegativeCostsAsTheyAre) {
    WriteFinal(2, {{100000, 150000, 90, -1, 1, 0, 1}, {After(150000), 600000, 0, -5, 1, 0, 2}});
    ExtractStochasticSolution(Desk.Run);
    EXPECT_EQ(Desk.Run.Capacity, 600000);
    EXPECT_EQ(Desk.Run.ExpectedCost, -5);
}

TEST_F(ExtractTest, TracesBackToTheFirstRecordThatReachesTheVolume) {
    WriteFinal(1, {{100000, 150000, 9, 9, 1, 0, 1}, {After(150000), 600000, 5, 5, 1, 0, 2}});
    WriteFinal(2, {{100000, 150000, 90, 40, 2, 1, 1}, {After(150000), 600000, 50, 50, 1, 0, 3}});
    ExtractStochasticSolution(Desk.Run);
    EXPECT_EQ(Desk.Run.Capacity, 150000);
    ASSERT_EQ(Desk.Run.Solution.size(), 2U);
    EXPECT_EQ(Desk.Run.Solution[0].ArcResource, 2);
    EXPECT_EQ(Desk.Run.Solution[0].StartTask, 2);
    EXPECT_EQ(Desk.Run.Solution[1].ArcResource, 1);
    EXPECT_EQ(Desk.Run.Solution[1].EndTask, 1);
    EXPECT_EQ(Desk.Run.Solution[1].ArcInfo, 1);  // 150,000 still belongs to the first record
}

TEST_F(ExtractTest, NeedsATableThatReachesTheVolume) {
    WriteFinal(1, {{100000, 150000, 9, 9, 1, 0, 1}});
    WriteFinal(2, {{100000, 600000, 90, 40, 2, 1, 1}});
    test::ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                             [&] { ExtractStochasticSolution(Desk.Run); });
}

TEST_F(ExtractTest, NeedsARecord) {
    WriteFinal(2, {});
    test::ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                             [&] { ExtractStochasticSolution(Desk.Run); });
}

TEST(FreeDesign, IsTheOneOfTheLowestVolume) {
    test::ModelScript model = test::PenaltyModel();
    model.Resources[0].FixedCost = 0;
    model.Matrix[0].ToolCost = 0;
    StochDesk desk(model);
    desk.Solve();
    EXPECT_EQ(desk.Run.Capacity, 100000);
    EXPECT_EQ(desk.Run.ExpectedCost, 0);
}

}  // namespace
}  // namespace quarnel02
