// The desktop program offscreen: from the start of the process to a painted, usable window, and
// from a press of "1 Shift" on a generated model of 20 tasks and 10 resources to everything
// drawn and the report written; and dragging a large network.

#include <benchmark/benchmark.h>
#include <unistd.h>
#include <ctime>

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>
#include <memory>
#include <sstream>
#include <string>

#include "app/frmMain.h"
#include "basic/Files.h"
#include "commands/FileCommands.h"
#include "files/ModelFile.h"
#include "generate_model.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

/// Answers the questions of a solve and opens no report.
class BenchWindow : public frmMain {
  public:
    using frmMain::frmMain;
    bool AskYesNo(const std::string& /*question*/, MessageIcon /*icon*/,
                  Answer /*proposed*/) override {
        return false;
    }
    std::string InputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                         const std::string& /*proposal*/) override {
        return "60000";
    }
    void StartProgram(const std::string& /*commandLine*/) override {}
};

/// Seconds since this process was started, to a hundredth.
double SecondsSinceProcessStart() {
    constexpr int start_time_field = 22;
    std::istringstream fields(ReadFile("/proc/self/stat"));
    std::string field;
    for (int i = 0; i < start_time_field; ++i) {
        fields >> field;
    }
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double started = std::stod(field) / static_cast<double>(sysconf(_SC_CLK_TCK));
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9 - started;
}

/// Milliseconds that this thread has worked, whatever else the machine does.
double WorkedMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// A shown and painted main window in an application directory of its own.
struct Desk {
    Desk() {
        MakeModelFile(Directory.Path() / "blank.seq", ReadFile(QUARNEL02_SCHEMA_FILE));
        Window = std::make_unique<BenchWindow>(Directory.Path());
        Window->StartUp();
        Window->show();
        QCoreApplication::processEvents();
    }

    void LoadGenerated(int tasks, int resources) const {
        MakeModelFile(Window->Copy().Path(),
                      ReadFile(QUARNEL02_SCHEMA_FILE) + GeneratedModelScript(tasks, resources, 1));
        Window->RunEvent([this] { ShowLoadedModel(*Window); });
        QCoreApplication::processEvents();
    }

    TemporaryDirectory Directory;
    std::unique_ptr<BenchWindow> Window;
};

/// Measured once, by main, before the benchmarks begin.
double& StartToWindowSeconds() {
    static double seconds = 0;
    return seconds;
}

void StartToWindow(benchmark::State& state) {
    while (state.KeepRunning()) {
        state.SetIterationTime(StartToWindowSeconds());
    }
}

void PressOneShift(benchmark::State& state) {
    const Desk desk;
    desk.LoadGenerated(20, 10);
    auto* button = desk.Window->findChild<QPushButton*>("cmdContinuous_1");
    while (state.KeepRunning()) {
        button->click();
        QCoreApplication::processEvents();
    }
}

/// Counts how often a widget is painted.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QWidget& watched) { watched.installEventFilter(this); }
    [[nodiscard]] int Paints() const { return m_paints; }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        m_paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

  private:
    int m_paints = 0;
};

/// One step of dragging the enlarged network on a large screen, from the pointer's move to the
/// painted box; QT_SCALE_FACTOR=2 measures it at twice the resolution. Every step must paint.
void DragNetworkOf50Tasks(benchmark::State& state) {
    constexpr QSize screen(1920, 1080);
    constexpr int reach = 1500;  ///< beyond what is painted round the box
    const Desk desk;
    desk.Window->resize(screen / desk.Window->devicePixelRatioF());
    desk.LoadGenerated(50, 10);
    auto* box = desk.Window->findChild<PictureBox*>("picArc");
    const PaintCount count(*box->viewport());
    const QPoint middle = box->viewport()->rect().center();
    box->SetZoom(4, middle);
    QCoreApplication::processEvents();
    const auto send = [&](QEvent::Type type, QPoint at) {
        QMouseEvent event(type, at, box->viewport()->mapToGlobal(at), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box->viewport(), &event);
    };
    send(QEvent::MouseButtonPress, middle);
    double worst = 0;
    double most_work = 0;
    int step = 0;
    while (state.KeepRunning()) {
        const int painted = count.Paints();
        QElapsedTimer clock;
        clock.start();
        const double begun = WorkedMilliseconds();
        const int way = ++step * 7 % (2 * reach) - reach;
        send(QEvent::MouseMove, middle + QPoint(way, way / 4));
        QCoreApplication::processEvents();
        worst = std::max(worst, static_cast<double>(clock.nsecsElapsed()) / 1e6);
        most_work = std::max(most_work, WorkedMilliseconds() - begun);
        if (count.Paints() == painted) {
            state.SkipWithError("a step of the drag painted nothing");
            break;
        }
    }
    state.counters["worst_ms"] = worst;
    state.counters["worst_cpu_ms"] = most_work;
}

BENCHMARK(DragNetworkOf50Tasks)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(StartToWindow)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(PressOneShift)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quarnel02

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    {
        const quarnel02::Desk desk;
        quarnel02::StartToWindowSeconds() = quarnel02::SecondsSinceProcessStart();
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
