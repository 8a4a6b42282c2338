// The results area: which boxes stand in it, that they share all of it, and what is remembered.
#include <gmock/gmock.h>

#include <sys/stat.h>

#include <QCommandLinkButton>
#include <QSplitter>
#include <QToolButton>
#include <random>

#include "app/WindowTest.h"
#include "basic/Files.h"
#include "editors/frmTask.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class frmMainResults : public test::WindowTest {
  protected:
    /// Names of the boxes that can be seen, from the upper left.
    [[nodiscard]] std::vector<std::string> Boxes() const {
        std::vector<std::string> seen;
        for (const char* name : {"frameArc", "frameGraph_0", "frameGraph_1", "frameGraph_2",
                                 "frameGraph_3", "frameLoad"}) {
            if (Find<QWidget>(name).isVisible()) {
                seen.emplace_back(name);
            }
        }
        return seen;
    }
    [[nodiscard]] QRect Place(const std::string& name) const {
        const auto& box = Find<QWidget>(name);
        return {box.mapTo(Window.get(), QPoint()), box.size()};
    }
    /// Share of the results area that the visible boxes take; the rest is splitter handles.
    [[nodiscard]] double Filled() const {
        double filled = 0;
        for (const std::string& box : Boxes()) {
            filled += Place(box).width() * Place(box).height();
        }
        const QSize area = Find<QSplitter>("splRight").size();
        return filled / (area.width() * area.height());
    }

    void StartWithAModel() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 50}, {200000, 50}};
        Start(model.Sql() + "UPDATE Gen SET Tasks = 2;");
        Window->resize(1300, 900);
        QCoreApplication::processEvents();
    }
    void DesignFixed() {
        Dialogs.Accept();
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_1");
        Activate();
        QCoreApplication::processEvents();
    }
    void DesignStochastic() {
        Click("cmdStoch");
        Activate();
        QCoreApplication::processEvents();
    }
    /// Ends the program and starts it again on the same directory.
    void Restart() {
        Window->close();
        ASSERT_FALSE(Window->isVisible());
        Window.reset();
        Window = std::make_unique<frmMain>(Copy->Directory());
        ASSERT_TRUE(Window->StartUp());
        Window->show();
        Activate();
        QCoreApplication::processEvents();
    }
    /// Moves the first edge of a splitter with the mouse.
    void DragEdge(const std::string& splitter, QPoint way) {
        QSplitterHandle& edge = *Find<QSplitter>(splitter).handle(1);
        const QPoint grip = edge.rect().center();
        QTest::mousePress(&edge, Qt::LeftButton, Qt::NoModifier, grip);
        QTest::mouseMove(&edge, grip + way);
        QTest::mouseRelease(&edge, Qt::LeftButton, Qt::NoModifier, grip + way);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] bool HelpsToBegin() const { return Find<QWidget>("pageFirst").isVisible(); }
};

TEST_F(frmMainResults, WithoutADesignTheNetworkHasAllTheRoom) {
    StartWithAModel();
    EXPECT_THAT(Boxes(), ElementsAre("frameArc"));
    EXPECT_GT(Filled(), 0.99);
    EXPECT_FALSE(HelpsToBegin());
}

TEST_F(frmMainResults, AFixedDesignHasSummaryLineAndLoadSideBySide) {
    StartWithAModel();
    DesignFixed();
    EXPECT_THAT(Boxes(), ElementsAre("frameArc", "frameGraph_0", "frameGraph_2", "frameLoad"));
    EXPECT_GT(Filled(), 0.97);
    EXPECT_EQ(Place("frameGraph_0").top(), Place("frameGraph_2").top());
    EXPECT_LT(Place("frameGraph_0").right(), Place("frameGraph_2").left());
    EXPECT_EQ(Place("frameGraph_0").top(), Place("frameLoad").top());
    EXPECT_LT(Place("frameGraph_2").right(), Place("frameLoad").left());
    EXPECT_GT(Place("frameGraph_0").top(), Place("frameArc").bottom());
}

