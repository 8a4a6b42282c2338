// The resource editor.
#include <gmock/gmock.h>

#include <QHelpEvent>
#include <QToolTip>

#include "editors/EditorTest.h"
#include "editors/TypePicture.h"

namespace quarnel02 {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* kThree =
    "UPDATE Gen SET Resources = 3, Tasks = 1; INSERT INTO Tasks VALUES (1, 'Only');"
    "INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 3500, 1.5, 96, 1.25, 6, 0.5),"
    " (2, 'Prs', 'Press', 1, 0, 6, 90, 1.3, 2, 4), (3, 'Rob', 'Robot', 3, 80000, 9, 97, 2, 3, 8);"
    "INSERT INTO Matrix VALUES (1, 1, 11, 1, 0), (2, 1, 12, 1, 0), (3, 1, 13, 1, 0);";
constexpr const char* kDefaults = "|   |   |0|0|0|100|1|1|1";

class frmResource : public test::EditorTest {
  protected:
    /// Boxes and tag in the order of the columns, joined by "|".
    [[nodiscard]] std::string Record() const {
        std::string record = Shown("txtResource") + "|" + Shown("txtShortName") + "|" +
                             Shown("txtDescription") + "|" + Tag();
        for (const char* box :
             {"txtFixedCost", "txtVarCost", "txtUptime", "txtICF", "txtTCT", "txtStations"}) {
            record += "|" + Shown(box);
        }
        return record;
    }
    [[nodiscard]] std::string Tag() const {
        return Part<QWidget>("picRes").property("tag").toString().toStdString();
    }
    [[nodiscard]] std::string Help() const {
        return Part<QWidget>("picRes").toolTip().toStdString();
    }
    [[nodiscard]] QImage Picture() const { return Part<QWidget>("picRes").grab().toImage(); }
};

TEST_F(frmResource, ShowsEveryColumnOfTheFirstRecord) {
    Start(kThree);
    EditResources([&] {
        EXPECT_TRUE(Form->isModal());
        EXPECT_EQ(Record(), "1|Ben|Bench|0|3500|1.5|96|1.25|6|0.5");
        EXPECT_EQ(Caption("lblResType"), "MNL");
        Press("cmdOK");
    });
}

TEST_F(frmResource, NextAndPreviousStayAtTheEnds) {
    Start(kThree);
    EditResources([&] {
        Press("cmdRes_0");
        EXPECT_EQ(Shown("txtShortName"), "Ben");
        Press("cmdRes_1", 4);
        EXPECT_EQ(Record(), "3|Rob|Robot|3|80000|9|97|2|3|8");
        EXPECT_EQ(Caption("lblResType"), "AUT");
        Press("cmdRes_0");
        EXPECT_EQ(Caption("lblResType"), "FXD");
        Press("cmdOK");
    });
}

TEST_F(frmResource, TypesCycleInBothDirectionsWithPictureAndHelp) {
    Start(kThree);
    EditResources([&] {
        const QImage manual = Picture();
        Press("cmdType_0");
        EXPECT_EQ(Caption("lblResType"), "AUT");
        EXPECT_EQ(Tag(), "3");
        EXPECT_EQ(Help(),
                  "Automated industrial equipment, such as multi-axis robots, have high fixed "
                  "costs as well as other hidden costs, such as indirect engineering support.");
        Press("cmdType_1");
        EXPECT_EQ(Caption("lblResType"), "MNL");
        EXPECT_EQ(Help(),
                  "Manual assembly workstations typically have a low fixed costs but higher "
                  "variable costs.  Operator downtime can be modeled by setting Stations/Worker "
                  "less than 1.0");
        EXPECT_EQ(Picture(), manual);
        Press("cmdType_1");
        EXPECT_EQ(Caption("lblResType"), "FXD");
        EXPECT_EQ(Help(),
                  "Fixed assembly machines are specially built for a given task.  Enter a fixed "
                  "cost of $0, and price each tool to bear its percentage of the total "
                  "investment.");
        EXPECT_NE(Picture(), manual);
        Press("cmdType_1");
        EXPECT_EQ(Caption("lblResType"), "PGM");
        EXPECT_EQ(Help(),
                  "Programmable machine tools, such as CNC equipment, have high initial fixed "
                  "investment costs, but have much lower variable costs throughout the life cycle "
                  "of the product.");
        Press("cmdOK");
    });
}

TEST_F(frmResource, TheTypeReachesTheStoreWithSaveOrByMovingOn) {
    Start(kThree);
    EditResources([&] {
        Press("cmdType_1");
        EXPECT_EQ(Command("cmdSave").text(), "&Save *");
        EXPECT_EQ(Resources()[0], "1|Ben|Bench|0|3500|1.5|96|1.25|6|0.5");
        Press("cmdRes_1");
        EXPECT_EQ(Resources()[0], "1|Ben|Bench|1|3500|1.5|96|1.25|6|0.5");
        Press("cmdRes_0");
        EXPECT_EQ(Caption("lblResType"), "FXD");
        Press("cmdType_1");
        Key(Qt::Key_Escape);
        EXPECT_EQ(Caption("lblResType"), "FXD");
        Press("cmdType_1");
        Press("cmdSave");
        EXPECT_EQ(Command("cmdSave").text(), "&Save");
        Press("cmdOK");
    });
    EXPECT_EQ(Resources()[0], "1|Ben|Bench|2|3500|1.5|96|1.25|6|0.5");
}

TEST_F(frmResource, TheTypeIsTypedByItsLetterOrSteppedByArrows) {
    Start(kThree);
    EditResources([&] {
        Key(Qt::Key_Y, Qt::AltModifier);
        EXPECT_EQ(Focus(), "picRes");
        for (const char* letter : {"a", "P", "f", "M"}) {
            Keys(letter);
            EXPECT_EQ(Caption("lblResType").substr(0, 1),
                      QString::fromLatin1(letter).toUpper().toStdString());
        }
        Keys("x");
        EXPECT_EQ(Tag(), "0");
        Key(Qt::Key_Right);
        EXPECT_EQ(Tag(), "1");
        Key(Qt::Key_Left);
        Key(Qt::Key_Left);
        EXPECT_EQ(Tag(), "3");
        EXPECT_EQ(Resources()[0].substr(0, 12), "1|Ben|Bench|");
        EXPECT_EQ(Resources()[0].substr(12, 1), "0");
        Key(Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdSave");
        Key(Qt::Key_Return);
        EXPECT_EQ(Resources()[0].substr(12, 1), "3");
        Press("cmdOK");
    });
}

TEST_F(frmResource, ACodeThatIsNoneOfTheFourChangesNothingShown) {
    Start(kThree + std::string("UPDATE Resources SET Type = 7 WHERE ResourceId = 2;"));
    EditResources([&] {
        const QImage manual = Picture();
        Press("cmdRes_1");
        EXPECT_EQ(Tag(), "7");
        EXPECT_EQ(Caption("lblResType"), "MNL");
        EXPECT_EQ(Picture(), manual);
        Press("cmdType_0");
        EXPECT_EQ(Tag(), "6");
        EXPECT_EQ(Caption("lblResType"), "MNL");
        Press("cmdOK");
    });
}

TEST_F(frmResource, NullFieldsShowEmptyBoxes) {
    Start(
        "UPDATE Gen SET Resources = 1;"
        "INSERT INTO Resources VALUES (1, NULL, NULL, 2, NULL, 0, 100, 1, 1, 1);");
    EditResources([&] {
        EXPECT_EQ(Record(), "1|||2||0|100|1|1|1");
        Press("cmdOK");
    });
}

TEST_F(frmResource, AnEmptyTableWaitsForAddNew) {
    Start();
    EditResources([&] {
        EXPECT_EQ(Record(), "|||||||||");
        for (const char* button :
             {"cmdRes_0", "cmdRes_1", "cmdSave", "cmdDelete", "cmdType_0", "cmdType_1"}) {
            EXPECT_FALSE(Command(button).isEnabled()) << button;
        }
        Press("cmdAddNew");
        EXPECT_EQ(Record(), std::string("1") + kDefaults);
        EXPECT_EQ(Caption("lblResType"), "MNL");
        EXPECT_TRUE(Command("cmdType_1").isEnabled());
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre(std::string("1") + kDefaults));
    EXPECT_EQ(Box("txtResources").text(), "1");
}

TEST_F(frmResource, AddNewAppendsTheDefaults) {
    Start(kThree);
    EditResources([&] {
        Press("cmdAddNew");
        EXPECT_EQ(Record(), std::string("4") + kDefaults);
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("Resource 4 of 4"));
        Press("cmdOK");
    });
    EXPECT_EQ(Resources().size(), 4U);
}

TEST_F(frmResource, SaveWritesEveryBox) {
    Start(kThree);
    EditResources([&] {
        Press("cmdRes_1");
        Put("txtResource", "20");
        Put("txtShortName", "New");
        Put("txtDescription", "O'Neill press");
        Put("txtFixedCost", "12,500");
        Put("txtVarCost", "2.25");
        Put("txtUptime", "88");
        Put("txtICF", "1.1");
        Put("txtTCT", "7");
        Put("txtStations", ".5");
        Press("cmdType_1");
        Press("cmdSave");
        EXPECT_EQ(Record(), "20|New|O'Neill press|2|12500|2.25|88|1.1|7|0.5");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre("1|Ben|Bench|0|3500|1.5|96|1.25|6|0.5",
                                         "20|New|O'Neill press|2|12500|2.25|88|1.1|7|0.5",
                                         "3|Rob|Robot|3|80000|9|97|2|3|8"));
}

class NumericBox : public frmResource, public ::testing::WithParamInterface<const char*> {};

TEST_P(NumericBox, RefusesATextThatIsNoNumberAndKeepsEverything) {
    Start(kThree);
    const auto before = Resources();
    EditResources([&] {
        Press("cmdRes_1");
        Put("txtShortName", "Typed");
        Put(GetParam(), "1o");
        const std::string shown = Record();
        Dialogs.Press(QMessageBox::Ok);
        Press("cmdSave");
        EXPECT_EQ(Record(), shown);
        EXPECT_EQ(Focus(), GetParam());
        EXPECT_THAT(Caption("lblInfo"), HasSubstr("Resource 2 of 3"));
        EXPECT_EQ(Resources(), before);
        const auto* box = Form->findChild<QLineEdit*>(GetParam());
        EXPECT_THAT(Dialogs.Seen.back(),
                    AllOf(HasSubstr("critical: " + box->accessibleName().toStdString()),
                          HasSubstr("\"1o\"")));
        Key(Qt::Key_Escape);
        EXPECT_EQ(Shown("txtShortName"), "Prs");
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(Dialogs.Seen.size(), 2U);
    EXPECT_EQ(Resources(), before);
}

INSTANTIATE_TEST_SUITE_P(All, NumericBox,
                         ::testing::Values("txtResource", "txtFixedCost", "txtVarCost", "txtUptime",
                                           "txtICF", "txtTCT", "txtStations"),
                         [](const auto& each) { return std::string(each.param); });

TEST_F(frmResource, DeletingNumbersTheOthersAnewAndLeavesTheMatrixAlone) {
    Start(kThree);
    EditResources([&] {
        Choose("Delete alone");
        Press("cmdDelete");
        EXPECT_EQ(Record(), "1|Prs|Press|1|0|6|90|1.3|2|4");
        EXPECT_EQ(Caption("lblResType"), "FXD");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(),
                ElementsAre("1|Prs|Press|1|0|6|90|1.3|2|4", "2|Rob|Robot|3|80000|9|97|2|3|8"));
    EXPECT_THAT(Matrix(), ElementsAre("1|1|11|1|0", "2|1|12|1|0", "3|1|13|1|0"));
    EXPECT_EQ(Box("txtResources").text(), "2");
}

TEST_F(frmResource, TheOnlyResourceIsResetInsteadOfDeleted) {
    Start("INSERT INTO Resources VALUES (9, 'Rob', 'Robot', 3, 80000, 9, 97, 2, 3, 8);");
    EditResources([&] {
        Press("cmdDelete");
        EXPECT_EQ(Record(), std::string("1") + kDefaults);
        EXPECT_EQ(Caption("lblResType"), "MNL");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre(std::string("1") + kDefaults));
    EXPECT_EQ(Box("txtResources").text(), "1");
}

TEST_F(frmResource, EnterGoesFromBoxToBoxAndEachSelectsItsText) {
    Start(kThree);
    EditResources([&] {
        Part<QLineEdit>("txtResource").setFocus();
        for (const char* box : {"txtResource", "txtDescription", "txtShortName", "txtFixedCost",
                                "txtVarCost", "txtUptime", "txtICF", "txtTCT", "txtStations"}) {
            EXPECT_EQ(Focus(), box);
            EXPECT_EQ(Part<QLineEdit>(box).selectedText().toStdString(), Shown(box));
            Key(Qt::Key_Return);
        }
        EXPECT_EQ(Focus(), "picRes");
        Key(Qt::Key_Return);
        EXPECT_EQ(Focus(), "cmdSave");
        Press("cmdOK");
    });
}

TEST_F(frmResource, ClosingWritesTheCountRebuildsTheArcsAndLeavesChangedAlone) {
    Start(kThree);
    Copy->Open().OpenRecordSet("SELECT * FROM Arcs;").Delete();
    EditResources([&] {
        Press("cmdAddNew");
        EXPECT_EQ(Box("txtResources").text(), "3");
        Key(Qt::Key_Escape);
    });
    EXPECT_EQ(Box("txtResources").text(), "4");
    EXPECT_THAT(Copy->RowsOf("SELECT Resources, Tasks FROM Gen;", 2), ElementsAre("4|1"));
    EXPECT_EQ(Copy->RowsOf("SELECT * FROM Arcs;", 1).size(), 1U);
    EXPECT_FALSE(Window->Current().Changed);
    Window->close();
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Resources"));
}

TEST_F(frmResource, TheHelpComesUpInLines) {
    Start(kThree);
    EditResources([&] {
        auto& picture = Part<QWidget>("picRes");
        QHelpEvent rest(QEvent::ToolTip, {5, 5}, picture.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&picture, &rest);
        EXPECT_THAT(QToolTip::text().toStdString(), HasSubstr("<p>Manual assembly workstations"));
        QToolTip::hideText();
        Press("cmdOK");
    });
}

TEST(TypePictureTest, EveryTypeIsReadableAt16And64Pixels) {
    for (const int edge : {16, 64}) {
        std::vector<QImage> seen;
        for (const auto type : {ResourceType::Manual, ResourceType::Fixed,
                                ResourceType::Programmable, ResourceType::Automated}) {
            TypePicture picture;
            picture.SetPicture(type);
            picture.resize(edge, edge);
            const QImage image = picture.grab().toImage();
            int painted = 0;
            for (int x = 0; x < edge; ++x) {
                for (int y = 0; y < edge; ++y) {
                    painted += image.pixelColor(x, y).lightness() < 160 ? 1 : 0;
                }
            }
            EXPECT_GT(painted, edge * edge / 8) << edge << " " << static_cast<int>(type);
            EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0);
            seen.push_back(image);
        }
    }
}

}  // namespace
}  // namespace quarnel02
