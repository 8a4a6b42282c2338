// The whole program on an X server, driven by the keyboard alone.
#include <gmock/gmock.h>

#include <QDir>
#include <QProcess>
#include <QTest>

#include "app/Screen.h"
#include "basic/Files.h"
#include "model/Database.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

const fs::path kPrograms = QUARNEL02_PROGRAMS;

/// A portable folder: the program and its template, a model beside them, and a text editor that
/// only notes what it was asked to open.
class EndToEnd : public ::testing::Test {
  protected:
    explicit EndToEnd(test::WindowManager manager = test::WindowManager::None) : Display(manager) {
        fs::create_directory(Folder / "tools");
        fs::copy_file(kPrograms / "quarnel02", Folder / "quarnel02");
        fs::copy_file(kPrograms / "blank.seq", Folder / "blank.seq");
        fs::copy_file(kPrograms / "examples" / "pump.mdb", Folder / "pump.mdb");
        WriteFile(Folder / "tools" / "notepad.exe",
                  "#!/bin/sh\nprintf '%s\\n' \"$1\" >> '" + Notes().string() + "'\n");
        fs::permissions(Folder / "tools" / "notepad.exe", fs::perms::owner_all);
    }

    ~EndToEnd() override {
        Program.kill();
        Program.waitForFinished();
    }

    void Start(QProcess& program, const QStringList& arguments = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("DISPLAY", Display.Display());
        environment.insert("QT_QPA_PLATFORM", "xcb");
        environment.insert("LSAN_OPTIONS", "print_suppressions=0:suppressions=" QUARNEL02_LEAKS);
        environment.insert("HOME", QString::fromStdString(Folder.string()));
        environment.insert("PATH", QString::fromStdString((Folder / "tools").string()) + ":" +
                                       environment.value("PATH"));
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(QString::fromStdString(Folder.string()));
        program.start(QString::fromStdString((Folder / "quarnel02").string()), arguments);
        ASSERT_TRUE(program.waitForStarted());
    }

    /// The splash goes with the first key.
    void StartAndOpenPump() {
        Start(Program);
        ASSERT_TRUE(Display.Focus("^Quarnel02$"));
        Display.Key("ctrl+o");
        ASSERT_TRUE(Display.Focus("^Select a file to open"));
        EXPECT_FALSE(Display.Shows("^Welcome"));
        Display.Type("pump");
        Display.Key("Return");
        ASSERT_TRUE(Display.Focus("^pump.mdb - Quarnel02$"));
    }

    void Solve(int shifts) {
        const auto opened = NotesTaken();
        ASSERT_TRUE(Display.Focus("^pump.mdb - Quarnel02$"));
        Display.Key("alt+" + std::to_string(shifts));
        ASSERT_TRUE(Display.Focus("^Fixed Demand$"));
        Display.Type("60000");
        Display.Key("Return");
        ASSERT_TRUE(Display.Focus("^Quarnel02$"));
        Display.Key("alt+n");
        ASSERT_TRUE(test::WaitUntil([&] { return NotesTaken() != opened; }));
    }

    [[nodiscard]] static std::string BatchReport(const fs::path& model, int shifts) {
        const auto run =
            test::RunProgram({(kPrograms / "quarnel02-solve").string(), model.string(), "--shifts",
                              std::to_string(shifts), "--demand", "60000"});
        EXPECT_EQ(run.Status, 0) << run.Err;
        return run.Out;
    }

    void Keep(const std::string& name) const {
        const QString directory = QStringLiteral(QUARNEL02_SCREENSHOTS);
        QDir().mkpath(directory);
        EXPECT_TRUE(Display.Image().save(directory + "/end-to-end-" + QString::fromStdString(name) +
                                         ".png"));
    }

    [[nodiscard]] fs::path Notes() const { return Folder / "opened.txt"; }
    [[nodiscard]] std::string NotesTaken() const {
        return fs::exists(Notes()) ? ReadFile(Notes()) : "";
    }

    TemporaryDirectory Place;
    fs::path Folder = Place.Path();
    test::Screen Display;
    QProcess Program;
};

