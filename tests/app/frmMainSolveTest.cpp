// The shift buttons through their real dialogs.
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>

#include "app/WindowTest.h"
#include "basic/Files.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kAskDemand = "What is the fixed demand for this product?";
constexpr const char* kAskLimit = "none: Do you want to limit parallel stations?";
constexpr const char* kAskStations =
    "input[Quarnel02|]: What is the maximum number of stations allowed?";

class frmMainSolve : public test::WindowTest {
  protected:
    /// The worked example: 64,335.55 dollars for 100,000 units in one shift.
    void StartWith(std::vector<DemandPoint> demand) {
        test::ModelScript model = test::WorkedExample();
        model.Demand = std::move(demand);
        Start(model.Sql());
    }

    [[nodiscard]] bool HasReport() const {
        return std::filesystem::exists(Copy->File("RunRpt.txt"));
    }
    [[nodiscard]] std::string Report() const { return ReadFile(Copy->File("RunRpt.txt")); }
};

TEST_F(frmMainSolve, ButtonsAreNamedAfterTheirShifts) {
    Start();
    EXPECT_EQ(Button("cmdContinuous_1").text(), "1 Shift");
    EXPECT_EQ(Button("cmdContinuous_2").text(), "2 Shifts");
    EXPECT_EQ(Button("cmdContinuous_3").text(), "3 Shifts");
}

TEST_F(frmMainSolve, AsksForTheDemandWithoutRows) {
    StartWith({});
    Dialogs.Type("100,000");
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("input[Fixed Demand|]: " + std::string(kAskDemand), kAskLimit));
    EXPECT_THAT(Report(), HasSubstr("Annual Volume: 100,000\n"));
    EXPECT_THAT(Report(), HasSubstr("$64,336"));
    EXPECT_THAT(Started, ElementsAre("notepad.exe|" + Copy->File("RunRpt.txt").string()));
}

TEST_F(frmMainSolve, TakesTheOnlyRowWithoutAsking) {
    StartWith({{5000, 100}});
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_2");
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskLimit));
    EXPECT_THAT(Report(), HasSubstr("Annual Volume: 5,000\n"));
    EXPECT_EQ(Window->SelectedDemand(), 0);
    // 250 days x 2 shifts x 8 h x 3600 s / 5000 units.
    EXPECT_THAT(Report(), HasSubstr("Max Cycle Time:  2880.00\n"));
}

TEST_F(frmMainSolve, ProposesTheLastOfSeveralRows) {
    StartWith({{5000, 50}, {9000, 50}});
    Dialogs.Accept();
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("input[Fixed Demand|9,000]: " + std::string(kAskDemand), kAskLimit));
    EXPECT_THAT(Report(), HasSubstr("Annual Volume: 9,000\n"));
    EXPECT_EQ(Window->SelectedDemand(), 1);
}

TEST_F(frmMainSolve, ProposesTheSelectedOfSeveralRows) {
    StartWith({{5000, 50}, {9000, 50}});
    Window->SelectDemand(0);
    Dialogs.Accept();
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    EXPECT_EQ(Dialogs.Seen.front(), "input[Fixed Demand|5,000]: " + std::string(kAskDemand));
    EXPECT_THAT(Report(), HasSubstr("Annual Volume: 5,000\n"));
}

TEST_F(frmMainSolve, CancelOfTheDemandEndsIt) {
    StartWith({});
    Dialogs.Escape();
    Click("cmdContinuous_1");
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_FALSE(HasReport());
}

TEST_F(frmMainSolve, CancelOfTheLimitEndsIt) {
    StartWith({});
    Dialogs.Type("100000");
    Dialogs.Press(QMessageBox::Yes);
    Dialogs.Escape();
    Click("cmdContinuous_3");
    EXPECT_EQ(Dialogs.Seen.back(), kAskStations);
    EXPECT_FALSE(HasReport());
}

TEST_F(frmMainSolve, ALimitOfThreeIsKept) {
    StartWith({{100000, 100}});
    Dialogs.Press(QMessageBox::Yes);
    Dialogs.Type("3");
    Click("cmdContinuous_1");
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskLimit, kAskStations));
    EXPECT_THAT(Report(), HasSubstr("Station Limit: 3\n"));
}

TEST_F(frmMainSolve, ALimitOfZeroIsNone) {
    StartWith({{100000, 100}});
    Dialogs.Press(QMessageBox::Yes);
    Dialogs.Type("0");
    Click("cmdContinuous_1");
    EXPECT_THAT(Report(), HasSubstr("Station Limit: --\n"));
}

class BadDemand : public frmMainSolve, public ::testing::WithParamInterface<const char*> {};

