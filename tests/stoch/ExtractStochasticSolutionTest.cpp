// Taking the line of a result.

#include "stoch/ExtractStochasticSolution.h"

#include <gtest/gtest.h>

#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

TEST(ExtractStochasticSolution, GivesTheLine) {
    StochasticResult result;
    result.Line.emplace().Capacity = 600000;
    EXPECT_EQ(&ExtractStochasticSolution(result), &*result.Line);
}

TEST(ExtractStochasticSolution, NeedsOne) {
    EXPECT_EQ(test::ExpectRunTimeError(ErrorKind::NoCurrentRecord,
                                       [] { ExtractStochasticSolution(StochasticResult{}); }),
              "No design is possible at any volume: every line would need more than 4,095 parallel "
              "stations. Check the task times and the demand.");
}

}  // namespace
}  // namespace quarnel02
