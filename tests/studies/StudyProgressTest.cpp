// How far a study has come, and how it is cancelled and computed again, through real events.
#include <QAction>
#include <QProgressBar>
#include <QSpinBox>
#include <algorithm>

#include "generate_model.h"
#include "studies/AlternativesStudy.h"
#include "studies/LineStudy.h"
#include "studies/ScenarioStudy.h"
#include "studies/SensitivityStudy.h"
#include "studies/StudyTest.h"
#include "studies/VolumeStudy.h"

namespace quarnel02 {
namespace {

using test::Tab;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class StudyProgress : public test::StudyTest {
  protected:
    /// A study that takes long enough to be watched and cancelled in every build.
    void StartLong() {
        constexpr int tasks = 30;
        constexpr int resources = 20;
        Start(GeneratedModelScript(tasks, resources, 1));
        Open();
        Choose("cboDesign", 1);
        Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Sensitivity));
        Study->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
        ASSERT_TRUE(QTest::qWaitFor([this] { return Page().IsComputing(); }));
    }
    [[nodiscard]] bool Sees(const char* part) const { return Part<QWidget>(part).isVisible(); }
    [[nodiscard]] std::string State() const { return Part<QLabel>("lblBusy").text().toStdString(); }
    void Press(const char* button) const {
        QTest::mouseClick(&Part<QPushButton>(button), Qt::LeftButton);
    }
    /// The study ends within 0.2 s, and nothing of it is shown later.
    void ExpectCancelled() const {
        constexpr int within = 200;
        EXPECT_FALSE(Page().IsComputing());
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Page().IsBusy(); }, within));
        constexpr int longer_than_the_pause = 500;
        QTest::qWait(longer_than_the_pause);
        EXPECT_FALSE(Page().IsBusy());
        EXPECT_TRUE(Page().IsOutOfDate());
        EXPECT_EQ(State(), "Cancelled");
        EXPECT_FALSE(Sees("prgStudy"));
        EXPECT_FALSE(Sees("cmdCancelStudy"));
        EXPECT_TRUE(Sees("cmdCompute"));
    }
};

TEST_F(StudyProgress, ShowsShareAndTimeLeft) {
    StartLong();
    EXPECT_EQ(State(), "Computing...");
    EXPECT_EQ(Message(), "Computing...");
    EXPECT_TRUE(Sees("prgStudy"));
    EXPECT_TRUE(Sees("cmdCancelStudy"));
    EXPECT_FALSE(Sees("cmdCompute"));
    const auto& bar = Part<QProgressBar>("prgStudy");
    const int begun = bar.value();
    const auto& left = Part<QLabel>("lblTimeLeft");
    EXPECT_EQ(left.text(), "");
    constexpr int patience = 60000;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !left.text().isEmpty(); }, patience));
    EXPECT_THAT(left.text().toStdString(), MatchesRegex("About [0-9]+ (s|min) left"));
    EXPECT_GT(bar.value(), begun);
    EXPECT_LT(bar.value(), 100);
    EXPECT_EQ(bar.text().toStdString(), std::to_string(bar.value()) + "%");
}

TEST_F(StudyProgress, GivesWayToWhatIsShownWhenItIsComputed) {
    StartPump();
    Open();
    Show(Tab::Line);
    EXPECT_EQ(State(), "Design for 60,000 units a year in 1 shift.");
    for (const char* part : {"prgStudy", "lblTimeLeft", "cmdCancelStudy", "cmdCompute"}) {
        EXPECT_FALSE(Sees(part)) << part;
    }
}

TEST_F(StudyProgress, TheButtonCancels) {
    StartLong();
    Press("cmdCancelStudy");
    ExpectCancelled();
    EXPECT_EQ(Message(), "This study was cancelled. Compute (F5) starts it again.");
    Press("cmdCompute");
    EXPECT_TRUE(Page().IsComputing());
    EXPECT_FALSE(Page().IsCancelled());
    EXPECT_EQ(Message(), "Computing...");
    EXPECT_FALSE(Sees("cmdCompute"));
}

TEST_F(StudyProgress, EscapeCancelsFirstAndClosesSecond) {
    StartLong();
    QTest::keyClick(Study, Qt::Key_Escape);
    EXPECT_TRUE(Study->isVisible());
    ExpectCancelled();
    QTest::keyClick(Study, Qt::Key_Escape);
    EXPECT_FALSE(Study->isVisible());
}