TEST_F(EndToEnd, DesignsThePumpLineSavesAndQuits) {
    StartAndOpenPump();
    for (const int shifts : {1, 2, 3}) {
        Solve(shifts);
        const std::string report = ReadFile(Folder / "RunRpt.txt");
        EXPECT_EQ(report, BatchReport(kPrograms / "examples" / "pump.mdb", shifts));
        EXPECT_THAT(report, HasSubstr("# of Shifts: " + std::to_string(shifts)));
    }
    const std::string opened = (Folder / "RunRpt.txt").string() + "\n";
    EXPECT_EQ(NotesTaken(), opened + opened + opened);

    ASSERT_TRUE(Display.Focus("^pump.mdb - Quarnel02$"));
    Keep("solved");
    Display.Key("alt+y");
    Display.Type("200");
    Display.Key("ctrl+s");
    Display.Key("ctrl+q");
    ASSERT_TRUE(test::WaitUntil(
        [&] { return Program.waitForFinished(0) || Program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(Program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(Program.exitCode(), 0);
    const Database saved = Database::Open(Folder / "pump.mdb");
    EXPECT_EQ(saved.OpenRecordSet("SELECT Days FROM Gen;").Number("Days"), 200);
}

/// Ends by itself, with that status.
void ExpectEnd(QProcess& program, int status) {
    ASSERT_TRUE(test::WaitUntil(
        [&] { return program.waitForFinished(0) || program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), status);
}

TEST_F(EndToEnd, ASecondStartHandsItsFileToTheFirst) {
    fs::copy_file(kPrograms / "examples" / "gunther.mdb", Folder / "gunther.mdb");
    StartAndOpenPump();
    QProcess second;
    Start(second);
    ExpectEnd(second, 0);
    EXPECT_TRUE(Display.Shows("^pump.mdb - Quarnel02$"));
    Start(second, {QStringLiteral("gunther.mdb")});
    ExpectEnd(second, 0);
    EXPECT_TRUE(Display.Focus("^gunther.mdb - Quarnel02$"));
    EXPECT_EQ(Program.state(), QProcess::Running);
}

TEST_F(EndToEnd, ASecondStartSaysWhatTheFirstCannotOpenNow) {
    StartAndOpenPump();
    Display.Key("ctrl+o");
    ASSERT_TRUE(Display.Focus("^Select a file to open"));
    QProcess second;
    Start(second, {QStringLiteral("pump.mdb")});
    ASSERT_TRUE(Display.Focus("^Quarnel02$"));
    Keep("second-start");
    Display.Key("Return");
    ExpectEnd(second, 1);
    EXPECT_EQ(Program.state(), QProcess::Running);
    EXPECT_TRUE(Display.Shows("^Select a file to open"));
}

/// As a file manager starts it, and as a shell does.
TEST_F(EndToEnd, BeginsWithTheModelThatItIsGiven) {
    Start(Program, {QStringLiteral("pump.mdb")});
    ASSERT_TRUE(Display.Focus("^pump.mdb - Quarnel02$"));
    Keep("started-with-a-model");
    EXPECT_EQ(ReadFile(Folder / "Marrowgate.cfg"), (Folder / "pump.mdb").string() + "\n");
}

TEST_F(EndToEnd, TakesNoOptionForAFile) {
    Start(Program, {QStringLiteral("--nonsense")});
    ASSERT_TRUE(Program.waitForFinished());
    EXPECT_EQ(Program.exitCode(), 1);
    EXPECT_THAT(Program.readAllStandardError().toStdString(), HasSubstr("Usage: quarnel02 [FILE]"));
}

/// The year's days in a model; 0 while it cannot be read.
double DaysIn(const fs::path& model) {
    try {
        return Database::Open(model).OpenRecordSet("SELECT Days FROM Gen;").Number("Days");
    } catch (const std::exception&) {
        return 0;
    }
}

TEST_F(EndToEnd, KilledAtAnyMomentOfItsStartItStartsAgain) {
    for (const int milliseconds : {0, 20, 40, 80, 160, 320}) {
        Start(Program);
        QTest::qWait(milliseconds);
        Program.kill();
        ASSERT_TRUE(Program.waitForFinished());
    }
    StartAndOpenPump();
    EXPECT_FALSE(fs::exists(Folder / "Recovered"));
}

TEST_F(EndToEnd, KilledAtWorkItOffersThatWorkAtTheNextStart) {
    StartAndOpenPump();
    Display.Key("alt+y");
    Display.Type("200");
    Display.Key("Return");
    ASSERT_TRUE(test::WaitUntil([&] { return DaysIn(Folder / "working.seq") == 200; }));
    Program.kill();
    ASSERT_TRUE(Program.waitForFinished());

    Start(Program);
    ASSERT_TRUE(test::WaitUntil([&] { return fs::exists(Folder / "Recovered"); }));
    ASSERT_TRUE(Display.Focus("^Quarnel02$"));
    EXPECT_NE(DaysIn(Folder / "working.seq"), 200) << "loaded before anybody said so";
    Display.Key("Return");
    ASSERT_TRUE(test::WaitUntil([&] { return DaysIn(Folder / "working.seq") == 200; }));
    EXPECT_NE(DaysIn(Folder / "pump.mdb"), 200);
    EXPECT_EQ(Program.state(), QProcess::Running);
}

class UnderOpenbox : public EndToEnd {
  protected:
    UnderOpenbox() : EndToEnd(test::WindowManager::Openbox) {}

    /// Presses the key until the window shows, a few times: the window manager may still be giving
    /// the keyboard to the window that is to hear it.
    bool KeyShows(const std::string& key, const std::string& title) {
        constexpr int most_presses = 3;
        constexpr int looks = 100;
        for (int press = 0; press < most_presses; ++press) {
            Display.Key(key);
            for (int look = 0; look < looks; ++look) {
                if (Display.Shows(title)) {
                    return true;
                }
                QTest::qWait(20);
            }
        }
        return false;
    }
};

/// On a busy machine the splash may be gone before anyone can click on it; the click then goes to
/// the middle of the main window, and the keyboard must work all the same.
TEST_F(UnderOpenbox, AClickOnTheSplashLeavesTheKeyboardToTheMainWindow) {
    Start(Program);
    ASSERT_TRUE(test::WaitUntil(
        [&] { return Display.Shows("^Welcome to Quarnel02$") || Display.Shows("^Quarnel02$"); }));
    // On the splash, and beside the links of the window that it gives way to.
    Display.Tool({"mousemove", "530", "500", "click", "1"});
    ASSERT_TRUE(test::WaitUntil(
        [&] { return Display.Shows("^Quarnel02$") && !Display.Shows("^Welcome to Quarnel02$"); }));
    EXPECT_FALSE(Display.Shows("^Select a file to open"));
    EXPECT_TRUE(KeyShows("ctrl+o", "^Select a file to open"));
}

/// Keeps a solve busy for seconds.
void LengthenModel(const fs::path& file, int tasks) {
    const Database model = Database::Open(file);
    RecordSet gen = model.OpenRecordSet("SELECT * FROM Gen;");
    const int before = static_cast<int>(gen.Number("Tasks"));
    gen.Edit();
    gen.Set("Tasks", tasks);
    gen.Update();
    RecordSet list = model.OpenRecordSet("SELECT * FROM Tasks;");
    RecordSet matrix = model.OpenRecordSet("SELECT * FROM Matrix;");
    Transaction transaction(model);
    for (int task = before + 1; task <= tasks; ++task) {
        list.AddNew();
        list.Set("TaskId", task);
        list.Update();
        matrix.AddNew();
        matrix.Set("ResourceId", 1);
        matrix.Set("TaskId", task);
        matrix.Set("TaskTime", 1);
        matrix.Update();
    }
    transaction.Commit();
}

/// The stochastic design writes a run file for each of many arcs, which no machine does in a
/// moment.
TEST_F(UnderOpenbox, AShortCutTypedDuringASolveNeverRuns) {
    LengthenModel(Folder / "pump.mdb", 60);
    StartAndOpenPump();
    Display.Key("alt+s");
    ASSERT_TRUE(test::WaitUntil([&] { return Display.Shows("^Quarnel02$"); }))
        << "the status window never appeared";
    Display.Key("ctrl+n");
    ASSERT_TRUE(NotesTaken().empty()) << "the design ended before the short cut was typed";
    ASSERT_TRUE(test::WaitUntil([&] { return !NotesTaken().empty(); }));
    EXPECT_FALSE(Program.waitForFinished(500));
    EXPECT_TRUE(Display.Shows("^pump.mdb - Quarnel02$"));

    EXPECT_TRUE(KeyShows("ctrl+n", "^Quarnel02$"));
}

}  // namespace
}  // namespace quarnel02
