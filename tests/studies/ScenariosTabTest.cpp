// Scenarios: made, typed, solved side by side, kept in the model and undone, through real keys.
#include <QHeaderView>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "shell/StoredScenarios.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTest.h"
#include "study/LineText.h"
#include "study/VolumePieces.h"
#include "widgets/SheetView.h"

namespace quarnel02 {
namespace {

using test::Tab;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kTwoScenarios =
    "INSERT INTO Scenarios VALUES ('Wages', 'LaborCost +10%'), ('Growth', 'Demand = 90000');";

class ScenariosTab : public test::StudyTest {
  protected:
    void Open(const char* more = "") {
        StartPump(more);
        StudyTest::Open();
        Show(Tab::Scenarios);
    }
    void Press(const char* button) const {
        QTest::mouseClick(&Part<QPushButton>(button), Qt::LeftButton);
    }
    [[nodiscard]] std::vector<std::string> Names() const {
        return Column("tblScenarios", "Scenario");
    }
    [[nodiscard]] std::vector<std::string> Stored() const {
        std::vector<std::string> texts;
        for (const Scenario& scenario : ReadScenarios(Copy->Open())) {
            texts.push_back(scenario.Name + "|" + scenario.Differences);
        }
        return texts;
    }
    [[nodiscard]] std::string Said() const {
        const auto& label = Part<QLabel>("lblScenarioProblem");
        return label.isVisible() ? label.text().toStdString() : "";
    }
    [[nodiscard]] std::string Text(const std::string& box) const {
        return Part<QLineEdit>(box).text().toStdString();
    }
    /// Goes to a row of the table with the arrow keys.
    void Select(int row) const {
        auto& table = Part<StudyTableView>("tblScenarios");
        table.setFocus();
        QTest::keyClick(&table, Qt::Key_Home, Qt::ControlModifier);
        for (int down = 0; down < row; ++down) {
            QTest::keyClick(&table, Qt::Key_Down);
        }
    }
    [[nodiscard]] SheetView& Sheet() const { return Part<SheetView>("shtDifferences"); }
    [[nodiscard]] int RowOf(const std::string& figure) const {
        const auto* model = Sheet().model();
        for (int row = 0; row < model->rowCount(); ++row) {
            if (model->headerData(row, Qt::Vertical).toString().toStdString() == figure) {
                return row;
            }
        }
        throw std::runtime_error("no figure " + figure);
    }
    [[nodiscard]] std::string Cell(const std::string& figure, int column = 1) const {
        return Sheet().model()->index(RowOf(figure), column).data().toString().toStdString();
    }
    /// Types into the row of a figure and presses Enter.
    void Enter(const std::string& figure, const std::string& text) const {
        Study->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
        const QModelIndex cell = Sheet().model()->index(RowOf(figure), 1);
        Sheet().scrollTo(cell);
        QTest::mouseClick(Sheet().viewport(), Qt::LeftButton, {},
                          Sheet().visualRect(cell).center());
        for (const char letter : text) {
            QTest::keyClick(Study->focusWidget(), letter);
        }
        QTest::keyClick(Study->focusWidget(), Qt::Key_Return);
    }
    [[nodiscard]] std::string LastStep() const { return Window->History().UndoText(); }
    [[nodiscard]] std::string Words() const {
        std::string words;
        for (const HotSpot& spot : Part<StudyPicture>("picCosts").Shown().HotSpots()) {
            words += WordsOf(spot) + "\n";
        }
        return words;
    }
    [[nodiscard]] static std::string Dollars(double amount) { return Format(amount, "$#,##0"); }
};

TEST_F(ScenariosTab, SolvesAllSideBySide) {
    Open(kTwoScenarios);
    const DesignOrder base{Line().Model, FixedDemandRequest{60000, 1, {}}};
    const auto outcomes = SolveScenarios(base, ReadScenarios(Copy->Open()));
    ASSERT_THAT(Names(), ElementsAre("Base", "Wages", "Growth"));
    for (std::size_t row = 0; row < outcomes.size(); ++row) {
        const ScenarioOutcome& each = outcomes[row];
        std::vector<StationGroup> groups;
        for (const StationRow& station : each.Table.Rows) {
            groups.push_back(station.Group);
        }
        const CostFigures& totals = each.Table.Totals;
        EXPECT_THAT(Row("tblScenarios", row),
                    ElementsAre(each.Name, Dollars(DecimalOfSingle(each.Cost)),
                                Dollars(*each.Difference), LineText(each.Order.Model, groups),
                                each.LineChanges ? "changes" : "", Format(each.Capacity, "#,##0"),
                                "1", Dollars(totals.Investment), Dollars(totals.Capital),
                                Dollars(totals.Machine), Dollars(totals.Labour), "$0", testing::_));
    }
    EXPECT_EQ(Column("tblScenarios", "Differences")[2], "Demand = 90000");
    EXPECT_THAT(Words(), testing::AllOf(HasSubstr("Base: Capital"), HasSubstr("Wages: Labour"),
                                        HasSubstr("Growth: Machine")));
}

TEST_F(ScenariosTab, OfTheDemandDistributionHaveAPenalty) {
    Open("INSERT INTO Scenarios VALUES ('Cheap', 'Penalty = 0.1'), ('Growth', 'Demand = 90000');");
    Choose("cboDesign", 1);
    WaitUntilCurrent();
    const auto outcomes = SolveScenarios({Line().Model, {}}, {{{"Cheap", "Penalty = 0.1"}}});
    ASSERT_GT(outcomes[1].Penalty, 0);
    EXPECT_EQ(Column("tblScenarios", "Penalty")[1], Dollars(outcomes[1].Penalty));
    EXPECT_THAT(Column("tblScenarios", "Cost"),
                ElementsAre(Dollars(DecimalOfSingle(outcomes[0].Cost)),
                            Dollars(DecimalOfSingle(outcomes[1].Cost)), "not solved"));
    EXPECT_THAT(Column("tblScenarios", "Line")[2], HasSubstr("\"Demand = 90000\": a design for"));
    EXPECT_THAT(Words(), HasSubstr("Cheap: Penalty"));
}

TEST_F(ScenariosTab, ComparesWithTheScenarioThatIsChosen) {
    Open(kTwoScenarios);
    const auto before = Column("tblScenarios", "Difference");
    EXPECT_EQ(before[0], "$0");
    Choose("cboBase", 2);
    EXPECT_FALSE(IsMarked());
    const auto after = Column("tblScenarios", "Difference");
    EXPECT_EQ(after[2], "$0");
    EXPECT_EQ(after[0], "-" + before[2]);
    EXPECT_EQ(Column("tblScenarios", "Other line")[2], "");
    EXPECT_EQ(Column("tblScenarios", "Other line")[0], "changes");
}

TEST_F(ScenariosTab, NewOnesAreTypedFigureByFigure) {
    Open();
    EXPECT_THAT(Said(), HasSubstr("New makes a scenario"));
    Press("cmdNewScenario");
    EXPECT_EQ(Study->focusWidget(), &Part<QLineEdit>("txtScenarioName"));
    EXPECT_THAT(Names(), ElementsAre("Base", "Scenario"));
    EXPECT_EQ(Said(), "");
    Put("txtScenarioName", "Dear benches");
    EXPECT_THAT(Names(), ElementsAre("Base", "Dear benches"));
    EXPECT_EQ(LastStep(), "Undo Rename scenario Scenario");
    EXPECT_EQ(Cell("Annual demand", 0), "60,000");
    Enter("Bench: fixed cost", "5000");
    Enter("Labour cost", "+10%");
    Enter("Station limit", "none");
    EXPECT_THAT(Stored(), ElementsAre("Dear benches|Bench.FixedCost = 5000; LaborCost +10%; "
                                      "StationLimit = none"));
    EXPECT_EQ(Text("txtDifferences"),
              "Bench.FixedCost = 5000; LaborCost +10%; StationLimit = none");
    EXPECT_EQ(Column("tblScenarios", "Cost")[1], "");  // not solved yet
    EXPECT_TRUE(IsMarked());
    WaitUntilCurrent();
    const auto outcomes = SolveScenarios({Line().Model, FixedDemandRequest{60000, 1, {}}},
                                         ReadScenarios(Copy->Open()));
    EXPECT_EQ(Column("tblScenarios", "Cost")[1], Dollars(DecimalOfSingle(outcomes[1].Cost)));
    Enter("Labour cost", " ");
    EXPECT_THAT(Stored(), ElementsAre("Dear benches|Bench.FixedCost = 5000; StationLimit = none"));
}

TEST_F(ScenariosTab, NewOnesAreReachedAndTypedByKeysAlone) {
    Open();
    Study->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
    Press("cmdNewScenario");
    const auto key = [&](Qt::Key each) { QTest::keyClick(Study->focusWidget(), each); };
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    ASSERT_EQ(Study->focusWidget(), &Sheet());
    for (const char letter : std::string("90000")) {
        QTest::keyClick(Study->focusWidget(), letter);
    }
    key(Qt::Key_Return);
    QTest::keyClick(Study->focusWidget(), '2');
    key(Qt::Key_Return);
    EXPECT_THAT(Stored(), ElementsAre("Scenario|Demand = 90000; Shifts = 2"));
}

TEST_F(ScenariosTab, RefusesFiguresThatCannotBeByName) {
    Open(kTwoScenarios);
    Select(1);
    Dialogs.Accept();
    Enter("Bench: uptime", "120");
    ASSERT_FALSE(Dialogs.Seen.empty());
    EXPECT_THAT(Dialogs.Seen.back(),
                HasSubstr("Bench: uptime: it must be above 0 and at most 100."));
    EXPECT_TRUE(Sheet().IsEditing());
    EXPECT_THAT(Stored(), ElementsAre("Wages|LaborCost +10%", "Growth|Demand = 90000"));
}

TEST_F(ScenariosTab, AreTypedAsATextToo) {
    Open(kTwoScenarios);
    Select(1);
    EXPECT_EQ(Text("txtDifferences"), "LaborCost +10%");
    EXPECT_EQ(Cell("Labour cost"), "+10%");
    Put("txtDifferences", "laborcost = many");
    EXPECT_THAT(Said(), StartsWith("\"laborcost = many\": \"many\" is no number."));
    EXPECT_EQ(Text("txtDifferences"), "laborcost = many");
    EXPECT_EQ(Stored()[0], "Wages|LaborCost +10%");
    Put("txtDifferences", "laborcost = 30;shifts=2");
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(Stored()[0], "Wages|LaborCost = 30; Shifts = 2");
    EXPECT_EQ(Cell("Shifts per day"), "2");
    EXPECT_EQ(Cell("Labour cost"), "30");
}

TEST_F(ScenariosTab, NamesAreTheirOwn) {
    Open(kTwoScenarios);
    Select(2);
    for (const char* taken : {"wages", "Base"}) {
        Put("txtScenarioName", taken);
        EXPECT_THAT(Said(), HasSubstr("is the name of the base or of another scenario."));
    }
    Put("txtScenarioName", " ");
    EXPECT_EQ(Said(), "A scenario needs a name. Enter one.");
    EXPECT_THAT(Names(), ElementsAre("Base", "Wages", "Growth"));
    Put("txtScenarioName", "Boom");
    EXPECT_EQ(Said(), "");
    EXPECT_THAT(Names(), ElementsAre("Base", "Wages", "Boom"));
}

TEST_F(ScenariosTab, AreDuplicatedAndDeleted) {
    Open(kTwoScenarios);
    Select(1);
    Press("cmdDuplicate");
    EXPECT_THAT(Stored(), ElementsAre("Wages|LaborCost +10%", "Growth|Demand = 90000",
                                      "Copy of Wages|LaborCost +10%"));
    EXPECT_EQ(Text("txtScenarioName"), "Copy of Wages");
    Select(1);
    Press("cmdDuplicate");
    EXPECT_EQ(Names().back(), "Copy of Wages 2");
    Select(2);
    Press("cmdDeleteScenario");
    EXPECT_THAT(Names(), ElementsAre("Base", "Wages", "Copy of Wages", "Copy of Wages 2"));
    EXPECT_EQ(Text("txtScenarioName"), "Copy of Wages");
    EXPECT_EQ(LastStep(), "Undo Delete scenario Growth");
}

TEST_F(ScenariosTab, KeepsWhatModelAndDesignHaveBecome) {
    Open();
    Press("cmdKeepPresent");
    EXPECT_THAT(Said(), HasSubstr("are as this window first showed them"));
    EXPECT_THAT(Stored(), IsEmpty());
    Put("txtStudyVolume", "80000");
    Choose("cboShifts", 1);
    Activate();
    Type("txtLaborCost", "30");
    QTest::keyClick(&Box("txtLaborCost"), Qt::Key_Return);
    Press("cmdKeepPresent");
    EXPECT_THAT(Stored(), ElementsAre("Kept|LaborCost = 30; Demand = 80000; Shifts = 2"));
    Put("txtStudyVolume", "60000");
    WaitUntilCurrent();
    const auto outcomes = SolveScenarios({Line().Model, FixedDemandRequest{60000, 2, {}}},
                                         ReadScenarios(Copy->Open()));
    EXPECT_EQ(Column("tblScenarios", "Difference")[1], Dollars(*outcomes[1].Difference));
}

TEST_F(ScenariosTab, AreUndoneAndRedoneInThisWindowAndTheMainOne) {
    Open(kTwoScenarios);
    Select(1);
    Press("cmdDeleteScenario");
    EXPECT_TRUE(IsStarred());
    EXPECT_THAT(Names(), ElementsAre("Base", "Growth"));
    Study->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
    auto& table = Part<StudyTableView>("tblScenarios");
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_THAT(Names(), ElementsAre("Base", "Wages", "Growth"));
    EXPECT_THAT(Stored(), ElementsAre("Wages|LaborCost +10%", "Growth|Demand = 90000"));
    Item("mnuEditRedo").trigger();
    EXPECT_THAT(Names(), ElementsAre("Base", "Growth"));
}

TEST_F(ScenariosTab, OutdateNeitherOtherTabsNorTheDesign) {
    StartPump(kTwoScenarios);
    NoteDesignNow();
    StudyTest::Open();
    Show(Tab::Line);
    Show(Tab::Scenarios);
    Select(1);
    Press("cmdDeleteScenario");
    EXPECT_TRUE(IsMarked());
    EXPECT_FALSE(Find<QLabel>("lblOutOfDate").isVisible());
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Line));
    EXPECT_FALSE(IsMarked());
    EXPECT_FALSE(Page().IsBusy());
}

