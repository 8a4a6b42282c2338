// The demand list: typing rows, selecting, changing and deleting them.
#include <gmock/gmock.h>

#include <QApplication>
#include <algorithm>
#include <cmath>

#include "app/WindowTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kTwoRows = "INSERT INTO Demand VALUES (12500, 25), (3000, 75);";

class frmMainDemand : public test::WindowTest {
  protected:
    QLabel& Sum() const { return Find<QLabel>("lblSum"); }
    [[nodiscard]] QColor SumColour() const { return Sum().palette().color(Sum().foregroundRole()); }
    [[nodiscard]] std::string Text(const char* box) const { return Box(box).text().toStdString(); }

    void ClickLine(int line) {
        const QRect place = Demand().visualItemRect(Demand().item(line));
        QTest::mouseClick(Demand().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }
};

TEST_F(frmMainDemand, IsListedByVolume) {
    Start(kTwoRows);
    EXPECT_THAT(DemandLines(), ElementsAre("3,000:  75%", "12,500:  25%"));
    EXPECT_EQ(Sum().text().toStdString(), "100%");
    EXPECT_EQ(SumColour(), QColor(0, 0, 128));
    EXPECT_EQ(Window->SelectedDemand(), -1);
}

TEST_F(frmMainDemand, IsTypedWithTheKeyboardAlone) {
    Start();
    Box("txtVolume").setFocus(Qt::TabFocusReason);
    const auto type = [&](const char* text) {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    };
    type("12,500");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "txtProb");
    type("25");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "cmdAdd");
    EXPECT_EQ(Text("txtProb"), "25%");
    EXPECT_THAT(DemandRows(), IsEmpty());
    PressKey(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "txtVolume");
    EXPECT_THAT(DemandRows(), ElementsAre("12500|25"));
    EXPECT_THAT(DemandLines(), ElementsAre("12,500:  25%"));
    EXPECT_EQ(Text("txtVolume"), "");
    EXPECT_EQ(Text("txtProb"), "");
    EXPECT_EQ(Sum().text().toStdString(), "25% (75% missing)");
    EXPECT_EQ(SumColour(), QColor(255, 0, 0));
    EXPECT_TRUE(Window->Current().Changed);
}

TEST_F(frmMainDemand, KeepsAPercentSignThatWasTyped) {
    Start();
    Type("txtVolume", "100");
    Type("txtProb", "25%");
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(Text("txtProb"), "25%");
    Click("cmdAdd");
    EXPECT_THAT(DemandRows(), ElementsAre("100|25"));
}

TEST_F(frmMainDemand, AddDoesNothingWhileABoxIsEmpty) {
    Start();
    Type("txtVolume", "100");
    Click("cmdAdd");
    EXPECT_THAT(DemandRows(), IsEmpty());
    EXPECT_EQ(Text("txtVolume"), "100");
    EXPECT_FALSE(Window->Current().Changed);
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

TEST_F(frmMainDemand, AddOfAWordBringsOneMessage) {
    Start();
    Type("txtVolume", "many");
    Type("txtProb", "25");
    Dialogs.Press(QMessageBox::Ok);
    Click("cmdAdd");
    ASSERT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_THAT(Dialogs.Seen[0], HasSubstr("critical: "));
    EXPECT_THAT(DemandRows(), IsEmpty());
    EXPECT_EQ(Text("txtVolume"), "many");
}

TEST_F(frmMainDemand, AClickShowsTheRow) {
    Start(kTwoRows);
    ClickLine(1);
    EXPECT_EQ(Text("txtVolume"), "12,500");
    EXPECT_EQ(Text("txtProb"), "25%");
    EXPECT_FALSE(Window->Current().Changed);
}

TEST_F(frmMainDemand, AClickOnTheSelectedLineShowsItsRowAgain) {
    Start(kTwoRows);
    ClickLine(0);
    Box("txtVolume").setText("1");
    ClickLine(0);
    EXPECT_EQ(Text("txtVolume"), "3,000");
}

TEST_F(frmMainDemand, ATextOfAProcedureStandsInItsOwnBoxAndShowsItsBeginning) {
    Start();
    const char* const names[] = {"txtResources", "txtTasks",     "txtDays",    "txtACF",
                                 "txtLaborCost", "txtTransTime", "txtPenalty", "txtProduct",
                                 "txtVolume",    "txtProb"};
    for (std::size_t box = 0; box < kTextBoxes; ++box) {
        Window->SetText(static_cast<TextBox>(box), std::string("of ") + names[box]);
    }
    for (const char* name : names) {
        EXPECT_EQ(Text(name), std::string("of ") + name);
        EXPECT_EQ(Box(name).cursorPosition(), 0) << name;
    }
}

TEST_F(frmMainDemand, TheArrowKeysShowRowsToo) {
    Start(kTwoRows);
    ClickLine(0);
    PressKey(Qt::Key_Down);
    EXPECT_EQ(Text("txtVolume"), "12,500");
}

TEST_F(frmMainDemand, TabbingIntoTheListSelectsNothing) {
    Start(kTwoRows);
    Button("cmdAdd").setFocus();
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "lstDemand");
    EXPECT_EQ(Window->SelectedDemand(), -1);
    EXPECT_EQ(Text("txtVolume"), "");
}

