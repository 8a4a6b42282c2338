// The figures in the tabs are those of the studies.
#include <QCheckBox>
#include <QSpinBox>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "studies/LineStudy.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTest.h"
#include "studies/VolumeStudy.h"
#include "study/Alternatives.h"
#include "study/Capacities.h"
#include "study/HowComputed.h"
#include "study/LineText.h"
#include "study/PenaltyFlips.h"
#include "study/Sensitivity.h"
#include "study/VolumePieces.h"

namespace quarnel02 {
namespace {

using test::Tab;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

const FixedDemandRequest kRequest{60000, 1, {}};

/// The texts of a picture and the words behind its figures.
std::string AllWords(const Picture& picture) {
    std::string words;
    for (const PictureFigure& figure : picture.Figures()) {
        if (const auto* text = std::get_if<TextFigure>(&figure)) {
            words += text->Text + "\n";
        }
    }
    for (const HotSpot& spot : picture.HotSpots()) {
        words += WordsOf(spot) + "\n";
    }
    return words;
}

class StudyTabs : public test::StudyTest {
  protected:
    void Open(Tab tab) {
        StartPump();
        StudyTest::Open();
        Show(tab);
    }
    [[nodiscard]] std::string How() const {
        return Part<QPlainTextEdit>("txtHow").toPlainText().toStdString();
    }
    [[nodiscard]] std::string Words(const char* picture) const {
        return AllWords(Part<StudyPicture>(picture).Shown());
    }
    [[nodiscard]] static std::string Dollars(double amount) { return Format(amount, "$#,##0"); }
    [[nodiscard]] static std::string Dollars(float cost) { return Dollars(DecimalOfSingle(cost)); }
};

TEST_F(StudyTabs, LineHasTheStationsOfTheDesign) {
    Open(Tab::Line);
    const PreparedLine line = Line();
    const auto design = CheapestLine(line, kRequest);
    const LineTable table =
        TableOf(line.Model, GroupsOf(*design), BasisOf(kRequest, line.Model.Parameters()));
    ASSERT_EQ(Table("tblLine").Rows.size(), table.Rows.size() + 1);
    const StationRow& first = table.Rows.front();
    EXPECT_THAT(Row("tblLine", 0),
                ElementsAre("1", first.Resource, NumberText(first.Group.Stations),
                            TaskRangeText(first.Group.FirstTask, first.Group.LastTask),
                            HasSubstr("1 Load housing into fixture; 2 "), testing::_,
                            Format(first.Time, "0.00"), Format(100 * first.Load, "0.0"),
                            Format(first.Idle, "0.00"), Dollars(first.Figures.Investment),
                            Dollars(first.Figures.Capital), Dollars(first.Figures.Machine),
                            Dollars(first.Figures.Labour), Dollars(first.Figures.Total),
                            Format(100 * first.Share, "0.0")));
    EXPECT_EQ(Column("tblLine", "Station").back(), "Total");
    EXPECT_EQ(Column("tblLine", "Quantity").back(), NumberText(table.Stations));
    EXPECT_EQ(Column("tblLine", "Total").back(), Dollars(table.Totals.Total));
    EXPECT_EQ(Column("tblLine", "Share (%)").back(), "100.0");
    EXPECT_THAT(Part<QLabel>("lblSummary").text().toStdString(),
                HasSubstr(Dollars(design->Cost) + " a year"));
}

TEST_F(StudyTabs, LineSaysHowTheSelectedRowIsComputed) {
    Open(Tab::Line);
    const PreparedLine line = Line();
    const LineTable table = TableOf(line.Model, GroupsOf(*CheapestLine(line, kRequest)),
                                    BasisOf(kRequest, line.Model.Parameters()));
    EXPECT_EQ(How(), HowComputed(line.Model, table.Rows[0], 1, table.Basis));
    auto& view = Part<StudyTableView>("tblLine");
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(How(), HowComputed(line.Model, table.Rows[1], 2, table.Basis));
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(How(), HowComputed(line.Model, table));
    auto& text = Part<QPlainTextEdit>("txtHow");
    text.setFocus();
    text.selectAll();
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), HowComputed(line.Model, table));
}

