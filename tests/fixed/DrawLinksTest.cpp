#include "fixed/DrawLinks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "support/FigureText.h"
#include "support/LoadedModel.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using test::ExpectRunTimeError;
using test::FiguresOf;
using test::LoadedModel;
using test::ModelScript;
using test::NetworkTexts;
using test::ScriptedForm;
using test::TestModel;

using Lines = std::vector<std::string>;

std::string Node(int x) {
    return "circle (" + std::to_string(x) +
           ", 1500) radius 0 from 0 to 6.28318530717959 aspect 1 width 1 rgb 0,0,0 filled";
}

std::string Task(int number, double x) {
    return "task " + std::to_string(number) + " at " + NumberText(x);
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
    EXPECT_EQ(NetworkTexts(model.Form.picArc), Lines{Node(7500)});
}

TEST(DrawLinks, DrawsOnlyNodesWithoutArcs) {
    const TestModel copy;
    ScriptedForm form(copy.Directory());
    form.SetText(TextBox::txtTasks, "2");
    DrawLinks(form.OpenWorkingCopy(), form, form.picArc);
    EXPECT_EQ(NetworkTexts(form.picArc),
              (Lines{Node(3750), Node(7500), Node(11250), Task(1, 5625), Task(2, 9375)}));
}

TEST(DrawLinks, DrawsArcsInGreyUnderTheNodes) {
    const LoadedModel model(Network(2));
    EXPECT_EQ(
        NetworkTexts(model.Form.picArc),
        (Lines{Upper("(5625, 1500) radius 1875", kGrey), Upper("(9375, 1500) radius 1875", kGrey),
               Lower("(7500, 1500) radius 3750", kGrey), Node(3750), Node(7500), Node(11250),
               Task(1, 5625), Task(2, 9375)}));
}

TEST(DrawLinks, LaysTheStatesOverOneAnother) {
    const TwoTasks model("124");
    EXPECT_EQ(
        NetworkTexts(model.Form.picArc),
        (Lines{Upper("(5625, 1500) radius 1875", kGrey), Upper("(9375, 1500) radius 1875", kGrey),
               Lower("(7500, 1500) radius 3750", kGrey), Upper("(5625, 1500) radius 1875", kBlue),
               Upper("(9375, 1500) radius 1875", kRed),
               Lower("(7500, 1500) radius 3750", kThickRed),
               Lower("(7500, 1500) radius 3750", kThinYellow), Node(3750), Node(7500), Node(11250),
               Task(1, 5625), Task(2, 9375)}));
}

