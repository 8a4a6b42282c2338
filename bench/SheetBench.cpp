// The sheet of the matrix offscreen, with 50 tasks and 25 resources: from an event to the painted
// sheet, storing included. The slowest of all events is given beside the mean.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QTabBar>
#include <QTableView>
#include <QWheelEvent>
#include <algorithm>
#include <ctime>
#include <memory>
#include <string>

#include "app/frmMain.h"
#include "basic/Files.h"
#include "commands/InputWatch.h"
#include "editors/frmMatrix.h"
#include "files/ModelFile.h"
#include "generate_model.h"
#include "widgets/SheetView.h"

namespace quarnel02 {
namespace {

constexpr int kTasks = 50;
constexpr int kResources = 25;

/// Milliseconds of an event, on the clock and of the processor. On a busy machine the clock counts
/// other programs' time, too.
struct Cost {
    double Wall = 0;
    double Processor = 0;

    static Cost Now() { return {Clock(CLOCK_MONOTONIC), Clock(CLOCK_PROCESS_CPUTIME_ID)}; }

  private:
    static double Clock(clockid_t which) {
        timespec now{};
        clock_gettime(which, &now);
        return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
    }
};

/// Counts what is painted.
class PaintCount : public QObject {
  public:
    explicit PaintCount(QObject& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        m_paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    [[nodiscard]] int Paints() const { return m_paints; }

  private:
    int m_paints = 0;
};

/// The matrix editor of a generated model with its tab Values in front.
class Desk {
  public:
    Desk() {
        MakeModelFile(m_directory.Path() / "blank.seq", ReadFile(QUARNEL02_SCHEMA_FILE));
        m_window = std::make_unique<frmMain>(m_directory.Path());
        m_window->StartUp();
        MakeModelFile(m_window->Copy().Path(), ReadFile(QUARNEL02_SCHEMA_FILE) +
                                                   GeneratedModelScript(kTasks, kResources, 1));
        m_inputs = std::make_unique<InputWatch>(m_window->Copy().Path());
        m_history = std::make_unique<EditHistory>(m_window->Copy(), *m_inputs);
        m_history->Restart();
        m_matrix = std::make_unique<frmMatrix>(*m_window, *m_history, nullptr);
        m_matrix->LoadMe();
        constexpr QSize screen(1366, 768);
        m_matrix->resize(screen);
        m_matrix->show();
        m_matrix->activateWindow();
        m_matrix->findChild<QTabBar*>("tabMatrix")->setCurrentIndex(1);
        m_sheet = m_matrix->findChild<SheetView*>("grdValues");
        m_sheet->setFocus();
        QCoreApplication::processEvents();
        m_paints = std::make_unique<PaintCount>(*m_sheet->viewport());
    }

    [[nodiscard]] SheetView& Sheet() const { return *m_sheet; }

    /// From the event to the painted sheet.
    template <class Event>
    Cost Painted(benchmark::State& state, const Event& event) {
        const int before = m_paints->Paints();
        const Cost begin = Cost::Now();
        event();
        QCoreApplication::processEvents();
        const Cost end = Cost::Now();
        if (m_paints->Paints() == before) {
            state.SkipWithError("nothing was painted");
        }
        return {end.Wall - begin.Wall, end.Processor - begin.Processor};
    }

    static void Press(int key, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &release);
    }

    void Turn(int steps) const {
        QWidget& viewport = *m_sheet->viewport();
        const QPointF place = viewport.rect().center();
        QWheelEvent turn(place, viewport.mapToGlobal(place), {}, {0, steps}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&viewport, &turn);
    }