TEST_F(StudyTabs, LineDrawsTheLoadOfItsStations) {
    Open(Tab::Line);
    EXPECT_THAT(Words("picLoad"), HasSubstr("Mount impeller"));
    EXPECT_THAT(Words("picLoad"), HasSubstr("Robot"));
}

TEST_F(StudyTabs, VolumesDrawsTheCurvesThatAreTicked) {
    Open(Tab::Volumes);
    EXPECT_THAT(Words("picVolumes"), testing::AllOf(HasSubstr("1 shift"), HasSubstr("3 shifts"),
                                                    Not(HasSubstr("only manual"))));
    EXPECT_THAT(Words("picVolumes"), HasSubstr("Total cost"));
    Part<QCheckBox>("chkShift_3").click();
    Part<QCheckBox>("chkType_0").click();
    EXPECT_THAT(
        Words("picVolumes"),
        testing::AllOf(HasSubstr("1 shift"), Not(HasSubstr("3 shifts")), HasSubstr("only manual")));
    Choose("cboCost", 1);
    EXPECT_THAT(Words("picVolumes"), HasSubstr("Cost per unit"));
}

TEST_F(StudyTabs, SensitivityDrawsTheStrongestFigures) {
    Open(Tab::Sensitivity);
    EXPECT_THAT(Words("picTornado"), HasSubstr("Bench: task times"));
    EXPECT_THAT(Words("picTornado"), Not(HasSubstr("Press: variable cost")));
}

TEST_F(StudyTabs, VolumesMarksTheDemandedVolume) {
    Open(Tab::Volumes);
    EXPECT_THAT(Words("picVolumes"), HasSubstr("Demand 60,000"));
    Put("txtStudyVolume", "75000");
    WaitUntilCurrent();
    EXPECT_THAT(Words("picVolumes"),
                testing::AllOf(HasSubstr("Demand 75,000"), Not(HasSubstr("Demand 60,000"))));
    Choose("cboDesign", 1);
    WaitUntilCurrent();
    EXPECT_THAT(Words("picVolumes"),
                testing::AllOf(HasSubstr("Demand 60,000"), HasSubstr("Demand 90,000")));
}

TEST_F(StudyTabs, SensitivityDrawsTheNearestBreakEvens) {
    Open(Tab::Sensitivity);
    const auto rows = SensitivityOf(Line(), kRequest, 0.1);
    const auto nearest = std::find_if(rows.begin(), rows.end(), [](const SensitivityRow& row) {
        return row.BreakEven.has_value();
    });
    ASSERT_NE(nearest, rows.end());
    EXPECT_THAT(Words("picBreakEvens"), HasSubstr(": the line changes at "));
}

TEST_F(StudyTabs, AlternativesDrawsTheCostOfItsLines) {
    Open(Tab::Alternatives);
    const PreparedLine line = Line();
    const auto best = AlternativesFor(line, kRequest);
    ASSERT_GT(best.size(), 2U);
    EXPECT_THAT(Words("picBest"), HasSubstr("3: Labour " + Dollars(best[2].Figures.Labour)));
    EXPECT_THAT(Words("picBest"), HasSubstr(LineText(line.Model, GroupsOf(best[2].Design))));
}

TEST_F(StudyTabs, AlternativesMarksTheBestCapacitiesOnTheirCurve) {
    Open(Tab::Alternatives);
    Choose("cboDesign", 1);
    WaitUntilCurrent();
    const auto best = BestCapacities(DesignWithCurves(Line().Model, 18));
    ASSERT_GT(best.size(), 1U);
    for (std::size_t place = 0; place < best.size(); ++place) {
        const double capacity = DecimalOfSingle(best[place].Line.Capacity);
        EXPECT_THAT(Words("picBest"), HasSubstr(std::to_string(place + 1) + ": capacity " +
                                                Format(capacity, "#,##0") + ", " +
                                                Dollars(best[place].Line.ExpectedCost)));
    }
}