TEST_P(BadDemand, BringsOneCriticalMessageAndTheProgramLivesOn) {
    StartWith({});
    Dialogs.Type(GetParam());
    Dialogs.Press(QMessageBox::No);
    Dialogs.Press(QMessageBox::Ok);
    Click("cmdContinuous_1");
    ASSERT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_THAT(Dialogs.Seen[2], HasSubstr("critical: "));
    EXPECT_THAT(Dialogs.Seen[2], HasSubstr("Fixed Demand"));
    EXPECT_FALSE(HasReport());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);

    Dialogs.Type("100000");
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    EXPECT_TRUE(HasReport());
    EXPECT_TRUE(Dialogs.AllGiven());
}

INSTANTIATE_TEST_SUITE_P(Texts, BadDemand, ::testing::Values("0", "-5", "abc"));

TEST_F(frmMainSolve, ALimitThatIsAWordBringsOneCriticalMessage) {
    StartWith({{100000, 100}});
    Dialogs.Press(QMessageBox::Yes);
    Dialogs.Type("abc");
    Dialogs.Press(QMessageBox::Ok);
    Click("cmdContinuous_1");
    ASSERT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_THAT(Dialogs.Seen[2], HasSubstr("critical: Station Limit"));
    EXPECT_FALSE(HasReport());
}

TEST_F(frmMainSolve, DrawsTheNetworkTheSummaryAndTheLine) {
    StartWith({{100000, 100}});
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    EXPECT_FALSE(Window->picArc.Figures().empty());
    EXPECT_FALSE(Window->picGraph[0].Figures().empty());
    EXPECT_TRUE(Window->picGraph[1].Figures().empty());
    EXPECT_FALSE(Window->picGraph[2].Figures().empty());
    EXPECT_TRUE(Window->picGraph[3].Figures().empty());
    EXPECT_FALSE(Window->picLoad.Figures().empty());
}

TEST_F(frmMainSolve, SavesWhatWasTypedLastWhenPressedByShortCut) {
    StartWith({{100000, 100}});
    Type("txtDays", "125");
    Dialogs.Press(QMessageBox::No);
    PressKey(Qt::Key_1, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return HasReport(); }));
    // 125 days x 1 shift x 28800 s / 100000 units = 36 s.
    EXPECT_THAT(Report(), HasSubstr("Max Cycle Time:  36.00\n"));
}

TEST_F(frmMainSolve, StochasticDesignNeedsTwoDemandRows) {
    StartWith({{100000, 100}});
    Dialogs.Press(QMessageBox::Ok);
    Click("cmdStoch");
    EXPECT_THAT(Dialogs.Seen,
                ElementsAre("information: You must first enter a probability distribution for "
                            "demand."));
    EXPECT_FALSE(std::filesystem::exists(Copy->File("ProdRpt.txt")));
}

TEST_F(frmMainSolve, StochasticDesignFillsEveryPictureAndOpensTheReport) {
    StartWith({{100000, 50}, {200000, 50}});
    Click("cmdStoch");
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
    for (const Picture& picture : Window->picGraph) {
        EXPECT_FALSE(picture.Figures().empty());
    }
    EXPECT_THAT(ReadFile(Copy->File("ProdRpt.txt")), HasSubstr("Demand:     100000\n"));
    EXPECT_THAT(Find<QLabel>("lblDesign").text().toStdString(), HasSubstr("units a year"));
    EXPECT_FALSE(Find<QLabel>("lblOutOfDate").isVisible());
    Type("txtDays", "125");
    QTest::keyClick(&Box("txtDays"), Qt::Key_Return);
    EXPECT_TRUE(Find<QLabel>("lblOutOfDate").isVisible());
    EXPECT_THAT(Started, ElementsAre("notepad.exe|" + Copy->File("ProdRpt.txt").string()));
    EXPECT_TRUE(Window->isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(frmMainSolve, StochasticDesignShowsItsProgressInTheStatusWindow) {
    StartWith({{100000, 50}, {200000, 50}});
    Window->ShowStatus("PLEASE WAIT -- PROGRAM IS RUNNING");
    QWidget* status = QApplication::activeModalWidget();
    ASSERT_NE(status, nullptr);
    auto* label = status->findChild<QLabel*>("lblStatus");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "PLEASE WAIT -- PROGRAM IS RUNNING");
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Window->SetStatus("Adding Expected Penalties to Final Table");
    EXPECT_EQ(label->text(), "Adding Expected Penalties to Final Table");
    Window->HideStatus();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(frmMainSolve, FailingStochasticDesignLeavesTheWindowUsable) {
    std::vector<DemandPoint> demand(10, {100000, 9});
    demand.push_back({110000, 10});  // one row too many
    StartWith(demand);
    Dialogs.Press(QMessageBox::Ok);
    Click("cmdStoch");
    ASSERT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_THAT(Dialogs.Seen[0], HasSubstr("critical: Demand has more than 10 points."));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(Window->isEnabled());
}

}  // namespace
}  // namespace quarnel02