  private:
    TemporaryDirectory m_directory;
    std::unique_ptr<frmMain> m_window;
    std::unique_ptr<InputWatch> m_inputs;
    std::unique_ptr<EditHistory> m_history;
    std::unique_ptr<frmMatrix> m_matrix;
    SheetView* m_sheet = nullptr;
    std::unique_ptr<PaintCount> m_paints;
};

/// Times the event on each turn of the benchmark; `turn` counts them.
template <class Event>
void Time(benchmark::State& state, const Event& event) {
    Desk desk;
    double slowest = 0;
    double processor = 0;
    int turn = 0;
    while (state.KeepRunning()) {
        const Cost cost = event(desk, turn++);
        slowest = std::max(slowest, cost.Wall);
        processor += cost.Processor;
        state.SetIterationTime(cost.Wall / 1e3);
    }
    state.counters["slowest_ms"] = slowest;
    state.counters["processor_ms"] = processor / turn;
}

void PageThrough(benchmark::State& state) {
    Time(state, [&](Desk& desk, int turn) {
        const int key = turn % 2 == 0 ? Qt::Key_PageDown : Qt::Key_PageUp;
        return desk.Painted(state, [&] { Desk::Press(key); });
    });
}

void TurnTheWheel(benchmark::State& state) {
    constexpr int notch = 120;
    Time(state, [&](Desk& desk, int turn) {
        const int steps = turn / 5 % 2 == 0 ? -notch : notch;
        return desk.Painted(state, [&] { desk.Turn(steps); });
    });
}

void GoAcross(benchmark::State& state) {
    Time(state, [&](Desk& desk, int turn) {
        const int key = turn / (kResources - 1) % 2 == 0 ? Qt::Key_Right : Qt::Key_Left;
        return desk.Painted(state, [&] { Desk::Press(key); });
    });
}

void TypeALetter(benchmark::State& state) {
    Time(state, [&](Desk& desk, int /*turn*/) {
        const Cost cost = desk.Painted(state, [] { Desk::Press(Qt::Key_7, "7"); });
        Desk::Press(Qt::Key_Escape);
        QCoreApplication::processEvents();
        return cost;
    });
}

void StoreACell(benchmark::State& state) {
    Time(state, [&](Desk& desk, int turn) {
        for (const QChar digit : QString::number(100 + turn)) {
            Desk::Press(Qt::Key_0 + digit.digitValue(), digit);
        }
        QCoreApplication::processEvents();
        const Cost cost = desk.Painted(state, [] { Desk::Press(Qt::Key_Return); });
        if (turn % (kTasks - 1) == kTasks - 2) {
            desk.Sheet().setCurrentIndex(desk.Sheet().model()->index(0, 0));
        }
        return cost;
    });
}

/// 40 tasks on 12 resources.
void Paste480(benchmark::State& state) {
    Time(state, [&](Desk& desk, int turn) {
        QString text;
        for (int cell = 0; cell < 480; ++cell) {
            text += QString::number(10 + (turn + cell) % 90) + QStringLiteral(".5 | 3 | 400");
            text += QLatin1Char(cell % 12 == 11 ? '\n' : '\t');
        }
        QGuiApplication::clipboard()->setText(text);
        desk.Sheet().setCurrentIndex(desk.Sheet().model()->index(0, 0));
        QCoreApplication::processEvents();
        return desk.Painted(state, [&] { desk.Sheet().Paste(); });
    });
}

/// Without a number of iterations the library finds one.
void Register(const char* name, void (*benchmark)(benchmark::State&),
              benchmark::IterationCount iterations = 0) {
    auto* registered = benchmark::RegisterBenchmark(name, benchmark);
    registered->UseManualTime()->Unit(benchmark::kMillisecond);
    if (iterations > 0) {
        registered->Iterations(iterations);
    }
}

}  // namespace

static void RegisterAll() {
    constexpr benchmark::IterationCount stores = 100;
    constexpr benchmark::IterationCount pastes = 30;
    Register("PageThrough", PageThrough);
    Register("TurnTheWheel", TurnTheWheel);
    Register("GoAcross", GoAcross);
    Register("TypeALetter", TypeALetter);
    Register("StoreACell", StoreACell, stores);
    Register("Paste480", Paste480, pastes);
}

}  // namespace quarnel02

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    quarnel02::RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