TEST_F(StudyTabs, SensitivityOfTheDemandDistributionSaysWhereTheCapacityFlips) {
    Open(Tab::Sensitivity);
    Choose("cboDesign", 1);
    WaitUntilCurrent();
    const ExpectedDesigns designs = DesignWithCurves(Line().Model, 18);
    const auto rows = SensitivityOf(designs, 0.1);
    ASSERT_EQ(Table("tblSensitivity").Rows.size(), rows.size());
    EXPECT_THAT(Column("tblSensitivity", "Figure"), testing::Contains("Penalty"));
    const PenaltyFlips flips = PenaltyFlipsOf(designs);
    ASSERT_TRUE(flips.Below);
    EXPECT_THAT(Part<QLabel>("lblFlips").text().toStdString(),
                HasSubstr("The capacity becomes " +
                          Format(DecimalOfSingle(flips.Below->Capacity), "#,##0") + " units at"));
}

TEST_F(StudyTabs, LineOfTheDemandDistributionStandsAtItsCapacity) {
    Open(Tab::Line);
    Choose("cboDesign", 1);
    WaitUntilCurrent();
    const LineModel model = Line().Model;
    const StochasticResult design = DesignForDemand(model, 18);
    EXPECT_THAT(
        Part<QLabel>("lblSummary").text().toStdString(),
        HasSubstr(Dollars(design.Line->ExpectedCost) + " expected a year at a capacity of " +
                  Format(DecimalOfSingle(design.Line->Capacity), "#,##0")));
    const std::size_t stations = design.Line->Groups.size();
    ASSERT_EQ(Table("tblLine").Rows.size(), stations + 3);
    EXPECT_EQ(Row("tblLine", stations + 1).front(), "Penalty");
    EXPECT_EQ(Column("tblLine", "Total").back(), Dollars(design.Line->ExpectedCost));
    EXPECT_EQ(Column("tblLine", "Total")[stations + 1], Dollars(design.Line->ExpectedPenalty));
    auto& view = Part<StudyTableView>("tblLine");
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    EXPECT_THAT(How(), HasSubstr("Expected production: "));
}

TEST_F(StudyTabs, VolumesHasTheRangesOfItsSpan) {
    Open(Tab::Volumes);
    EXPECT_EQ(Part<QLineEdit>("txtFrom").text().toStdString(), "10,000");
    EXPECT_EQ(Part<QLineEdit>("txtTo").text().toStdString(), "200,000");
    const PreparedLine line = Line();
    const auto ranges = VolumeRanges(line, {10000, 200000, {}});
    ASSERT_EQ(Table("tblVolumes").Rows.size(), ranges.size());
    const VolumeRange& last = ranges.back();
    EXPECT_THAT(Row("tblVolumes", ranges.size() - 1),
                ElementsAre(Format(last.From, "#,##0"), "200,000", "3", last.Best ? "best" : "",
                            "any", LineText(line.Model, last.Line), Dollars(last.CostFrom),
                            Dollars(last.CostTo), HasSubstr(" - $"), Dollars(last.Investment)));
}

TEST_F(StudyTabs, VolumesShowsTheShiftsThatAreTicked) {
    Open(Tab::Volumes);
    const auto ranges = VolumeRanges(Line(), {10000, 200000, {}});
    const auto count = [&](const VolumeFilter& filter) { return Filtered(ranges, filter).size(); };
    Part<QCheckBox>("chkShift_1").click();
    EXPECT_EQ(Table("tblVolumes").Rows.size(), count({{false, true, true}, false}));
    EXPECT_THAT(Column("tblVolumes", "Shifts"), Not(testing::Contains("1")));
    Part<QCheckBox>("chkShift_1").click();
    Part<QCheckBox>("chkOnlyBest").click();
    EXPECT_EQ(Table("tblVolumes").Rows.size(), count({{true, true, true}, true}));
    EXPECT_THAT(Column("tblVolumes", "Best"), testing::Each("best"));
    EXPECT_FALSE(IsMarked());
}

