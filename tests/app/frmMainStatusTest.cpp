// The status bar: which model this is, whether its file holds it, and what the last design was.
#include <gmock/gmock.h>

#include <QStatusBar>
#include <variant>

#include "app/WindowTest.h"
#include "basic/Files.h"
#include "files/ModelFile.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

class frmMainStatus : public test::WindowTest {
  protected:
    [[nodiscard]] std::string Shown(const char* label) const {
        return Find<QLabel>(label).text().toStdString();
    }
    [[nodiscard]] std::string Message() const {
        return Find<QStatusBar>("statusBar").currentMessage().toStdString();
    }
    void OpenLine() {
        MakeModelFile(Copy->File("line.mdb"),
                      ReadFile(QUARNEL02_SCHEMA_FILE) + "UPDATE Gen SET Product = 'Pump';");
        Dialogs.Type(Copy->File("line.mdb").string());
        Item("mnuFileOpen").trigger();
    }
    void ChangeDays() {
        Type("txtDays", "200");
        PressKey(Qt::Key_Return);
    }
};

TEST_F(frmMainStatus, NamesAnUntitledModel) {
    Start("UPDATE Gen SET Product = 'Pump', Tasks = 1, Resources = 3;");
    EXPECT_EQ(Shown("lblFile"), "Pump - no file yet");
    EXPECT_FALSE(Find<QLabel>("lblSaved").isVisible());
    EXPECT_EQ(Shown("lblSize"), "1 task, 3 resources");
    EXPECT_EQ(Shown("lblDesign"), "");
}

TEST_F(frmMainStatus, AnUntitledModelWithChangesHasAStar) {
    Start();
    Type("txtDays", "200");
    EXPECT_FALSE(Find<QLabel>("lblSaved").isVisible());
    PressKey(Qt::Key_Return);
    EXPECT_TRUE(Find<QLabel>("lblSaved").isVisible());
    EXPECT_EQ(Shown("lblSaved"), "*");
}

TEST_F(frmMainStatus, NamesTheFileAndWhetherItHoldsTheModel) {
    Start();
    OpenLine();
    EXPECT_EQ(Shown("lblFile"), "Pump - line.mdb");
    EXPECT_EQ(Shown("lblSaved"), "saved");
    EXPECT_THAT(Find<QLabel>("lblFile").toolTip().toStdString(),
                HasSubstr(Copy->File("line.mdb").string()));
    Type("txtDays", "200");
    EXPECT_EQ(Shown("lblSaved"), "saved");
    QTest::keyClick(&Box("txtDays"), Qt::Key_Return);
    EXPECT_EQ(Shown("lblSaved"), "*");
}

TEST_F(frmMainStatus, SaysThatTheFileWasWritten) {
    Start();
    OpenLine();
    ChangeDays();
    EXPECT_EQ(Message(), "");
    Item("mnuFileSave").trigger();
    EXPECT_EQ(Message(), "Saved line.mdb");
    EXPECT_EQ(Shown("lblSaved"), "saved");
}

TEST_F(frmMainStatus, ACancelledSaveAsSaysNothing) {
    Start();
    OpenLine();
    Dialogs.Escape();
    Item("mnuFileSaveAs").trigger();
    EXPECT_EQ(Message(), "");
    EXPECT_EQ(Shown("lblFile"), "Pump - line.mdb");
}

TEST_F(frmMainStatus, AProposedNameIsNoFile) {
    Start("UPDATE Gen SET Product = 'Pump';");
    Dialogs.Escape();
    Item("mnuFileSaveAs").trigger();
    EXPECT_EQ(Shown("lblFile"), "Pump - no file yet");
    EXPECT_FALSE(Find<QLabel>("lblSaved").isVisible());
}

TEST_F(frmMainStatus, AMessageGoesAndTheModelIsShownAgain) {
    Start();
    OpenLine();
    Find<QStatusBar>("statusBar").showMessage("Exported");
    EXPECT_FALSE(Find<QLabel>("lblFile").isVisible());
    Find<QStatusBar>("statusBar").clearMessage();
    EXPECT_TRUE(Find<QLabel>("lblFile").isVisible());
    EXPECT_THAT(Shown("lblFile"), EndsWith("line.mdb"));
}

/// The text behind the last `label` in a report, to the end of its line.
std::string Behind(const std::string& report, const std::string& label) {
    const auto from = report.rfind(label) + label.size();
    return report.substr(from, report.find('\n', from) - from);
}

TEST_F(frmMainStatus, NamesCostAndDurationOfADesignAsTheReportDoes) {
    test::ModelScript model = test::WorkedExample();
    model.Demand = {{100000, 50}, {200000, 50}};
    Start(model.Sql());
    Click("cmdStoch");
    const std::string words = Shown("lblDesign");
    EXPECT_THAT(words,
                MatchesRegex("Capacity [0-9,]+ units a year: .[0-9,]+ expected in [0-9.]+ m?s"));
    std::string summary;
    for (const PictureFigure& figure : Window->picGraph[0].Figures()) {
        const auto* text = std::get_if<TextFigure>(&figure);
        summary += text == nullptr ? "" : text->Text;
    }
    const std::string cost = Behind(summary, "Expected Annualized System Costs: ");
    EXPECT_THAT(words, HasSubstr(": " + cost.substr(0, cost.find('E')) + " expected"));
    EXPECT_THAT(cost, ::testing::StartsWith("$"));
    Dialogs.Accept();
    Dialogs.Press(QMessageBox::No);
    Click("cmdContinuous_1");
    std::string total = Behind(ReadFile(Copy->File("RunRpt.txt")), "Total Cost:");
    total.erase(0, total.find_first_not_of(' '));
    EXPECT_THAT(Shown("lblDesign"), HasSubstr(" units a year: " + total + " in "));
}

}  // namespace
}  // namespace quarnel02
