// The demand list: typing rows, selecting, changing and deleting them.
#include <gmock/gmock.h>

#include <QApplication>
#include <algorithm>

#include "app/WindowTest.h"
#include "widgets/Contrast.h"

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
    EXPECT_EQ(SumColour().hslHue(), QColor(0, 0, 128).hslHue());
    EXPECT_EQ(Window->SelectedDemand(), -1);
}

/// Right end of what is printed in a part of a line of the list.
int InkEnd(const QImage& list, QRect part) {
    const QColor paper = list.pixelColor(part.right(), part.center().y());
    for (int x = part.right(); x >= part.left(); --x) {
        for (int y = part.top() + 2; y < part.bottom() - 2; ++y) {
            if (list.pixelColor(x, y) != paper) {
                return x;
            }
        }
    }
    return -1;
}

TEST_F(frmMainDemand, StandsInTwoColumnsThatEndUnderOneAnother) {
    Start("INSERT INTO Demand VALUES (200000, 5), (3000, 75), (11111, 20);");
    Box("txtDays").setFocus();  // no focus frame round a line
    const QImage list = Demand().viewport()->grab().toImage();
    std::vector<int> volumes;
    std::vector<int> probabilities;
    for (int line = 0; line < 3; ++line) {
        QRect place = Demand().visualItemRect(Demand().item(line));
        probabilities.push_back(InkEnd(list, place));
        place.setWidth(place.width() * 55 / 100);
        volumes.push_back(InkEnd(list, place));
    }
    for (int line = 1; line < 3; ++line) {
        EXPECT_NEAR(volumes[static_cast<std::size_t>(line)], volumes[0], 2) << line;
        EXPECT_NEAR(probabilities[static_cast<std::size_t>(line)], probabilities[0], 2) << line;
    }
    EXPECT_GT(volumes[0], 0);
    EXPECT_GT(probabilities[0], volumes[0] + 20);
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
    EXPECT_EQ(SumColour().hslHue(), QColor(255, 0, 0).hslHue());
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

class SumOnEveryPaper : public frmMainDemand, public ::testing::WithParamInterface<const char*> {};

TEST_P(SumOnEveryPaper, IsReadableInItsHueWithoutPaperOfItsOwn) {
    Start(GetParam());
    const QColor before = SumColour();
    for (const int grey : {53, 239, 255, 0, 120}) {
        Window->setPalette(QPalette(QColor(grey, grey, grey)));
        const QColor paper = Window->palette().color(QPalette::Window);
        EXPECT_GE(Contrast(SumColour(), paper), 4.5) << grey;
        EXPECT_NEAR(SumColour().hslHue(), before.hslHue(), 1) << grey;
        EXPECT_EQ(Sum().palette().color(QPalette::Window), paper);
    }
}

INSTANTIATE_TEST_SUITE_P(Sums, SumOnEveryPaper,
                         ::testing::Values(kTwoRows, "INSERT INTO Demand VALUES (5, 70);"),
                         [](const auto& each) { return each.index == 0 ? "Complete" : "Short"; });

}  // namespace
}  // namespace quarnel02
