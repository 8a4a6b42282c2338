// Pictures of the study window, kept beside the test program, and what must hold on each of them.
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <tuple>

#include "app/Screenshot.h"
#include "generate_model.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTest.h"

namespace quarnel02 {
namespace {

using test::Tab;

class StudyScreenshots : public test::StudyTest {
  protected:
    /// The pump, or a model with so many tasks and half as many resources.
    void StartWith(int tasks) {
        constexpr int pump = 12;
        if (tasks == pump) {
            StartPump();
        } else {
            Start(GeneratedModelScript(tasks, (tasks + 1) / 2, 1));
        }
    }
    /// A chart may be higher than its box, but a label must not have to be scrolled to.
    void ExpectChartsFitAcross() const {
        for (const auto* picture : Study->findChildren<StudyPicture*>()) {
            if (picture->isVisible()) {
                EXPECT_EQ(picture->horizontalScrollBar()->maximum(), 0)
                    << picture->objectName().toStdString();
            }
        }
    }
    void KeepTabs(const std::string& name) {
        Open();
        const std::array tabs = {std::pair(Tab::Line, "line"), std::pair(Tab::Volumes, "volumes"),
                                 std::pair(Tab::Alternatives, "alternatives"),
                                 std::pair(Tab::Sensitivity, "sensitivity"),
                                 std::pair(Tab::Scenarios, "scenarios")};
        for (const auto& [tab, word] : tabs) {
            Show(tab);
            QCoreApplication::processEvents();
            test::ExpectNothingClipped(*Study, "");
            ExpectChartsFitAcross();
            test::KeepScreenshot(*Study, "study-" + name + "-" + word);
        }
        const QSize smallest_screen(1366, 768);
        EXPECT_LE(Study->width(), smallest_screen.width());
        EXPECT_LE(Study->height(), smallest_screen.height());
    }

  private:
    test::PaletteKeeper m_palette;
};

class StudyScreenshotsOfSizes : public StudyScreenshots,
                                public testing::WithParamInterface<std::tuple<int, bool>> {};

TEST_P(StudyScreenshotsOfSizes, ShowEveryTab) {
    const auto [tasks, dark] = GetParam();
    if (dark) {
        QApplication::setPalette(test::DarkPalette());
    }
    StartWith(tasks);
    KeepTabs(std::to_string(tasks) + (dark ? "-dark" : ""));
    EXPECT_EQ(Study->palette().color(QPalette::Window).lightness() < 80, dark);
}

INSTANTIATE_TEST_SUITE_P(StudyScreenshots, StudyScreenshotsOfSizes,
                         testing::Combine(testing::Values(5, 12, 50), testing::Bool()));

TEST_F(StudyScreenshots, AFewScenarios) {
    StartPump(
        "INSERT INTO Scenarios VALUES ('Faster bench', 'Bench.TaskTimes -2%'),"
        "('Dearer labour', 'LaborCost +10%'), ('Growth', 'Demand = 90000; Shifts = 2'),"
        "('Too much', 'Demand = 900000; StationLimit = 1'), ('Old', 'Lathe.ICF = 1');");
    Open();
    Show(Tab::Scenarios);
    auto& table = Part<StudyTableView>("tblScenarios");
    table.setFocus();
    table.selectRow(3);
    QCoreApplication::processEvents();
    test::ExpectNothingClipped(*Study, "");
    constexpr double least_share = 0.4;
    EXPECT_GE(Part<StudyPicture>("picCosts").width(),
              least_share * Part<QSplitter>("splScenario").width());
    test::KeepScreenshot(*Study, "study-scenarios");
}

TEST_F(StudyScreenshots, TheDemandDistribution) {
    StartPump();
    Open();
    Choose("cboDesign", 1);
    KeepTabs("expected");
}

TEST_F(StudyScreenshots, LongWorkAndItsEnd) {
    constexpr int tasks = 30;
    StartWith(tasks);
    Open();
    Choose("cboDesign", 1);
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Sensitivity));
    constexpr int patience = 60000;
    const auto& left = Part<QLabel>("lblTimeLeft");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !left.text().isEmpty(); }, patience));
    QCoreApplication::processEvents();
    test::ExpectNothingClipped(*Study, "");
    test::KeepScreenshot(*Study, "study-computing");
    QTest::mouseClick(&Part<QPushButton>("cmdCancelStudy"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Page().IsBusy(); }));
    test::ExpectNothingClipped(*Study, "");
    test::KeepScreenshot(*Study, "study-cancelled");
    EXPECT_TRUE(Page().IsCancelled());
}

TEST_F(StudyScreenshots, NoLine) {
    StartPump();
    Open();
    Put("txtStudyVolume", "900000");
    Put("txtLimit", "1");
    Show(Tab::Line);
    QCoreApplication::processEvents();
    test::ExpectNothingClipped(*Study, "");
    test::KeepScreenshot(*Study, "study-no-line");
    EXPECT_NE(Message(), "");
}

}  // namespace
}  // namespace quarnel02
