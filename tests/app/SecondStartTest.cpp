// What a second start of the program hands to the one that runs.
#include "app/SecondStart.h"

#include <gmock/gmock.h>

#include <QTest>
#include <thread>

#include "app/OnShow.h"
#include "app/WindowTest.h"
#include "basic/Files.h"
#include "files/ModelFile.h"
#include "support/ModelScript.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

/// Hands over from a thread, as another program would, while this one handles its events.
HandedOver HandOverTo(const fs::path& directory, const fs::path& file) {
    std::atomic<bool> done = false;
    HandedOver answer = HandedOver::NoAnswer;
    std::thread other([&] {
        answer = HandOver(directory, file);
        done = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return done.load(); }, 20000));
    other.join();
    return answer;
}

struct SecondStart : ::testing::Test {
    TemporaryDirectory Place;
    std::vector<std::string> Files;
    bool Free = true;
    SecondStarts::Take Take = [this](const fs::path& file) {
        Files.push_back(file.string());
        return Free;
    };
};

TEST_F(SecondStart, HandsItsFileOver) {
    const SecondStarts first(Place.Path(), Take);
    const std::string name = "/a b/pümp, \n2.mdb";
    EXPECT_EQ(HandOverTo(Place.Path(), name), HandedOver::Taken);
    EXPECT_EQ(HandOverTo(Place.Path(), {}), HandedOver::Taken);
    EXPECT_THAT(Files, ElementsAre(name, ""));
}

TEST_F(SecondStart, IsToldThatTheFirstIsBusy) {
    const SecondStarts first(Place.Path(), Take);
    Free = false;
    EXPECT_EQ(HandOverTo(Place.Path(), "/line.mdb"), HandedOver::Refused);
}

TEST_F(SecondStart, GetsNoAnswerFromNobody) {
    EXPECT_EQ(HandOverTo(Place.Path(), "/line.mdb"), HandedOver::NoAnswer);
    { const SecondStarts gone(Place.Path(), Take); }
    EXPECT_EQ(HandOverTo(Place.Path(), "/line.mdb"), HandedOver::NoAnswer);
    EXPECT_THAT(Files, ElementsAre());
}

/// A program that crashed leaves its socket.
TEST_F(SecondStart, ReplacesTheSocketOfAProgramThatIsGone) {
    WriteFile(Place.Path() / "quarnel02.socket", "");
    const SecondStarts first(Place.Path(), Take);
    EXPECT_EQ(HandOverTo(Place.Path(), "/line.mdb"), HandedOver::Taken);
}

TEST_F(SecondStart, AFarTooLongPathIsNoAnswer) {
    const fs::path deep = Place.Path() / std::string(150, 'x');
    fs::create_directory(deep);
    const SecondStarts first(deep, Take);
    EXPECT_EQ(HandOverTo(deep, "/line.mdb"), HandedOver::NoAnswer);
}

class OpenAnother : public test::WindowTest {
  protected:
    void StartBesideALine() {
        test::ModelScript model = test::WorkedExample();
        model.Demand = {{100000, 50}, {200000, 50}};
        Start(model.Sql());
        MakeModelFile(Line(), ReadFile(QUARNEL02_SCHEMA_FILE) + "UPDATE Gen SET Product = 'Pump';");
    }
    [[nodiscard]] fs::path Line() const { return Copy->File("line.mdb"); }
};

TEST_F(OpenAnother, OpensTheFileAndComesToTheFront) {
    StartBesideALine();
    Window->showMinimized();
    EXPECT_TRUE(Window->OpenAnother(Line()));
    EXPECT_EQ(Title(), "Quarnel02") << "it is opened while the other program waits";
    EXPECT_FALSE(Window->isMinimized());
    EXPECT_TRUE(QTest::qWaitFor([this] { return Title() == "line.mdb - Quarnel02"; }));
    EXPECT_EQ(Box("txtProduct").text(), "Pump");
}

TEST_F(OpenAnother, AsksToSaveFirst) {
    StartBesideALine();
    Type("txtDays", "199");
    Dialogs.Press(QMessageBox::No);
    EXPECT_TRUE(Window->OpenAnother(Line()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Title() == "line.mdb - Quarnel02"; }));
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

TEST_F(OpenAnother, OnlyComesToTheFrontWithoutAFile) {
    StartBesideALine();
    EXPECT_TRUE(Window->OpenAnother({}));
    QTest::qWait(20);
    EXPECT_EQ(Title(), "Quarnel02");
}

TEST_F(OpenAnother, RefusesUnderADialogAndDuringASolve) {
    StartBesideALine();
    std::vector<bool> taken;
    Dialogs.Add([&](QDialog& dialog) {
        taken.push_back(Window->OpenAnother(Line()));
        dialog.reject();
    });
    Item("mnuHelpAbout").trigger();
    const test::OnShow meddler("quarnel02::frmStatus",
                               [&](QWidget&) { taken.push_back(Window->OpenAnother(Line())); });
    Click("cmdStoch");
    QTest::qWait(20);
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_THAT(taken, ElementsAre(false, false));
    EXPECT_EQ(Title(), "Quarnel02");
}

}  // namespace
}  // namespace quarnel02
