// The main window with models of every kind at the sizes of usual screens, light and dark: pictures
// kept beside the test program, and what must hold on each of them.
#include <gtest/gtest.h>

#include <QSplitter>
#include <algorithm>

#include "app/Screenshot.h"
#include "app/WindowTest.h"
#include "generate_model.h"
#include "support/LegibleTexts.h"
#include "support/ModelScript.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

enum class Design { None, Fixed, Stochastic };

struct Scene {
    std::string Name;
    std::string Script;  ///< of the template; an example is opened where it is empty
    Design Made = Design::None;
    int Shifts = 2;
    std::string Volume = "60000";
};

void PrintTo(const Scene& scene, std::ostream* out) {
    *out << scene.Name;
}

/// A line of so many stations: each of its tasks takes more than half of the cycle time.
std::string LineOf(int stations) {
    test::ModelScript model;
    model.Product = "Line of " + NumberText(stations);
    model.Tasks = stations;
    model.Resources = {{"Bench", 0, 2000, 1},
                       {"Press", 1, 9000, 2},
                       {"Robot", 2, 40000, 3},
                       {"Transfer", 3, 90000, 4}};
    for (int task = 1; task <= stations; ++task) {
        model.Matrix.push_back({task % 4 + 1, task, 40.0 + task % 3, 1 + task % 3, 100});
    }
    std::string sql = model.Sql();
    for (int task = 1; task <= stations; ++task) {
        sql += test::SqlInsert("Tasks", {NumberText(task), "'Step " + NumberText(task) + "'"});
    }
    return sql;
}

std::string NearDemand() {
    std::string sql = GeneratedModelScript(6, 3, 5) + "DELETE FROM Demand;\n";
    for (int point = 0; point < 10; ++point) {
        sql += test::SqlInsert("Demand", {NumberText(60000 + 900 * point), "10"});
    }
    return sql;
}

std::string LongNames() {
    return GeneratedModelScript(12, 6, 3) +
           "UPDATE Gen SET Product = 'Kreiselpumpe für Heizungswasser mit Drehzahlregelung';\n"
           "UPDATE Resources SET ShortName = 'Schraubautomat mit Zuführung Nr. ' || ResourceId;\n"
           "UPDATE Tasks SET Description = Description || ' with a rather long description';\n"
           "DELETE FROM Demand;\n";
}

std::vector<Scene> AllScenes() {
    const auto no_demand = [](const std::string& sql) { return sql + "DELETE FROM Demand;\n"; };
    return {{"empty", "UPDATE Gen SET Tasks = 0;"},
            {"pump-fixed", "", Design::Fixed},
            {"pump-stochastic", "", Design::Stochastic},
            {"7-stations", LineOf(7), Design::Fixed, 1, "100000"},
            {"11-stations", LineOf(11), Design::Fixed, 1, "100000"},
            {"24-stations", LineOf(24), Design::Fixed, 1, "100000"},
            {"50-stations", LineOf(50), Design::Fixed, 1, "100000"},
            {"24-tasks", no_demand(GeneratedModelScript(24, 6, 1)), Design::Fixed},
            {"30-tasks", no_demand(GeneratedModelScript(30, 6, 1)), Design::Fixed},
            {"50-tasks", no_demand(GeneratedModelScript(50, 8, 1)), Design::Fixed, 3, "600000"},
            {"near-demand", NearDemand(), Design::Stochastic},
            {"long-names", LongNames(), Design::Fixed}};
}

/// Sizes in logical pixels: of three screens, or of one with twice the resolution.
std::vector<QSize> ScreenSizes(double pixelRatio) {
    if (pixelRatio > 1) {
        return {{960, 540}};
    }
    return {{1366, 768}, {1920, 1080}, {2560, 1440}};
}

constexpr int kSettled = 400;  ///< ms, after which pictures are sharp again