TEST_F(StudyProgress, CloseEndsItAtOnceAndOpeningComputesAgain) {
    StartLong();
    QTest::keySequence(Study, QKeySequence(QKeySequence::Close));
    EXPECT_FALSE(Study->isVisible());
    Open();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Page().IsComputing(); }));
}

TEST_F(StudyProgress, ACancelledTabIsComputedWhenItsQuestionChanges) {
    StartLong();
    QTest::keyClick(Study, Qt::Key_Escape);
    ExpectCancelled();
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Scenarios));
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Sensitivity));
    EXPECT_FALSE(Page().IsBusy());
    EXPECT_EQ(State(), "Cancelled");
    auto& share = Part<QSpinBox>("spnShare");
    share.setValue(share.value() + 1);
    EXPECT_TRUE(Page().IsComputing());
    QTest::keyClick(Study, Qt::Key_Escape);
    ExpectCancelled();
    Choose("cboDesign", 0);
    WaitUntilCurrent();
    EXPECT_FALSE(Table("tblSensitivity").Rows.empty());
    EXPECT_EQ(Message(), "");
    EXPECT_EQ(State(), Page().Subject());
}

TEST_F(StudyProgress, ACancelledTabKeepsWhatItShowedAndIsCurrentWhenComputedAgain) {
    constexpr int tasks = 20;
    Start(GeneratedModelScript(tasks, tasks / 2, 1));
    Open();
    Show(Tab::Volumes);
    const auto before = Table("tblVolumes").Rows.size();
    ASSERT_GT(before, 0U);
    Study->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
    Put("txtTo", "345678");
    ASSERT_TRUE(Page().IsComputing());
    EXPECT_TRUE(IsMarked());
    QTest::keyClick(Study, Qt::Key_Escape);
    ExpectCancelled();
    EXPECT_TRUE(IsMarked());
    EXPECT_EQ(Message(), "");
    EXPECT_EQ(Table("tblVolumes").Rows.size(), before);
    QTest::keyClick(Study, Qt::Key_F5);
    WaitUntilCurrent();
    EXPECT_FALSE(IsMarked());
    EXPECT_EQ(State(), Page().Subject());
    EXPECT_EQ(Column("tblVolumes", "To").back(), "345,678");
}

/// Every study tells its share, which only grows.
TEST_F(StudyProgress, OfEveryStudyGrowsToTheEnd) {
    StartPump();
    const auto line = std::make_shared<const PreparedLine>(Line());
    const std::vector<Scenario> scenarios = {{"Wages", "LaborCost +10%"}};
    const StudyInput fixed{line, {false, {60000, 1, {}}}, scenarios, {}};
    const StudyInput expected{line, {true, {60000, 1, {}}}, scenarios, {}};
    const auto expect_growth = [](const char* name, std::size_t least, const auto& study) {
        std::vector<double> shares;
        study(StudyWatch({}, [&](double share) { shares.push_back(share); }));
        ASSERT_GE(shares.size(), least) << name;
        EXPECT_TRUE(std::is_sorted(shares.begin(), shares.end())) << name;
        EXPECT_GE(shares.front(), 0) << name;
        EXPECT_LE(shares.front(), 1 / static_cast<double>(least)) << name;
        EXPECT_GT(shares.back(), 0.8) << name;
        EXPECT_LE(shares.back(), 1) << name;
    };
    constexpr double share = 0.1;
    constexpr std::size_t several = 8;
    constexpr std::size_t many = 40;
    expect_growth("line", several, [&](const auto& watch) { StudyLine(expected, watch); });
    expect_growth("volumes", many, [&](const auto& watch) {
        StudyVolumes(*line, {1, 200000, {}}, watch);
    });
    for (const StudyInput& input : {fixed, expected}) {
        expect_growth("alternatives", several,
                      [&](const auto& watch) { StudyAlternatives(input, watch); });
        expect_growth("sensitivity", many,
                      [&](const auto& watch) { StudySensitivity(input, share, watch); });
        expect_growth("scenarios", 2, [&](const auto& watch) { StudyScenarios(input, watch); });
    }
}

}  // namespace
}  // namespace quarnel02
