// Tabs that are ticked stand in the report of the model.
#include <QCheckBox>

#include "studies/StudyTest.h"

namespace quarnel02 {
namespace {

using test::Tab;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ReportTicks : public test::StudyTest {
  protected:
    void Tick() const {
        auto& box = Part<QCheckBox>("chkInReport");
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Space);
    }
    [[nodiscard]] bool IsTicked() const { return Part<QCheckBox>("chkInReport").isChecked(); }
    [[nodiscard]] std::vector<std::string> HeadingsInReport() const {
        std::vector<std::string> texts;
        for (const DocumentPart& part : Study->ReportParts()) {
            if (const auto* heading = std::get_if<HeadingPart>(&part)) {
                texts.push_back(heading->Text);
            }
        }
        return texts;
    }
};

TEST_F(ReportTicks, AreOfEachTabAlone) {
    StartPump();
    Open();
    Show(Tab::Line);
    EXPECT_THAT(Study->ReportParts(), IsEmpty());
    Tick();
    Show(Tab::Volumes);
    EXPECT_FALSE(IsTicked());
    Show(Tab::Scenarios);
    Tick();
    Show(Tab::Line);
    EXPECT_TRUE(IsTicked());
    EXPECT_THAT(HeadingsInReport(), ElementsAre("Study: Line", "Study: Scenarios"));
    Tick();
    EXPECT_FALSE(IsTicked());
    EXPECT_THAT(HeadingsInReport(), ElementsAre("Study: Scenarios"));
}

TEST_F(ReportTicks, TakeChartsAndTablesAsTheyAreShown) {
    StartPump();
    Open();
    Show(Tab::Alternatives);
    Tick();
    const auto parts = Study->ReportParts();
    ASSERT_EQ(parts.size(), 5U);
    EXPECT_EQ(std::get<ParagraphPart>(parts[1]).Text, "Design for 60,000 units a year in 1 shift.");
    const auto& picture = std::get<PicturePart>(parts[2]);
    EXPECT_EQ(picture.Words, "Costs of the lines or capacities.");
    EXPECT_FALSE(picture.Drawing.Figures().empty());
    const auto& table = std::get<TablePart>(parts[3]);
    EXPECT_EQ(table.Columns.front().Heading, "Rank");
    EXPECT_TRUE(table.Columns.front().Figures);
    EXPECT_FALSE(table.Columns[1].Figures);
    ASSERT_EQ(table.Rows.size(), Table("tblBest").Rows.size());
    EXPECT_EQ(table.Rows[0], Row("tblBest", 0));
    EXPECT_EQ(std::get<TablePart>(parts[4]).Rows.size(), Table("tblDetails").Rows.size());
}

TEST_F(ReportTicks, SayTheRangeOfVolumes) {
    StartPump();
    Open();
    Show(Tab::Volumes);
    Tick();
    Put("txtTo", "120,000");
    WaitUntilCurrent();
    EXPECT_EQ(std::get<ParagraphPart>(Study->ReportParts()[1]).Text,
              "Cheapest lines for 10,000 to 120,000 units a year, station limit --.");
}

TEST_F(ReportTicks, SayWhyThereIsNoLine) {
    StartPump();
    Open();
    Put("txtStudyVolume", "900000");
    Put("txtLimit", "1");
    Show(Tab::Line);
    Tick();
    const auto parts = Study->ReportParts();
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(std::get<ParagraphPart>(parts[2]).Text, Message());
}

TEST_F(ReportTicks, KeepTheirTabsUpToDateWhileAnotherOneIsShown) {
    StartPump();
    Open();
    Show(Tab::Line);
    Tick();
    Show(Tab::Alternatives);
    Put("txtStudyVolume", "70000");
    EXPECT_THAT(HeadingsInReport(), ElementsAre("Study: Line (out of date)"));
    EXPECT_EQ(std::get<ParagraphPart>(Study->ReportParts()[1]).Text,
              "Design for 60,000 units a year in 1 shift.");
    WaitUntilCurrent();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return HeadingsInReport() == std::vector<std::string>{"Study: Line"}; }, 30000));
    EXPECT_EQ(std::get<ParagraphPart>(Study->ReportParts()[1]).Text,
              "Design for 70,000 units a year in 1 shift.");
    EXPECT_EQ(Part<QTabWidget>("tabStudy").currentIndex(), static_cast<int>(Tab::Alternatives));
}

}  // namespace
}  // namespace quarnel02
