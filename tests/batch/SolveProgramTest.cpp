#include <gtest/gtest.h>

#include "basic/Files.h"
#include "batch/SolveFile.h"

namespace quarnel02 {
namespace {

TEST(SolveFile, SolvesTheWorkedExample) {
    SolveRequest request;
    request.Model = std::string(QUARNEL02_PROGRAMS) + "/examples/worked-example.mdb";
    request.Answers.Demand = "100000";
    EXPECT_NE(SolveFile(request).Report.find("$64,336"), std::string::npos);
}

}  // namespace
}  // namespace quarnel02