TEST_F(StudyTabs, VolumesShowsLinesOfOneEquipmentClassWhereTheyArePossible) {
    Open(Tab::Volumes);
    const auto by_type = RangesByType(Line().Model, {10000, 200000, {}});
    ASSERT_EQ(by_type.size(), 1U);  // benches alone can do every task
    ASSERT_EQ(by_type[0].Type, 0);
    EXPECT_FALSE(Part<QCheckBox>("chkType_1").isEnabled());
    EXPECT_THAT(Column("tblVolumes", "Equipment"), testing::Each("any"));
    const std::size_t before = Table("tblVolumes").Rows.size();
    Part<QCheckBox>("chkType_0").click();
    ASSERT_EQ(Table("tblVolumes").Rows.size(), before + by_type[0].Ranges.size());
    EXPECT_EQ(Column("tblVolumes", "Equipment").back(), "only manual");
    EXPECT_EQ(Column("tblVolumes", "Line").back(),
              LineText(Line().Model, by_type[0].Ranges.back().Line));
}

TEST_F(StudyTabs, VolumesComputesAnotherSpanAndLimit) {
    Open(Tab::Volumes);
    Put("txtTo", "120,000");
    EXPECT_TRUE(Page().IsBusy());
    WaitUntilCurrent();
    EXPECT_EQ(Column("tblVolumes", "To").back(), "120,000");
    Put("txtRangeLimit", "1");
    WaitUntilCurrent();
    const PreparedLine line = Line();
    const auto ranges = VolumeRanges(line, {10000, 120000, std::int16_t{1}});
    ASSERT_EQ(Table("tblVolumes").Rows.size(), ranges.size());
    EXPECT_EQ(Column("tblVolumes", "Line").back(), LineText(line.Model, ranges.back().Line));
    Put("txtStudyVolume", "70000");  // a chosen span stays
    WaitUntilCurrent();
    EXPECT_EQ(Part<QLineEdit>("txtTo").text().toStdString(), "120,000");
}

TEST_F(StudyTabs, VolumesRefusesASpanThatCannotBe) {
    Open(Tab::Volumes);
    Put("txtFrom", "0");
    EXPECT_EQ(Part<QLabel>("lblRangeProblem").text().toStdString(),
              "From is 0; it must be from 1 to 2,000,000,000.");
    EXPECT_TRUE(Part<QLabel>("lblRangeProblem").isVisible());
    EXPECT_FALSE(Page().IsBusy());
    Put("txtFrom", "10000");
    EXPECT_FALSE(Part<QLabel>("lblRangeProblem").isVisible());
}

TEST_F(StudyTabs, VolumesSaysWhereThereIsNoLine) {
    Open(Tab::Volumes);
    Put("txtFrom", "900000000");
    EXPECT_EQ(Part<QLabel>("lblRangeProblem").text().toStdString(),
              "The range is from 900,000,000 to 200,000 units; its end must not lie below.");
    EXPECT_FALSE(Page().IsBusy());
    Put("txtTo", "900000001");
    Put("txtRangeLimit", "1");
    WaitUntilCurrent();
    EXPECT_TRUE(Table("tblVolumes").Rows.empty());
    EXPECT_THAT(Part<QLabel>("lblRanges").text().toStdString(),
                HasSubstr("There is no line for any of these volumes."));
    EXPECT_THAT(Part<QLabel>("lblRanges").text().toStdString(),
                HasSubstr("There is a line for up to"));
}

