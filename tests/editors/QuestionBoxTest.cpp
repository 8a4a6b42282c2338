// Message boxes and the keys that answer them.
#include <gmock/gmock.h>

#include <QTest>

#include "editors/EditorTest.h"
#include "widgets/Dialogs.h"

namespace quarnel02 {
namespace {

class QuestionBox : public test::EditorTest, public ::testing::WithParamInterface<Answer> {
  protected:
    bool Ask(Answer proposed, const Steps& steps) {
        OnDialog(steps);
        return AskYesNoBox(Window.get(), "Really?", MessageIcon::Question, proposed);
    }
};

TEST_P(QuestionBox, IsNotAnsweredByEscapeOrTheCloseBox) {
    Start();
    const bool yes = Ask(GetParam(), [&] {
        Key(Qt::Key_Escape);
        EXPECT_TRUE(Form->isVisible());
        Form->close();
        EXPECT_TRUE(Form->isVisible());
        Key(Qt::Key_Return);
        EXPECT_FALSE(Form->isVisible());
    });
    EXPECT_EQ(yes, GetParam() == Answer::Yes);
}

TEST_P(QuestionBox, GivesTheOtherAnswerToEnterOnTheOtherButton) {
    Start();
    const bool yes = Ask(GetParam(), [&] {
        Key(Qt::Key_Tab);
        Key(Qt::Key_Enter);
    });
    EXPECT_EQ(yes, GetParam() != Answer::Yes);
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_P(QuestionBox, IsNotAnsweredByAKeyHeldDown) {
    Start();
    const bool yes = Ask(GetParam(), [&] {
        Repeat(Qt::Key_Return);
        Repeat(Qt::Key_Escape);
        EXPECT_TRUE(Form->isVisible());
        Key(Qt::Key_Space);
    });
    EXPECT_EQ(yes, GetParam() == Answer::Yes);
}

INSTANTIATE_TEST_SUITE_P(Proposing, QuestionBox, ::testing::Values(Answer::Yes, Answer::No),
                         [](const auto& each) { return each.param == Answer::Yes ? "Yes" : "No"; });

class MessageBox : public test::EditorTest {};

TEST_F(MessageBox, IsClosedByAPressOfItsOwn) {
    Start();
    OnDialog([&] {
        Repeat(Qt::Key_Return);
        EXPECT_TRUE(Form->isVisible());
        Key(Qt::Key_Return);
    });
    ShowMessageBox(Window.get(), "Look.", MessageIcon::Information);
    OnDialog([&] { Key(Qt::Key_Escape); });
    ShowMessageBox(Window.get(), "Look.", MessageIcon::Information);
    EXPECT_THAT(Dialogs.Seen, ::testing::ElementsAre("information: Look.", "information: Look."));
}

TEST_F(MessageBox, ATypedAnswerIsOneLine) {
    Start();
    OnDialog([&] {
        Part<QLineEdit>("").insert(QStringLiteral("1,200\t\n"));
        Key(Qt::Key_Return);
    });
    EXPECT_EQ(AskTextBox(Window.get(), "How many?", "Demand", ""), "1,200");
}

}  // namespace
}  // namespace quarnel02