TEST_F(ScenariosTab, OfAResourceThatIsGoneAreMendedAsAText) {
    Open("INSERT INTO Scenarios VALUES ('Old', 'Lathe.FixedCost = 1');");
    EXPECT_EQ(Column("tblScenarios", "Cost")[1], "not solved");
    Select(1);
    EXPECT_THAT(Said(), HasSubstr("the model has no resource \"Lathe\"."));
    EXPECT_EQ(Sheet().model()->rowCount(), 0);
    Put("txtDifferences", "Press.FixedCost = 1");
    EXPECT_EQ(Said(), "");
    WaitUntilCurrent();
    EXPECT_THAT(Column("tblScenarios", "Cost")[1], StartsWith("$"));
}

TEST_F(ScenariosTab, WhatIsBeingTypedOutlivesTheResults) {
    Open(kTwoScenarios);
    Select(1);
    Enter("Labour cost", "+20%");
    ASSERT_TRUE(IsMarked());
    auto& box = Part<QLineEdit>("txtDifferences");
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_End);
    QTest::keyClicks(&box, "; Days");
    WaitUntilCurrent();
    EXPECT_EQ(Text("txtDifferences"), "LaborCost +20%; Days");
    EXPECT_EQ(Stored()[0], "Wages|LaborCost +20%");
}

TEST_F(ScenariosTab, AreSavedAndReadWithTheModel) {
    Open();
    Press("cmdNewScenario");
    Put("txtDifferences", "Demand = 90000");
    Activate();
    Dialogs.Type(Copy->File("kept.mdb").string());
    Item("mnuFileSaveAs").trigger();
    Item("mnuFileNew").trigger();
    EXPECT_THAT(Stored(), IsEmpty());
    Dialogs.Type(Copy->File("kept.mdb").string());
    Item("mnuFileOpen").trigger();
    EXPECT_THAT(Stored(), ElementsAre("Scenario|Demand = 90000"));
    WaitUntilCurrent();
    EXPECT_THAT(Names(), ElementsAre("Base", "Scenario"));
}

}  // namespace
}  // namespace quarnel02
