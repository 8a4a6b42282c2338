// Every text of every picture, measured with the letters of the screen: none is small, none beyond
// the paper, none on another one, whatever the model and the shape of the box.
#include <gtest/gtest.h>

#include <QApplication>
#include <string>
#include <vector>

#include "charts/CostBars.h"
#include "charts/StationLoad.h"
#include "charts/Tornado.h"
#include "charts/VolumeChart.h"
#include "generate_model.h"
#include "line/CheapestLine.h"
#include "picture/Inks.h"
#include "shell/LoadLineModel.h"
#include "study/CostBasis.h"
#include "study/VolumePieces.h"
#include "support/Dice.h"
#include "support/LegibleTexts.h"
#include "support/StochSolve.h"
#include "widgets/ScreenMeasure.h"

namespace quarnel02 {
namespace {

const TextMeasure& Letters() {
    return ScreenMeasure(QApplication::font().family());
}

/// Boxes of several shapes, in pixels, and sizes of letters.
std::vector<Page> Pages() {
    std::vector<Page> pages;
    for (const auto& [width, height, points] : {std::tuple(480, 280, 9),
                                                {1400, 260, 9},
                                                {330, 520, 9},
                                                {1900, 1000, 12},
                                                {260, 170, 9}}) {
        pages.push_back({.Width = width * kTwipsPerPixel,
                         .Height = height * kTwipsPerPixel,
                         .Points = static_cast<double>(points),
                         .Measure = &Letters()});
    }
    return pages;
}

void ExpectLegibleOnAllPages(Picture& picture) {
    for (const Page& page : Pages()) {
        SCOPED_TRACE(test::PairText(page.Width / kTwipsPerPixel, page.Height / kTwipsPerPixel));
        picture.LayOut(page);
        test::ExpectLegible(picture);
    }
}

/// A random model; every second one has long names, every third one demand points near each other.
std::string RandomScript(int round, int tasks, int resources) {
    std::string sql = GeneratedModelScript(tasks, resources, static_cast<std::uint32_t>(round + 1));
    if (round % 2 == 0) {
        sql += "UPDATE Resources SET ShortName = ShortName || ' Schraubautomat mit Zuführung';\n";
    }
    if (round % 3 == 0) {
        sql += "DELETE FROM Demand;\n";
        for (int point = 0; point < 10; ++point) {
            sql += "INSERT INTO Demand (Volume, Prob) VALUES (" +
                   NumberText(60000 + 1500 * point + point % 3) + ", 10);\n";
        }
    }
    return sql;
}

class PictureTexts : public testing::TestWithParam<int> {};

TEST_P(PictureTexts, OfAStochasticDesignAreLegible) {
    test::Dice dice(static_cast<unsigned>(GetParam()));
    test::StochSolve solve(RandomScript(GetParam(), dice(1, 9), dice(1, 4)),
                           NumberText(dice(0, 40)));
    solve.Press();
    ASSERT_FALSE(solve.Form.picGraph[3].Figures().empty());
    for (const std::size_t index : {1U, 2U, 3U}) {
        SCOPED_TRACE(index);
        ExpectLegibleOnAllPages(solve.Form.picGraph.at(index));
    }
    ExpectLegibleOnAllPages(solve.Form.picArc);
}

TEST_P(PictureTexts, OfAFixedDesignAreLegible) {
    test::Dice dice(static_cast<unsigned>(GetParam()) + 100);
    test::LoadedModel model(RandomScript(GetParam(), dice(1, 30), dice(1, 8)) +
                            "DELETE FROM Demand;\n");
    model.Solve(dice(1, 3), NumberText(1000 * dice(10, 2000)));
    ASSERT_FALSE(model.Form.picGraph[2].Figures().empty());
    ExpectLegibleOnAllPages(model.Form.picGraph[2]);
    ExpectLegibleOnAllPages(model.Form.picLoad);
    ExpectLegibleOnAllPages(model.Form.picArc);
}

TEST_P(PictureTexts, OfAStudyAreLegible) {
    test::Dice dice(static_cast<unsigned>(GetParam()) + 200);
    const test::LoadedModel loaded(RandomScript(GetParam(), dice(1, 8), dice(1, 4)));
    const PreparedLine line = Prepare(LoadLineModel(loaded.Copy.Open()));
    const FixedDemandRequest request{1000.0 * dice(10, 500), 2, {}};
    const auto design = CheapestLine(line, request);
    ASSERT_TRUE(design.has_value());
    const LineTable table =
        TableOf(line.Model, GroupsOf(*design), BasisOf(request, line.Model.Parameters()));
    Picture picture(7200, 4200);
    DrawStationLoad(picture, line.Model, table);
    ExpectLegibleOnAllPages(picture);
    for (const VolumeCost shown : {VolumeCost::Total, VolumeCost::PerUnit}) {
        DrawVolumes(picture,
                    CurvesOf(line.Model, VolumeRanges(line, {1000, 60000 + dice(0, 200000), {}})),
                    shown);
        ExpectLegibleOnAllPages(picture);
    }
    DrawTornado(picture, SensitivityOf(line, request), static_cast<double>(design->Cost));
    ExpectLegibleOnAllPages(picture);
    std::vector<CostBar> bars;
    for (int bar = dice(1, 12); bar > 0; --bar) {
        bars.push_back({"Scenario with a rather long name " + NumberText(bar), table.Totals,
                        1000.0 * bar, ""});
    }
    DrawCostBars(picture, bars);
    ExpectLegibleOnAllPages(picture);
}

INSTANTIATE_TEST_SUITE_P(Rounds, PictureTexts, testing::Range(0, 8));

TEST(PictureColours, OfTextsHaveContrastOnBothPapers) {
    for (const Colour ink : {kInk, kSoftInk, kBlueInk, kGreenInk, kPurpleInk, kOrangeInk, kRedInk,
                             kGuideInk, Colour{0, 0, 127}, Colour{200, 0, 0}}) {
        const std::string name = test::PenText(0, ink);
        EXPECT_GE(ContrastOf(ink, kPaper), 4.5) << name;
        EXPECT_GE(ContrastOf(OnDark(ink), OnDark(kPaper)), 4.5) << name;
    }
    for (const Colour ink : {kInk, kSoftInk}) {  // those of the texts on cards
        EXPECT_GE(ContrastOf(ink, kCard), 4.5);
        EXPECT_GE(ContrastOf(OnDark(ink), OnDark(kCard)), 4.5);
    }
    EXPECT_DOUBLE_EQ(ContrastOf({0, 0, 0}, {255, 255, 255}), 21);
}

}  // namespace
}  // namespace quarnel02