TEST(DrawLinks, DrawsTheChosenArcsOneAfterTheOther) {
    const TwoTasks model("44");
    const Lines figures = NetworkTexts(model.Form.picArc);
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
    for (const std::string& figure : NetworkTexts(model.Form.picArc)) {
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

TEST(DrawLinks, NumbersTheTasksBetweenTheNodes) {
    const LoadedModel model(Network(11));
    Lines texts = NetworkTexts(model.Form.picArc);
    // 12 nodes, spacing 15000 / 13 = 1153.8, so 1154; the last node has no number.
    ASSERT_GT(texts.size(), 11U);
    EXPECT_EQ(texts[texts.size() - 11], Task(1, 1154 + 577));
    EXPECT_EQ(texts[texts.size() - 2], Task(10, 10 * 1154 + 577));
    EXPECT_EQ(texts.back(), Task(11, 11 * 1154 + 577));
}

TEST(DrawLinks, LeavesThePenThinAndTheFillTransparent) {
    const TwoTasks model("4");
    EXPECT_EQ(model.Form.picArc.DrawWidth, 1);
    EXPECT_EQ(model.Form.picArc.Fill, FillStyle::Transparent);
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

TEST(DrawLinks, FillsAPageOfAnyShape) {
    LoadedModel model(Network(49));
    Picture& network = model.Form.picArc;
    for (const auto& [width, height] :
         {std::pair{15000.0, 4400.0}, {6000.0, 6000.0}, {20000.0, 1500.0}}) {
        network.LayOut({.Width = width, .Height = height});
        const Extent drawn = network.Bounds();
        EXPECT_EQ(drawn, (Extent{0, 0, width, height}));
        double left = width;
        double right = 0;
        double top = height;
        double bottom = 0;
        for (const auto& circle : FiguresOf<CircleFigure>(network)) {
            const Extent extent = ExtentOf(circle, FileMeasure());
            left = std::min(left, extent.Left);
            right = std::max(right, extent.Right);
            top = std::min(top, extent.Top);
            bottom = std::max(bottom, extent.Bottom);
        }
        EXPECT_NEAR(left + right, width, 2) << "in the middle";
        EXPECT_TRUE(right - left > 0.9 * width || bottom - top > 0.55 * height) << width;
    }
}

TEST(DrawLinks, IsFlatterOrHigherToFillThePage) {
    LoadedModel model(Network(12));
    Picture& network = model.Form.picArc;
    const auto shares = [&](double width, double height) {
        network.LayOut({.Width = width, .Height = height});
        Extent ink{width, height, 0, 0};
        for (const auto& circle : FiguresOf<CircleFigure>(network)) {
            const Extent extent = ExtentOf(circle, FileMeasure());
            ink = {std::min(ink.Left, extent.Left), std::min(ink.Top, extent.Top),
                   std::max(ink.Right, extent.Right), std::max(ink.Bottom, extent.Bottom)};
        }
        return std::pair((ink.Right - ink.Left) / width, (ink.Bottom - ink.Top) / height);
    };
    const auto [wide_across, wide_down] = shares(12000, 2500);
    EXPECT_GT(wide_across, 0.95);
    EXPECT_GT(wide_down, 0.7);
    EXPECT_LT(network.Sheet.Stretch, 0.9);
    const auto [high_across, high_down] = shares(7000, 4000);
    EXPECT_GT(high_across, 0.9);
    EXPECT_GT(high_down, 0.7);
    EXPECT_GT(network.Sheet.Stretch, 1.5);
}

/// Those of single tasks would lie behind them where there are many.
TEST(DrawLinks, ArcsStandClearOfTheNumbersOfTasks) {
    LoadedModel model(Network(50));
    Picture& network = model.Form.picArc;
    for (const auto& [width, height] : {std::pair{15000.0, 4400.0}, {20000.0, 2500.0}}) {
        network.LayOut({.Width = width, .Height = height});
        const auto chips = FiguresOf<BoxFigure>(network);
        ASSERT_FALSE(chips.empty());
        for (const auto& arc : FiguresOf<CircleFigure>(network)) {
            if (!arc.Filled) {
                EXPECT_GT(arc.Radius * arc.Aspect, chips[0].Height / 2) << arc.X;
            }
            const Extent extent = ExtentOf(arc, FileMeasure());
            EXPECT_GE(extent.Top, 0);
            EXPECT_LE(extent.Bottom, height);
        }
    }
}

TEST(DrawLinks, WhereAllNumbersStandTheyKeepClearOfTheDiscs) {
    LoadedModel model(Network(50));
    Picture& network = model.Form.picArc;
    std::vector<std::size_t> shown;
    for (int width = 12000; width <= 24000; width += 500) {
        network.LayOut({.Width = static_cast<double>(width), .Height = 4400});
        const auto chips = FiguresOf<BoxFigure>(network);
        shown.push_back(chips.size());
        if (chips.size() < 50) {
            continue;
        }
        for (const auto& disc : FiguresOf<CircleFigure>(network)) {
            for (const auto& chip : chips) {
                EXPECT_TRUE(!disc.Filled || disc.X + disc.Radius <= chip.X + 1 ||
                            disc.X - disc.Radius >= chip.X + chip.Width - 1)
                    << width;
            }
        }
    }
    EXPECT_EQ(shown.front(), 25U);
    EXPECT_EQ(shown.back(), 50U);
}

TEST(DrawLinks, GrowsWithTheZoomUnderALegendThatStays) {
    LoadedModel model(Network(12));
    Picture& network = model.Form.picArc;
    const Page page{.Width = 12000, .Height = 4000};
    network.LayOut(page);
    const double scale = network.Sheet.Scale;
    const auto fixed_texts = [&] {
        Lines texts;
        for (std::size_t place = 0; place < network.Figures().size(); ++place) {
            const auto* text = std::get_if<TextFigure>(&network.Figures()[place]);
            if (text != nullptr && network.IsFixed(place)) {
                texts.push_back(text->Text + " at " + NumberText(text->X));
            }
        }
        return texts;
    };
    const Lines legend = fixed_texts();
    const auto paper_under_it = [&] {
        for (std::size_t place = 0; place < network.Figures().size(); ++place) {
            const auto* box = std::get_if<BoxFigure>(&network.Figures()[place]);
            if (box != nullptr && network.IsFixed(place)) {
                return box->Width;
            }
        }
        return 0.0;
    };
    EXPECT_EQ(paper_under_it(), 0);
    ASSERT_EQ(legend.size(), 4U);
    EXPECT_TRUE(legend[0].starts_with("no resource at "));
    EXPECT_TRUE(legend[3].starts_with("chosen at "));
    Page enlarged = page;
    enlarged.Zoom = 3;
    network.LayOut(enlarged);
    EXPECT_DOUBLE_EQ(network.Sheet.Scale, 3 * scale);
    EXPECT_GT(network.Width(), 2.5 * page.Width);
    EXPECT_EQ(fixed_texts(), legend);
    EXPECT_EQ(paper_under_it(), page.Width) << "arcs that are moved would shine through";
}

std::vector<double> OpacitiesOf(const LoadedModel& model, Colour colour) {
    std::vector<double> opacities;
    for (const auto& circle : FiguresOf<CircleFigure>(model.Form.picArc)) {
        if (circle.Pen == colour) {
            opacities.push_back(circle.Opacity);
        }
    }
    return opacities;
}

TEST(DrawLinks, FadesGreyArcsFromThirtyTasksOn) {
    constexpr Colour grey{125, 125, 125};
    for (const int tasks : {29, 30}) {
        const auto opacities = OpacitiesOf(LoadedModel(Network(tasks)), grey);
        ASSERT_FALSE(opacities.empty());
        EXPECT_EQ(*std::max_element(opacities.begin(), opacities.end()) < 1, tasks == 30);
    }
}

TEST(DrawLinks, VeilsThePossibleArcsOfALargeNetworkUntilItIsEnlarged) {
    constexpr Colour blue{0, 0, 127};
    ModelScript script = Network(30);
    script.Resources.resize(1);
    for (int task = 1; task <= script.Tasks; ++task) {
        script.Matrix.push_back({1, task, 10, 1});
    }
    LoadedModel model(script);
    ASSERT_FALSE(OpacitiesOf(model, blue).empty());
    const auto faintest = [&] {
        const auto opacities = OpacitiesOf(model, blue);
        return *std::min_element(opacities.begin(), opacities.end());
    };
    EXPECT_LT(faintest(), 0.1);
    Page enlarged = model.Form.picArc.LaidOutFor();
    enlarged.Zoom = 4;
    const double fitted = faintest();
    model.Form.picArc.LayOut(enlarged);
    EXPECT_NEAR(faintest(), 4 * fitted, 1e-9);
}

/// 30 tasks, of which one resource can do any run.
LoadedModel LargeNetwork() {
    ModelScript script = Network(30);
    script.Resources = {{"Bench", 0, 1000, 1}};
    for (int task = 1; task <= script.Tasks; ++task) {
        script.Matrix.push_back({1, task, 10, 1});
    }
    return LoadedModel(script);
}

/// Strongest opacity of each arc in a colour, by its words.
std::map<std::string, double> StrengthOf(const Picture& network, Colour colour) {
    std::map<std::string, double> strength;
    for (const HotSpot& spot : network.HotSpots()) {
        const auto* arc = std::get_if<CircleFigure>(&network.Figures()[spot.Figure]);
        if (arc != nullptr && arc->Pen == colour) {
            double& strongest = strength[spot.Text.substr(0, spot.Text.find(':'))];
            strongest = std::max(strongest, arc->Opacity);
        }
    }
    return strength;
}

TEST(DrawLinks, OfALargeNetworkShortArcsAndTheCheapestChainsStandOut) {
    constexpr Colour blue{0, 0, 127};
    LoadedModel model = LargeNetwork();
    const auto strength = StrengthOf(model.Form.picArc, blue);
    ASSERT_EQ(strength.size(), 30U * 31 / 2);
    EXPECT_EQ(strength.at("1"), 1);
    EXPECT_LT(strength.at("1-15"), 0.2);
    EXPECT_EQ(StrengthOf(model.Form.picArc, {125, 125, 125}).size(), 0U) << "none under a veil";
    EXPECT_GT(strength.at("1-8"), strength.at("1-15"));
    const auto clear = [&] {
        std::size_t count = 0;
        for (const auto& [tasks, opacity] : StrengthOf(model.Form.picArc, blue)) {
            count += opacity == 1 ? 1 : 0;
        }
        return count;
    };
    const std::size_t before = clear();
    model.Solve(1, "100000");
    ASSERT_EQ(model.Copy.RowsOf("SELECT * FROM BestPaths;", 4).size(), 30U);
    EXPECT_GT(clear(), before + 10);
    EXPECT_LE(clear(), before + 30);
    const auto chosen = StrengthOf(model.Form.picArc, {250, 250, 0});
    ASSERT_FALSE(chosen.empty());
    for (const auto& [words, opacity] : chosen) {
        EXPECT_EQ(opacity, 1) << words;
    }
}

TEST(DrawLinks, LeavesOutTaskNumbersThatHaveNoRoom) {
    LoadedModel model(Network(50));
    Picture& network = model.Form.picArc;
    const auto numbers = [&] {
        Lines texts = NetworkTexts(network);
        std::erase_if(texts, [](const std::string& text) { return !text.starts_with("task"); });
        return texts;
    };
    EXPECT_EQ(numbers().size(), 50U);
    network.LayOut({.Width = 6000, .Height = 3000});
    ASSERT_EQ(numbers().size(), 10U);
    EXPECT_TRUE(numbers()[0].starts_with("task 5 at "));
}

/// The words behind the arcs that lead from node to node, each once.
Lines WordsBehind(const Picture& network) {
    Lines words;
    for (const HotSpot& spot : network.HotSpots()) {
        if (std::find(words.begin(), words.end(), spot.Text) == words.end()) {
            words.push_back(spot.Text);
        }
    }
    return words;
}

TEST(DrawLinks, SaysWhatAnArcStandsFor) {
    LoadedModel model(Network(2));
    const Database database = model.Form.OpenWorkingCopy();
    EXPECT_EQ(WordsBehind(model.Form.picArc),
              (Lines{"1: no resource can do all of it", "2: no resource can do all of it",
                     "1-2: no resource can do all of it"}));
    RecordSet resources = database.OpenRecordSet("SELECT * FROM Resources;");
    for (const char* name : {"Bench", " Robot ", ""}) {
        resources.AddNew();
        resources.Set("ResourceId", 1 + (name[0] == ' ' ? 1 : name[0] == 0 ? 2 : 0));
        resources.Set("ShortName", name);
        resources.Update();
    }
    RecordSet pathways = database.OpenRecordSet(test::kAllPathways);
    int id = 0;
    const auto add = [&](int arc, int resource, int state, double cost) {
        pathways.AddNew();
        pathways.Set("PathId", ++id);
        pathways.Set("ArcId", arc);
        pathways.Set("ResourceId", resource);
        pathways.Set("Feasible", state);
        pathways.Set("Cost", cost);
        pathways.Update();
    };
    add(0, 1, 3, 120000);
    add(0, 2, 1, 93442.6);
    add(0, 3, 2, 5);
    add(1, 3, 2, 70000);
    add(2, 1, 4, 201000);
    add(2, 2, 1, 200000);
    DrawLinks(database, model.Form, model.Form.picArc);
    EXPECT_EQ(WordsBehind(model.Form.picArc),
              (Lines{"1: Robot 93,443, cheapest of 3", "2: over the station limit with Resource 3",
                     "1-2: Bench 201,000, chosen"}));
    DrawLinks(database, model.Form, model.Form.picArc, PathwayCosts::Unknown);
    EXPECT_EQ(WordsBehind(model.Form.picArc),
              (Lines{"1: possible with Bench, Robot", "2: over the station limit with Resource 3",
                     "1-2: Bench, chosen"}));
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