TEST_F(frmMainDemand, UpdateChangesTheSelectedRow) {
    Start(kTwoRows);
    ClickLine(0);
    Type("txtVolume", "4,000");
    Click("cmdUpdate");
    EXPECT_THAT(DemandRows(), ElementsAre("12500|25", "4000|75"));
    EXPECT_THAT(DemandLines(), ElementsAre("4,000:  75%", "12,500:  25%"));
    EXPECT_EQ(Window->SelectedDemand(), -1);
    EXPECT_TRUE(Window->Current().Changed);
}

TEST_F(frmMainDemand, DeleteRemovesTheRowInTheBoxes) {
    Start(kTwoRows);
    ClickLine(0);
    Click("cmdDelete");
    EXPECT_THAT(DemandRows(), ElementsAre("12500|25"));
    EXPECT_THAT(DemandLines(), ElementsAre("12,500:  25%"));
    EXPECT_EQ(Sum().text().toStdString(), "25% (75% missing)");
}

TEST_F(frmMainDemand, TheSelectionGoesWithALineThatIsTakenAway) {
    Start(kTwoRows);
    ClickLine(0);
    EXPECT_EQ(Window->SelectedDemand(), 0);
    Window->RemoveDemandLine(0);
    EXPECT_THAT(DemandLines(), ElementsAre("12,500:  25%"));
    EXPECT_EQ(Window->SelectedDemand(), -1);
    EXPECT_EQ(Text("txtVolume"), "3,000");
}

TEST_F(frmMainDemand, DeletingTheLastRowEmptiesTheListButKeepsTheSum) {
    Start("INSERT INTO Demand VALUES (5000, 100);");
    ClickLine(0);
    Click("cmdDelete");
    EXPECT_THAT(DemandRows(), IsEmpty());
    EXPECT_THAT(DemandLines(), IsEmpty());
    EXPECT_EQ(Sum().text().toStdString(), "100%");
}

TEST_F(frmMainDemand, AfterAClickOnAddTheVolumeBoxHasTheFocus) {
    Start();
    Type("txtVolume", "100");
    Type("txtProb", "25");
    Click("cmdAdd");
    EXPECT_THAT(DemandRows(), ElementsAre("100|25"));
    EXPECT_EQ(FocusName(), "txtVolume");
}

TEST_F(frmMainDemand, AddWithoutAProbabilityGoesToItsBox) {
    Start();
    Type("txtVolume", "100");
    Click("cmdAdd");
    EXPECT_EQ(FocusName(), "txtProb");
}

TEST_F(frmMainDemand, UpdateAndDeleteAreGreyWhenTheyCanDoNothing) {
    Start(kTwoRows);
    const auto enabled = [&] {
        return std::pair(Button("cmdUpdate").isEnabled(), Button("cmdDelete").isEnabled());
    };
    EXPECT_EQ(enabled(), std::pair(false, false));
    Type("txtVolume", "100");
    Type("txtProb", "25");
    EXPECT_EQ(enabled(), std::pair(false, false));
    ClickLine(0);
    EXPECT_EQ(enabled(), std::pair(true, true));
    Type("txtVolume", "");
    EXPECT_EQ(enabled(), std::pair(false, true));
    Type("txtVolume", "4000");
    EXPECT_EQ(enabled(), std::pair(true, true));
    Click("cmdUpdate");
    EXPECT_EQ(enabled(), std::pair(false, false));
    EXPECT_EQ(FocusName(), "lstDemand");
    ClickLine(0);
    Click("cmdDelete");
    EXPECT_EQ(enabled(), std::pair(false, false));
    EXPECT_EQ(FocusName(), "lstDemand");
}

/// Ratio of luminances that makes text readable: 4.5 and more.
double Contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double lighter = std::max(luminance(a), luminance(b));
    return (lighter + 0.05) / (std::min(luminance(a), luminance(b)) + 0.05);
}

class SumOnADarkWindow : public frmMainDemand, public ::testing::WithParamInterface<const char*> {};

TEST_P(SumOnADarkWindow, IsReadableWithoutPaperOfItsOwn) {
    Start(GetParam());
    const QColor before = SumColour();
    Window->setPalette(QPalette(QColor(53, 53, 53)));
    const QColor paper = Window->palette().color(QPalette::Window);
    EXPECT_GE(Contrast(SumColour(), paper), 4.5);
    EXPECT_LT(Contrast(before, paper), 4.5);
    EXPECT_EQ(SumColour().hslHue(), before.hslHue());
    EXPECT_EQ(Sum().palette().color(QPalette::Window), paper);
    Window->setPalette(QPalette(QColor(239, 239, 239)));
    EXPECT_EQ(SumColour(), before);
}

INSTANTIATE_TEST_SUITE_P(Sums, SumOnADarkWindow,
                         ::testing::Values(kTwoRows, "INSERT INTO Demand VALUES (5, 70);"),
                         [](const auto& each) { return each.index == 0 ? "Complete" : "Short"; });

}  // namespace
}  // namespace quarnel02
