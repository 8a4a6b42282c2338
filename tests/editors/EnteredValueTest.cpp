// What the columns of the model take of an entered text, and the boxes that refuse the rest.
#include "commands/EnteredValue.h"

#include <gmock/gmock.h>

#include "editors/MatrixTest.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(EnteredValue, IsConvertedToTheColumn) {
    EXPECT_EQ(EnteredValue("Resources", "FixedCost", " 12,500 ", "Fixed cost"), Value(12500.0));
    EXPECT_EQ(EnteredValue("Matrix", "ToolNum", "3.0", "Tool number"), Value(std::int64_t{3}));
    EXPECT_EQ(EnteredValue("Matrix", "ToolNum", "-3", "Tool number"), Value(std::int64_t{-3}));
    EXPECT_EQ(EnteredValue("Matrix", "TaskTime", "0", "Task time"), Value(0.0));
    EXPECT_EQ(EnteredValue("Resources", "UpTime", "100", "Uptime"), Value(100.0));
    EXPECT_EQ(EnteredValue("Tasks", "TaskId", "32767", "Task number"), Value(std::int64_t{32767}));
    EXPECT_EQ(EnteredValue("Tasks", "Description", " Fit\tseal\n", "Description"),
              Value(std::string(" Fit seal")));
}

struct Refusal {
    const char* Box;
    const char* Text;
    const char* Message;
};

std::string NameOf(const testing::TestParamInfo<Refusal>& each) {
    return std::string(each.param.Box) + "_" + std::to_string(each.index);
}

/// Types the text, presses the button and expects the message, the text selected in its box, and
/// nothing stored; then lets the window be closed.
class RefusedFigure : public test::MatrixTest, public ::testing::WithParamInterface<Refusal> {
  protected:
    void ExpectRefusal(const std::string& button) {
        const auto before = Resources();
        const auto matrix = Matrix();
        Put(GetParam().Box, GetParam().Text);
        Dialogs.Press(QMessageBox::Ok);
        Press(button);
        EXPECT_EQ(Dialogs.Seen.back(), std::string("critical: ") + GetParam().Message);
        EXPECT_EQ(Focus(), GetParam().Box);
        EXPECT_EQ(Selected(), GetParam().Text);
        EXPECT_EQ(Resources(), before);
        EXPECT_EQ(Matrix(), matrix);
    }
};

using RefusedResource = RefusedFigure;

TEST_P(RefusedResource, IsNamedWithItsRange) {
    Start("INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 10, 20, 90, 1, 1, 1);");
    EditResources([&] {
        Put("txtDescription", "Typed");
        ExpectRefusal("cmdSave");
        EXPECT_EQ(Shown("txtDescription"), "Typed");
        Key(Qt::Key_Escape);
        EXPECT_EQ(Shown("txtDescription"), "Bench");
        Key(Qt::Key_Escape);
    });
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedResource,
    ::testing::Values(
        Refusal{"txtUptime", "0", "Uptime is 0 %; it must be above 0 and at most 100."},
        Refusal{"txtUptime", "100.5", "Uptime is 100.5 %; it must be above 0 and at most 100."},
        Refusal{"txtStations", "0", "Stations per worker is 0; it must be above 0."},
        Refusal{"txtFixedCost", "-1", "Fixed cost is -1 $; it must be at least 0."},
        Refusal{"txtVarCost", "-0.5", "Variable cost is -0.5 $/h; it must be at least 0."},
        Refusal{"txtICF", "-1", "Investment factor (ICF) is -1; it must be at least 0."},
        Refusal{"txtTCT", "-1", "Tool change time is -1 s; it must be at least 0."},
        Refusal{"txtResource", "1.5",
                "Resource number is 1.5; it must be a whole number from 1 to 32767."},
        Refusal{"txtResource", "0",
                "Resource number is 0; it must be a whole number from 1 to 32767."},
        Refusal{"txtResource", "32768",
                "Resource number is 32768; it must be a whole number from 1 to 32767."}),
    NameOf);

class RefusedTask : public test::EditorTest {};

TEST_F(RefusedTask, NumberIsNamedWithItsRange) {
    Start("INSERT INTO Tasks VALUES (1, 'Fit');");
    EditTasks([&] {
        for (const char* text : {"0.5", "0", "-1"}) {
            Put("txtTask", text);
            Dialogs.Press(QMessageBox::Ok);
            Press("cmdSave");
            EXPECT_EQ(Dialogs.Seen.back(), std::string("critical: Task number is ") + text +
                                               "; it must be a whole number from 1 to 32767.");
            EXPECT_EQ(Selected(), text);
        }
        Key(Qt::Key_Escape);
        Key(Qt::Key_Escape);
    });
    EXPECT_THAT(Tasks(), ElementsAre("1|Fit"));
}

using RefusedPair = RefusedFigure;

TEST_P(RefusedPair, IsNamedWithItsRange) {
    Start(test::kGrid);
    EditMatrix([&] {
        OnDialog([&] {
            ExpectRefusal("cmdOK");
            EXPECT_TRUE(Form->isVisible());
            Press("cmdCancel");
        });
        Key(Qt::Key_Return);
        Press("cmdCancel");
    });
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedPair,
    ::testing::Values(
        Refusal{"txtTaskInfo_0", "-1", "Task time is -1 s; it must be at least 0."},
        Refusal{"txtTaskInfo_1", "1.5", "Tool number is 1.5; it must be a whole number."},
        Refusal{"txtTaskInfo_1", "32768",
                "Tool number: 32768 is out of range. Enter a value from -32,768 to 32,767."},
        Refusal{"txtTaskInfo_2", "-0.01", "Tool cost is -0.01 $; it must be at least 0."}),
    NameOf);

TEST_F(RefusedTask, FigureOfAForeignFileIsNamedByItsBox) {
    Start("INSERT INTO Resources VALUES (1, 'Ben', 'Bench', 0, 10, 20, 90, 1, 1, 0);");
    EditResources([&] {
        Put("txtDescription", "Typed");
        Dialogs.Press(QMessageBox::Ok);
        Press("cmdSave");
        EXPECT_EQ(Focus(), "txtStations");
        EXPECT_EQ(Shown("txtDescription"), "Typed");
        Put("txtStations", "1");
        Press("cmdSave");
        Press("cmdOK");
    });
    EXPECT_THAT(Resources(), ElementsAre("1|Ben|Typed|0|10|20|90|1|1|1"));
}

TEST_F(RefusedTask, LimitsStandInTheToolTips) {
    Start(test::kGrid);
    const auto expect = [&](const char* box, const char* limits) {
        EXPECT_THAT(Part<QLineEdit>(box).toolTip().toStdString(), HasSubstr(limits));
    };
    const char* const number = "a whole number from 1 to 32767";
    EditTasks([&] {
        expect("txtTask", number);
        Press("cmdOK");
    });
    EditResources([&] {
        expect("txtResource", number);
        expect("txtFixedCost", "at least 0");
        expect("txtVarCost", "at least 0");
        expect("txtUptime", "above 0 and at most 100");
        expect("txtICF", "at least 0");
        expect("txtTCT", "at least 0");
        expect("txtStations", "above 0");
        Press("cmdOK");
    });
    EditMatrix([&] {
        OnDialog([&] {
            expect("txtTaskInfo_0", "at least 0");
            expect("txtTaskInfo_1", "a whole number");
            expect("txtTaskInfo_2", "at least 0");
            Key(Qt::Key_Escape);
        });
        Key(Qt::Key_Return);
        Press("cmdCancel");
    });
}

}  // namespace
}  // namespace quarnel02