class Scenes : public test::WindowTest, public testing::WithParamInterface<Scene> {
  protected:
    void Show(const Scene& scene) {
        Start(scene.Script);
        if (scene.Script.empty()) {
            Dialogs.Type(std::string(QUARNEL02_PROGRAMS) + "/examples/pump.mdb");
            Item("mnuFileOpen").trigger();
            Window->SelectDemand(1);
        }
        if (scene.Made == Design::Fixed) {
            Dialogs.Type(scene.Volume);
            Dialogs.Press(QMessageBox::No);
            Click("cmdContinuous_" + NumberText(scene.Shifts));
        } else if (scene.Made == Design::Stochastic) {
            Click("cmdStoch");
        }
        ASSERT_TRUE(Dialogs.AllGiven());
        Activate();
    }
    void ExpectTidy(const Scene& scene) const;
    void ExpectBoxesFillTheArea() const;
    void ExpectPictureFillsItsBox(const Picture& picture, const std::string& name) const;

  private:
    test::PaletteKeeper m_palette;
};

void Scenes::ExpectTidy(const Scene& scene) const {
    test::ExpectNothingClipped(*Window, "lblPath");
    ExpectBoxesFillTheArea();
    if (scene.Made == Design::None) {
        return;
    }
    std::vector<std::pair<std::string, const Picture*>> shown = {{"picArc", &Window->picArc},
                                                                 {"picLoad", &Window->picLoad}};
    for (std::size_t i = 0; i < Window->picGraph.size(); ++i) {
        shown.emplace_back("picGraph_" + NumberText(static_cast<int>(i)), &Window->picGraph.at(i));
    }
    for (const auto& [name, picture] : shown) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Find<QWidget>(name).isVisible(), !picture->Figures().empty());
        if (picture->IsComposed()) {
            test::ExpectLegible(*picture);
            ExpectPictureFillsItsBox(*picture, name);
        }
    }
}

/// What is between the boxes are the handles of the splitters.
void Scenes::ExpectBoxesFillTheArea() const {
    constexpr double least_share = 0.97;
    double filled = 0;
    for (const char* name : {"frameArc", "frameGraph_0", "frameGraph_1", "frameGraph_2",
                             "frameGraph_3", "frameLoad"}) {
        const auto& box = Find<QWidget>(name);
        filled += box.isVisible() ? box.width() * box.height() : 0;
    }
    const QSize area = Find<QSplitter>("splRight").size();
    EXPECT_GE(filled, least_share * area.width() * area.height());
}

/// Neither half of the box, across or down, is empty, and what is drawn is not small in it.
void Scenes::ExpectPictureFillsItsBox(const Picture& picture, const std::string& name) const {
    Extent ink{1e9, 1e9, 0, 0};
    for (const PictureFigure& figure : picture.Figures()) {
        const Extent extent = ExtentOf(figure, *picture.LaidOutFor().Measure);
        ink = {std::min(ink.Left, extent.Left), std::min(ink.Top, extent.Top),
               std::max(ink.Right, extent.Right), std::max(ink.Bottom, extent.Bottom)};
    }
    const QSizeF room = QSizeF(Find<PictureBox>(name).viewport()->size()) * kTwipsPerPixel;
    constexpr double least_share = 0.6;
    const double across = (ink.Right - ink.Left) / room.width();
    const double down = (ink.Bottom - ink.Top) / room.height();
    EXPECT_GE(std::max(across, down), least_share);
    EXPECT_GT(std::min(across, down), least_share / 2);
    EXPECT_GT(ink.Right, room.width() / 2);
    EXPECT_GT(ink.Bottom, room.height() / 2);
    EXPECT_LT(ink.Left, room.width() / 2);
    EXPECT_LT(ink.Top, room.height() / 2);
}

TEST_P(Scenes, AreTidyAtEverySize) {
    const Scene& scene = GetParam();
    Show(scene);
    for (const bool dark : {false, true}) {
        if (dark) {
            QApplication::setPalette(test::DarkPalette());
        }
        for (const QSize& size : ScreenSizes(Window->devicePixelRatioF())) {
            SCOPED_TRACE(test::PairText(size.width(), size.height()));
            Window->resize(size);
            QTest::qWait(kSettled);
            ASSERT_EQ(Window->size(), size);
            ExpectTidy(scene);
            test::KeepScreenshot(*Window, "scene-" + scene.Name + (dark ? "-dark-" : "-") +
                                              NumberText(size.width()));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, Scenes, testing::ValuesIn(AllScenes()), [](const auto& scene) {
    std::string name = scene.param.Name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace
}  // namespace quarnel02