TEST_F(frmMainResults, AStochasticDesignHasFourBoxesInTwoRows) {
    StartWithAModel();
    DesignFixed();
    DesignStochastic();
    EXPECT_EQ(Boxes().size(), 5U);
    EXPECT_GT(Filled(), 0.97);
    EXPECT_EQ(Place("frameGraph_0").top(), Place("frameGraph_1").top());
    EXPECT_EQ(Place("frameGraph_2").top(), Place("frameGraph_3").top());
    EXPECT_GT(Place("frameGraph_2").top(), Place("frameGraph_0").bottom());
    EXPECT_EQ(Find<QLabel>("label_picGraph_0").text(), "Final solution");
    DesignFixed();
    EXPECT_THAT(Boxes(), ElementsAre("frameArc", "frameGraph_0", "frameGraph_2", "frameLoad"));
    EXPECT_EQ(Find<QLabel>("label_picGraph_0").text(), "Solution summary");
}

TEST_F(frmMainResults, TheStationLoadIsThatOfTheDesign) {
    StartWithAModel();
    DesignFixed();
    std::vector<std::string> words;
    for (const HotSpot& spot : Window->picLoad.HotSpots()) {
        words.push_back(WordsOf(spot));
    }
    // 250 days x 28,800 s for 200,000 units.
    EXPECT_THAT(words, ::testing::Contains("Available cycle time 36.0 s"));
    // Tasks of 30 and 20 s and transport of 5 s at 90 %, shared by two stations.
    EXPECT_THAT(words, ::testing::Contains("1 Press x2: Task 1, 15.0 s of 30.6 s"));
    EXPECT_THAT(Find<QWidget>("picLoad").accessibleDescription().toStdString(),
                HasSubstr("Station load"));
    Item("mnuFileNew").trigger();
    EXPECT_TRUE(Window->picLoad.Figures().empty());
}

TEST_F(frmMainResults, AnotherModelPutsTheBoxesAway) {
    StartWithAModel();
    DesignFixed();
    Item("mnuFileNew").trigger();
    EXPECT_EQ(Boxes().size(), 1U);
}

