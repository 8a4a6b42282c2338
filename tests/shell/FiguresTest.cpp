#include "shell/Figures.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using quarnel02::FindFigure;
using quarnel02::Objection;
using quarnel02::ObjectionToNothing;

struct Case {
    const char* Table;
    const char* Field;
    double Value;
    const char* Objection;
};

class FigureLimits : public testing::TestWithParam<Case> {};

TEST_P(FigureLimits, AreSaidInWords) {
    const Case& c = GetParam();
    const auto* figure = FindFigure(c.Table, c.Field);
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(Objection(*figure, c.Value), c.Objection);
}

constexpr double kInfinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    All, FigureLimits,
    testing::Values(
        Case{"Resources", "UpTime", 0, "uptime is 0 %; it must be above 0 and at most 100."},
        Case{"Resources", "UpTime", 100, ""}, Case{"Resources", "UpTime", 0.01, ""},
        Case{"Resources", "UpTime", 100.5,
             "uptime is 100.5 %; it must be above 0 and at most 100."},
        Case{"resources", "uptime", -1, "uptime is -1 %; it must be above 0 and at most 100."},
        Case{"Resources", "StatPerWrk", 0, "stations per worker is 0; it must be above 0."},
        Case{"Resources", "StatPerWrk", 0.5, ""},
        Case{"Resources", "FixedCost", -5, "fixed cost is -5 $; it must be at least 0."},
        Case{"Resources", "FixedCost", 0, ""},
        Case{"Resources", "VarCost", -1, "variable cost is -1 $/h; it must be at least 0."},
        Case{"Resources", "ICF", -0.1, "investment factor (ICF) is -0.1; it must be at least 0."},
        Case{"Resources", "ToolChange", -1, "tool change time is -1 s; it must be at least 0."},
        Case{"Matrix", "TaskTime", -2, "task time is -2 s; it must be at least 0."},
        Case{"Matrix", "TaskTime", kInfinity, "task time is Infinity s; it must be at least 0."},
        Case{"Matrix", "ToolCost", -2, "tool cost is -2 $; it must be at least 0."},
        Case{"Matrix", "ToolNum", 1.5, "tool number is 1.5; it must be a whole number."},
        Case{"Matrix", "ToolNum", -3, ""},
        Case{"Gen", "Days", 0, "working days per year is 0; it must be above 0 and at most 366."},
        Case{"Gen", "Days", 366, ""},
        Case{"Gen", "Days", 367,
             "working days per year is 367; it must be above 0 and at most 366."},
        Case{"Gen", "ACF", -0.1, "annual capital factor (ACF) is -0.1; it must be at least 0."},
        Case{"Gen", "LaborCost", -1, "labour cost is -1 $/h; it must be at least 0."},
        Case{"Gen", "TransportTime", -1, "transport time is -1 s; it must be at least 0."},
        Case{"Gen", "Penalty", -1, "penalty is -1 $/unit; it must be at least 0."},
        Case{"Demand", "Volume", -1, "volume is -1; it must be at least 0."},
        Case{"Demand", "Prob", 101, "probability is 101 %; it must be at least 0 and at most 100."},
        Case{"Demand", "Prob", 100, ""}));

TEST(ObjectionToNothing, SaysWhatWouldBeAllowed) {
    EXPECT_EQ(ObjectionToNothing(*FindFigure("Resources", "UpTime")),
              "uptime is empty; it must be above 0 and at most 100.");
    EXPECT_EQ(ObjectionToNothing(*FindFigure("Matrix", "ToolNum")),
              "tool number is empty; it must be a whole number.");
}

TEST(FindFigure, KnowsNoLimitsOfNamesAndNumbersOfRecords) {
    EXPECT_EQ(FindFigure("Tasks", "Description"), nullptr);
    EXPECT_EQ(FindFigure("Resources", "ResourceId"), nullptr);
    EXPECT_EQ(FindFigure("Nothing", "UpTime"), nullptr);
}

}  // namespace
