#include "fixed/DrawLinks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/FigureText.h"
#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::FiguresOf;
using test::FigureTexts;
using test::LoadedModel;
using test::ModelScript;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

std::string Node(int x) {
    return "circle (" + std::to_string(x) +
           ", 1500) radius 50 from 0 to 6.28318530717959 aspect 1 width 1 rgb 0,0,0 filled";
}

std::string Lower(const char* place, const char* pen) {
    return std::string("circle ") + place + " from 3.14159 to 6.28318 aspect 0.25 " + pen;
}

std::string Upper(const char* place, const char* pen) {
    return std::string("circle ") + place + " from 0 to 3.14159 aspect 0.25 " + pen;
}

constexpr const char* kGrey = "width 1 rgb 125,125,125";
constexpr const char* kBlue = "width 2 rgb 0,0,127";
constexpr const char* kRed = "width 2 rgb 200,0,0";
constexpr const char* kThickRed = "width 4 rgb 250,0,50";
constexpr const char* kThinYellow = "width 2 rgb 250,250,0";

ModelScript Network(int tasks) {
    ModelScript model;
    model.Tasks = tasks;
    return model;
}

/// Two tasks with spacing 15000 / 4 = 3750, no matrix; a pathway for each digit, its state, on the
/// three arcs in turn.
struct TwoTasks : LoadedModel {
    explicit TwoTasks(const std::string& states) : LoadedModel(Network(2)) {
        RecordSet pathways = Form.OpenWorkingCopy().OpenRecordSet(test::kAllPathways);
        int id = 0;
        for (const char state : states) {
            pathways.AddNew();
            pathways.Set("PathId", id + 1);
            pathways.Set("ArcId", id % 3);
            pathways.Set("Feasible", state - '0');
            pathways.Update();
            ++id;
        }
        DrawLinks(Form.OpenWorkingCopy(), Form, Form.picArc);
    }
};

TEST(DrawLinks, DrawsOneNodeForNoTask) {
    const LoadedModel model(Network(0));
    EXPECT_EQ(FigureTexts(model.Form.picArc), Lines{Node(7500)});
}

TEST(DrawLinks, DrawsOnlyNodesWithoutArcs) {
    const TestModel copy;
    ScriptedForm form(copy.Directory());
    form.SetText(TextBox::txtTasks, "2");
    DrawLinks(form.OpenWorkingCopy(), form, form.picArc);
    // Labels half a spacing of 3750 to the right, less 85, of the nodes at 3750 and 7500.
    EXPECT_EQ(FigureTexts(form.picArc), (Lines{Node(3750), "text (5540, 1415) [ 1 ]", Node(7500),
                                               "text (9290, 1415) [ 2 ]", Node(11250)}));
}

TEST(DrawLinks, DrawsArcsInGreyUnderTheNodes) {
    const LoadedModel model(Network(2));
    EXPECT_EQ(
        FigureTexts(model.Form.picArc),
        (Lines{Upper("(5625, 1500) radius 1875", kGrey), Upper("(9375, 1500) radius 1875", kGrey),
               Lower("(7500, 1500) radius 3750", kGrey), Node(3750), "text (5540, 1415) [ 1 ]",
               Node(7500), "text (9290, 1415) [ 2 ]", Node(11250)}));
}

TEST(DrawLinks, LaysTheStatesOverOneAnother) {
    const TwoTasks model("124");
    EXPECT_EQ(
        FigureTexts(model.Form.picArc),
        (Lines{Upper("(5625, 1500) radius 1875", kGrey), Upper("(9375, 1500) radius 1875", kGrey),
               Lower("(7500, 1500) radius 3750", kGrey), Upper("(5625, 1500) radius 1875", kBlue),
               Upper("(9375, 1500) radius 1875", kRed),
               Lower("(7500, 1500) radius 3750", kThickRed),
               Lower("(7500, 1500) radius 3750", kThinYellow), Node(3750),
               "text (5540, 1415) [ 1 ]", Node(7500), "text (9290, 1415) [ 2 ]", Node(11250)}));
}

TEST(DrawLinks, DrawsTheChosenArcsOneAfterTheOther) {
    const TwoTasks model("44");
    const Lines figures = FigureTexts(model.Form.picArc);
    ASSERT_EQ(figures.size(), 3U + 4U + 5U);
    EXPECT_EQ(Lines(figures.begin() + 3, figures.begin() + 7),
              (Lines{Upper("(5625, 1500) radius 1875", kThickRed),
                     Upper("(5625, 1500) radius 1875", kThinYellow),
                     Upper("(9375, 1500) radius 1875", kThickRed),
                     Upper("(9375, 1500) radius 1875", kThinYellow)}));
}