TEST_F(StudyTabs, AlternativesHasTheCheapestLinesAndWhatWouldReplaceTheirStations) {
    Open(Tab::Alternatives);
    const PreparedLine line = Line();
    const auto lines = AlternativesFor(line, kRequest);
    ASSERT_EQ(Table("tblBest").Rows.size(), 10U);
    for (std::size_t row = 0; row < lines.size(); ++row) {
        EXPECT_EQ(Row("tblBest", row)[1], LineText(line.Model, GroupsOf(lines[row].Design)));
        EXPECT_EQ(Row("tblBest", row)[2], Dollars(lines[row].Design.Cost));
        EXPECT_EQ(Row("tblBest", row)[3], Dollars(lines[row].Difference));
        EXPECT_EQ(Row("tblBest", row)[7], Dollars(lines[row].Figures.Labour));
    }
    const auto instead = Replacements(line, kRequest, lines[0].Design);
    ASSERT_TRUE(instead.at(1).has_value());  // of the robot
    EXPECT_EQ(Row("tblDetails", 1)[5], "Bench");
    EXPECT_EQ(Row("tblDetails", 1)[8], Dollars(instead[1]->Difference));
    auto& view = Part<StudyTableView>("tblBest");
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Down);
    const auto next = Replacements(line, kRequest, lines[2].Design);
    ASSERT_EQ(Table("tblDetails").Rows.size(), next.size());
    for (std::size_t row = 0; row < next.size(); ++row) {
        EXPECT_EQ(Row("tblDetails", row)[5],
                  next[row] ? NameText(line.Model.ResourceOf(next[row]->Group.Group.Resource))
                            : "no other");
        EXPECT_EQ(Row("tblDetails", row)[8], next[row] ? Dollars(next[row]->Difference) : "");
    }
}

TEST_F(StudyTabs, AlternativesOfTheDemandDistributionAreItsBestCapacities) {
    Open(Tab::Alternatives);
    Choose("cboDesign", 1);
    WaitUntilCurrent();
    const auto capacities = BestCapacities(DesignWithCurves(Line().Model, 18));
    ASSERT_EQ(Table("tblBest").Rows.size(), capacities.size());
    EXPECT_EQ(Row("tblBest", 0)[1], Format(DecimalOfSingle(capacities[0].Line.Capacity), "#,##0"));
    EXPECT_EQ(Row("tblBest", 0)[3], Dollars(capacities[0].Line.ExpectedCost));
    EXPECT_EQ(Row("tblBest", 0)[12], CapacityWord(capacities[0]));
    ASSERT_EQ(Table("tblDetails").Rows.size(), 4U);
    EXPECT_EQ(Row("tblDetails", 3)[0], "140,000");
    EXPECT_EQ(Row("tblDetails", 3)[5], Dollars(capacities[0].Outcomes[3].Cost));
}

TEST_F(StudyTabs, SensitivityHasEveryFigureTheStrongestFirst) {
    Open(Tab::Sensitivity);
    const PreparedLine line = Line();
    const auto rows = Strongest(SensitivityOf(line, kRequest, 0.1), 1000);
    ASSERT_EQ(Table("tblSensitivity").Rows.size(), rows.size());
    ASSERT_EQ(rows.size(), FiguresOf(line.Model).size());
    const double today = DecimalOfSingle(CheapestLine(line, kRequest)->Cost);
    EXPECT_EQ(Row("tblSensitivity", 0)[0], rows[0].Name);
    EXPECT_EQ(Row("tblSensitivity", 0)[3], Dollars(*rows[0].CostLow));
    EXPECT_EQ(Row("tblSensitivity", 0)[7], Dollars(DecimalOfSingle(*rows[0].CostHigh) - today));
    EXPECT_EQ(Row("tblSensitivity", 0)[8], rows[0].Changes ? "changes" : "");
    EXPECT_EQ(Column("tblSensitivity", "Cost at -10 %").size(), rows.size());
}

TEST_F(StudyTabs, SensitivityVariesByTheShareThatIsChosen) {
    Open(Tab::Sensitivity);
    Part<QSpinBox>("spnShare").setValue(25);
    EXPECT_TRUE(IsMarked());
    WaitUntilCurrent();
    const auto rows = Strongest(SensitivityOf(Line(), kRequest, 0.25), 1000);
    EXPECT_EQ(Headings(Table("tblSensitivity"))[3], "Cost at -25 %");
    EXPECT_EQ(Row("tblSensitivity", 0)[3], Dollars(*rows[0].CostLow));
}

}  // namespace
}  // namespace quarnel02
