// Pictures of the study window, kept beside the test program, and what must hold on each of them.
#include <QScreen>

#include "app/Screenshot.h"
#include "generate_model.h"
#include "studies/StudyTest.h"

namespace quarnel02 {
namespace {

using test::Tab;

class StudyScreenshots : public test::StudyTest {
  protected:
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
            test::KeepScreenshot(*Study, "study-" + name + "-" + word);
        }
        const QSize smallest_screen(1366, 768);
        EXPECT_LE(Study->width(), smallest_screen.width());
        EXPECT_LE(Study->height(), smallest_screen.height());
    }

  private:
    test::PaletteKeeper m_palette;
};

TEST_F(StudyScreenshots, FiveTasks) {
    Start(GeneratedModelScript(5, 4, 1));
    KeepTabs("5");
}

TEST_F(StudyScreenshots, TwelveTasks) {
    StartPump();
    KeepTabs("12");
}

TEST_F(StudyScreenshots, FiftyTasks) {
    Start(GeneratedModelScript(50, 25, 1));
    KeepTabs("50");
}

TEST_F(StudyScreenshots, TwelveTasksInADarkPalette) {
    QApplication::setPalette(test::DarkPalette());
    StartPump();
    KeepTabs("dark");
    EXPECT_LT(Study->palette().color(QPalette::Window).lightness(), 80);
}

TEST_F(StudyScreenshots, TheDemandDistribution) {
    StartPump();
    Open();
    Choose("cboDesign", 1);
    KeepTabs("expected");
}

TEST_F(StudyScreenshots, NoLine) {
    StartPump();
    Open();
    Put("txtStudyVolume", "900000");
    Put("txtLimit", "1");
    Show(Tab::Line);
    test::KeepScreenshot(*Study, "study-no-line");
    EXPECT_NE(Message(), "");
}

}  // namespace
}  // namespace quarnel02