/// The layers drawn on the arc of the first task, in order.
Lines LayersOfFirstArc(const LoadedModel& model) {
    Lines layers;
    for (const std::string& figure : FigureTexts(model.Form.picArc)) {
        const auto pen = figure.find(" width");
        if (figure.starts_with("circle (5625")) {
            layers.push_back(figure.substr(pen + 1));
        }
    }
    return layers;
}

TEST(DrawLinks, DrawsAnArcInEachOfItsStatesTheLastOnTop) {
    // The first arc has pathways in states 4, 2 and 1; each state is drawn once, in its layer.
    EXPECT_EQ(LayersOfFirstArc(TwoTasks("432211144")),
              (Lines{kGrey, kBlue, kRed, kThickRed, kThinYellow}));
}

TEST(DrawLinks, DrawsAnArcOnceForSeveralPathwaysOfOneState) {
    EXPECT_EQ(LayersOfFirstArc(TwoTasks("133133")), (Lines{kGrey, kBlue}));
}

TEST(DrawLinks, DrawsNoLayerForDearerAlternatives) {
    EXPECT_EQ(LayersOfFirstArc(TwoTasks("333")), Lines{kGrey});
}

TEST(DrawLinks, DrawsOnlyGreyAndRedWithoutAFeasiblePathway) {
    EXPECT_EQ(LayersOfFirstArc(TwoTasks("222")), (Lines{kGrey, kRed}));
}

TEST(DrawLinks, LabelsNineTasksWithOneDigitAndTheLastNodeNot) {
    const LoadedModel model(Network(9));
    const auto labels = FiguresOf<TextFigure>(model.Form.picArc);
    // 10 nodes, spacing 15000 / 11 = 1363.6, so 1364; label 9 at 9 x 1364 + 682 - 85.
    ASSERT_EQ(labels.size(), 9U);
    EXPECT_EQ(labels[0].Text, " 1 ");
    EXPECT_EQ(labels[0].X, 1364 + 682 - 85);
    EXPECT_EQ(labels[8].Text, " 9 ");
    EXPECT_EQ(labels[8].X, 9 * 1364 + 682 - 85);
    EXPECT_EQ(labels[8].Y, 1415);
}

TEST(DrawLinks, ShiftsLabelsOfTwoDigitsFurther) {
    const LoadedModel model(Network(11));
    const auto labels = FiguresOf<TextFigure>(model.Form.picArc);
    // 12 nodes, spacing 15000 / 13 = 1153.8, so 1154.
    ASSERT_EQ(labels.size(), 11U);
    EXPECT_EQ(labels[8].X, 9 * 1154 + 577 - 85);
    EXPECT_EQ(labels[9].Text, " 10 ");
    EXPECT_EQ(labels[9].X, 10 * 1154 + 577 - 120);
    EXPECT_EQ(labels[10].Text, " 11 ");
    EXPECT_EQ(labels[10].X, 11 * 1154 + 577 - 120);
}

TEST(DrawLinks, LeavesThePenThinAndTheFillTransparent) {
    const TwoTasks model("4");
    EXPECT_EQ(model.Form.picArc.DrawWidth, 1);
    EXPECT_EQ(model.Form.picArc.Fill, FillStyle::Transparent);
    // Behind the label place of the last node, 11250 + 1875 - 85.
    EXPECT_EQ(model.Form.picArc.CurrentX, 13040);
    EXPECT_EQ(model.Form.picArc.CurrentY, 1415);
}

TEST(DrawLinks, GivesTheSamePictureWhenRunTwice) {
    TwoTasks model("124");
    const auto first = model.Form.picArc.Figures();
    DrawLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.Form.picArc.Figures(), first);
}

TEST(DrawLinks, OnlyReadsTheTables) {
    LoadedModel model(test::WorkedExample());
    const auto before = model.DerivedTables();
    DrawLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    EXPECT_EQ(model.DerivedTables(), before);
    EXPECT_TRUE(model.Form.Events.empty());
}

TEST(DrawLinks, ReachesAbovePaperInALongNetwork) {
    const LoadedModel model(Network(49));
    // Spacing 15000 / 51 = 294; the arcs over 48 tasks lie above: 1500 - 0.25 x 24 x 294 < 0.
    EXPECT_LT(model.Form.picArc.Bounds().Top, 1500 - 0.25 * 24 * 294 + 1);
    EXPECT_LT(model.Form.picArc.Bounds().Top, 0);
}

TEST(DrawLinks, RefusesATaskCountThatIsNoNumber) {
    LoadedModel model(Network(2));
    model.Form.SetText(TextBox::txtTasks, "two");
    ExpectRunTimeError(ErrorKind::TypeMismatch, [&] {
        DrawLinks(model.Form.OpenWorkingCopy(), model.Form, model.Form.picArc);
    });
}

}  // namespace
}  // namespace quarnel02