TEST_F(frmMainResults, F11EnlargesTheBoxWithTheFocusAndEscapePutsItBack) {
    StartWithAModel();
    DesignFixed();
    const QRect before = Place("frameGraph_2");
    Find<QWidget>("picGraph_2").setFocus();
    EXPECT_EQ(Boxes().size(), 4U);
    PressKey(Qt::Key_F11);
    EXPECT_THAT(Boxes(), ElementsAre("frameGraph_2"));
    QCoreApplication::processEvents();
    EXPECT_GT(Filled(), 0.99);
    EXPECT_EQ(Caption("mnuViewEnlarge"), "Show all box&es");
    PressKey(Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_THAT(Boxes(), ElementsAre("frameArc", "frameGraph_0", "frameGraph_2", "frameLoad"));
    EXPECT_EQ(Place("frameGraph_2"), before);
    EXPECT_EQ(Caption("mnuViewEnlarge"), "&Enlarge a box");
}

TEST_F(frmMainResults, F11ElsewhereEnlargesTheNetworkAndGoesBack) {
    StartWithAModel();
    DesignFixed();
    Box("txtDays").setFocus();
    PressKey(Qt::Key_F11);
    EXPECT_THAT(Boxes(), ElementsAre("frameArc"));
    PressKey(Qt::Key_F11);
    EXPECT_EQ(Boxes().size(), 4U);
}

TEST_F(frmMainResults, ADoubleClickOnAPictureOrItsTitleEnlargesIt) {
    StartWithAModel();
    DesignFixed();
    for (const char* place : {"picGraph_0", "label_picGraph_0", "frameGraph_0"}) {
        auto& target = Find<QWidget>(place);
        const QPoint corner(2, 2);
        QTest::mouseClick(&target, Qt::LeftButton, Qt::NoModifier, corner);
        EXPECT_EQ(Boxes().size(), 4U) << place;
        QTest::mouseDClick(&target, Qt::LeftButton, Qt::NoModifier, corner);
        EXPECT_THAT(Boxes(), ElementsAre("frameGraph_0")) << place;
        QTest::mouseDClick(&target, Qt::LeftButton, Qt::NoModifier, corner);
        EXPECT_EQ(Boxes().size(), 4U) << place;
    }
    QTest::mouseClick(&Find<QToolButton>("btnEnlarge_2"), Qt::LeftButton);
    EXPECT_THAT(Boxes(), ElementsAre("frameGraph_2"));
}

TEST_F(frmMainResults, TheNextDesignShowsAllItsBoxes) {
    StartWithAModel();
    DesignFixed();
    PressKey(Qt::Key_F11);
    ASSERT_EQ(Boxes().size(), 1U);
    DesignStochastic();
    EXPECT_EQ(Boxes().size(), 5U);
}

TEST_F(frmMainResults, SizesOutliveTheProgram) {
    StartWithAModel();
    DesignFixed();
    DragEdge("splRight", {0, -60});
    DragEdge("splUpper", {-150, 0});
    DesignStochastic();
    DesignFixed();
    DragEdge("splMain", {80, 0});
    Window->resize(1210, 777);
    QCoreApplication::processEvents();
    const QRect network = Place("frameArc");
    const QRect summary = Place("frameGraph_0");
    const QSize size = Window->size();
    EXPECT_LT(summary.width(), Place("frameGraph_2").width());
    EXPECT_FALSE(std::filesystem::exists(Copy->File("window.ini")));
    Restart();
    EXPECT_TRUE(std::filesystem::exists(Copy->File("window.ini")));
    EXPECT_EQ(Window->size(), size);
    DesignFixed();
    EXPECT_EQ(Place("frameArc").left(), network.left());
    EXPECT_NEAR(Place("frameArc").height(), network.height(), 2);
    EXPECT_NEAR(Place("frameGraph_0").width(), summary.width(), 2);
}

TEST_F(frmMainResults, SharesFollowTheSizeOfTheWindowUntilAnEdgeIsMoved) {
    StartWithAModel();
    DesignFixed();
    const auto shares = [&] {
        const double area = Find<QSplitter>("splRight").width();
        return std::pair(Place("frameGraph_0").width() / area, Place("frameLoad").width() / area);
    };
    const auto before = shares();
    const int summary = Place("frameGraph_0").width();
    Window->resize(2000, 1100);
    QCoreApplication::processEvents();
    EXPECT_GT(Place("frameGraph_0").width(), summary);
    EXPECT_LT(shares().first, before.first) << "it is as wide as its lines ask for";
    EXPECT_GT(shares().second, before.second);
    EXPECT_GT(Filled(), 0.97);
    Find<QWidget>("picGraph_2").setFocus();
    PressKey(Qt::Key_F11);
    Window->resize(1300, 900);
    QCoreApplication::processEvents();
    PressKey(Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_NEAR(Place("frameGraph_0").width(), summary, 2);
    DragEdge("splUpper", {-100, 0});
    EXPECT_NEAR(Place("frameGraph_0").width(), summary - 100, 3);
    Window->resize(1310, 900);
    QCoreApplication::processEvents();
    EXPECT_LT(Place("frameGraph_0").width(), summary - 50) << "an edge that was moved stays";
    PressKey(Qt::Key_F11);
    PressKey(Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_LT(Place("frameGraph_0").width(), summary - 50);
}

TEST_F(frmMainResults, ADamagedMemoryIsAsGoodAsNone) {
    Start();
    const QSize usual = Window->size();
    WriteFile(Copy->File("window.ini"),
              "[Window]\ngeometry=@ByteArray(x)\ncolumns=3\n[Results]\nrows1-0=@Invalid()\n\xff");
    Window.reset();
    Window = std::make_unique<frmMain>(Copy->Directory());
    ASSERT_TRUE(Window->StartUp());
    Window->show();
    EXPECT_EQ(Window->size(), usual);
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

TEST_F(frmMainResults, AMemoryChangedAnywhereLeavesAWindowToWorkIn) {
    StartWithAModel();
    DesignFixed();
    DragEdge("splRight", {0, -60});
    Window->resize(1210, 777);
    Restart();
    Window.reset();
    const std::string whole = ReadFile(Copy->File("window.ini"));
    ASSERT_GT(whole.size(), 100U);
    std::mt19937 random(1);
    for (int round = 0; round < 40; ++round) {
        std::string changed = whole;
        for (unsigned i = 0; i < 1 + random() % 8; ++i) {
            changed[random() % changed.size()] = static_cast<char>(random() % 256);
        }
        WriteFile(Copy->File("window.ini"), changed);
        Window = std::make_unique<frmMain>(Copy->Directory());
        ASSERT_TRUE(Window->StartUp()) << changed;
        Window->show();
        EXPECT_TRUE(Window->isVisible());
        EXPECT_EQ(Window->size().expandedTo(Window->minimumSizeHint()), Window->size()) << changed;
        EXPECT_EQ(Window->size().boundedTo({16384, 16384}), Window->size()) << changed;
        Window.reset();
    }
    EXPECT_THAT(Dialogs.Seen, Not(Contains(HasSubstr("window.ini"))));
}

TEST_F(frmMainResults, APipeInPlaceOfTheMemoryStopsNothing) {
    Start();
    Window.reset();
    ASSERT_EQ(mkfifo(Copy->File("window.ini").c_str(), 0600), 0);
    Window = std::make_unique<frmMain>(Copy->Directory());
    ASSERT_TRUE(Window->StartUp());
    Window->show();
    Window->close();
    EXPECT_FALSE(Window->isVisible());
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

TEST_F(frmMainResults, AnEmptyModelShowsWhereToBeginUntilItsFirstTask) {
    Start();
    EXPECT_TRUE(HelpsToBegin());
    Dialogs.Add([this](QDialog& editor) {
        EXPECT_NE(dynamic_cast<frmTask*>(&editor), nullptr);
        RecordSet tasks = Copy->Open().OpenRecordSet("SELECT * FROM Tasks;");
        tasks.AddNew();
        tasks.Set("TaskId", 1);
        tasks.Set("Description", "Press");
        tasks.Update();
        Window->SetText(TextBox::txtTasks, "1");
        EXPECT_TRUE(HelpsToBegin());
        editor.reject();
    });
    QTest::mouseClick(&Find<QPushButton>("cmdFirstTasks"), Qt::LeftButton);
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_FALSE(HelpsToBegin());
    EXPECT_TRUE(Find<QWidget>("picArc").isVisible());
}

TEST_F(frmMainResults, PastingBeginsInTheTaskEditor) {
    Start();
    Dialogs.Add([](QDialog& editor) {
        EXPECT_NE(dynamic_cast<frmTask*>(&editor), nullptr);
        editor.reject();
    });
    Find<QPushButton>("cmdFirstPaste").setFocus();
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(Dialogs.AllGiven());
    EXPECT_TRUE(HelpsToBegin());
}

TEST_F(frmMainResults, AnExampleOpensAsAnUntitledCopy) {
    Start();
    QMenu& menu = Find<QMenu>("mnuFileExamples");
    QTest::mouseClick(&Find<QPushButton>("cmdFirstExample"), Qt::LeftButton);
    ASSERT_TRUE(menu.isVisible());
    QAction* pump = nullptr;
    for (QAction* action : menu.actions()) {
        pump = action->text() == "pump" ? action : pump;
    }
    ASSERT_NE(pump, nullptr);
    EXPECT_TRUE(HelpsToBegin());
    pump->trigger();
    menu.close();
    EXPECT_FALSE(HelpsToBegin());
    EXPECT_EQ(Box("txtProduct").text(), "Circulation pump");
    EXPECT_EQ(Title(), "Quarnel02");
    EXPECT_FALSE(IsStarred());
    EXPECT_EQ(Find<QLabel>("lblFile").text(), "Circulation pump - no file yet");
    EXPECT_FALSE(std::filesystem::exists(Copy->File("Marrowgate.cfg")));
}

}  // namespace
}  // namespace quarnel02
