// The bytes of the records in run files.

#include "stoch/RunRecords.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace quarnel02 {
namespace {

/// The lowest byte first.
std::string LittleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int byte = 0; byte < bytes; ++byte) {
        text += static_cast<char>(value & 0xFFU);
        value >>= 8U;
    }
    return text;
}

std::string Singles(std::initializer_list<float> values) {
    std::string text;
    for (const float value : values) {
        text += LittleEndian(std::bit_cast<std::uint32_t>(value), 4);
    }
    return text;
}

std::string Shorts(std::initializer_list<std::uint32_t> values) {
    std::string text;
    for (const std::uint32_t value : values) {
        text += LittleEndian(value, 2);
    }
    return text;
}

TEST(RunRecords, OfASingleAreItsFourBytesTheLowestFirst) {
    // 1 is 0x3F800000, 2 0x40000000, -1 0xBF800000
    const ShiftCurve shifts({{1, kNoUpperEnd, 2}});
    EXPECT_EQ(ShiftRecords(shifts),
              std::string("\x00\x00\x80\x3F\x00\x00\x80\xBF\x00\x00\x00\x40", 12));
}

TEST(RunRecords, OfExpectedProductionEndWithTheMarker) {
    const ProductionCurve production({{100, 200, 100, 160}, {200, kNoUpperEnd, 160, 160}});
    EXPECT_EQ(ProductionRecords(production), Singles({100, 200, 100, 160, 200, -1, 160, 160}));
    EXPECT_EQ(ProductionRecords(production).size(), 2 * kProductionRecord);
}

TEST(RunRecords, OfExpectedShiftsEndWithTheMarker) {
    const ShiftCurve shifts({{100, 150, 3}, {150, 300, 2.6F}, {300, kNoUpperEnd, 1}});
    EXPECT_EQ(ShiftRecords(shifts), Singles({100, 150, 3, 150, 300, 2.6F, 300, -1, 1}));
    EXPECT_EQ(ShiftRecords(shifts).size(), 3 * kShiftRecord);
}

CostCurve CurveOf(const std::vector<CurveSegment>& segments) {
    CostCurve curve;
    for (const CurveSegment& segment : segments) {
        curve.Append(segment);
    }
    return curve;
}

TEST(RunRecords, OfAnArcHoldResourceAndStationsInOneSingle) {
    const CostCurve curve = CurveOf({{1, 2, 10, 20.5F, {3, 7, 0}},
                                     {NextSingle(2), 4, 30, 30, {1, 4095, 0}},
                                     {NextSingle(4), 8, 40, 40, {4095, 4095, 0}}});
    EXPECT_EQ(ArcRecords(curve),
              Singles({1, 2, 10, 20.5F, 3 * 4096 + 7, NextSingle(2), 4, 30, 30, 4096 + 4095,
                       NextSingle(4), 8, 40, 40, 4095 * 4096 + 4095}));
    EXPECT_EQ(ArcRecords(curve).size(), 3 * kArcRecord);
}

TEST(RunRecords, OfADesignHoldResourceTaskBeforeAndStations) {
    const CostCurve curve =
        CurveOf({{1, 2, 10, 20, {3, 7, 0}}, {NextSingle(2), 4, 30, 31, {4095, 4095, 254}}});
    EXPECT_EQ(DesignRecords(curve), Singles({1, 2, 10, 20}) + Shorts({3, 0, 7}) +
                                        Singles({NextSingle(2), 4, 30, 31}) +
                                        Shorts({4095, 254, 4095}));
    EXPECT_EQ(DesignRecords(curve).size(), 2 * kDesignRecord);
}

TEST(RunRecords, OfAnEmptyCurveAreNone) {
    EXPECT_EQ(ArcRecords({}), "");
    EXPECT_EQ(DesignRecords({}), "");
}

}  // namespace
}  // namespace quarnel02
