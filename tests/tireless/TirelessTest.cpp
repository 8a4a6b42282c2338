// A tireless user. SEEDS, EVENTS and SEED (the first one) choose how long: a run that fails names
// the seed that repeats it.
#include <gtest/gtest.h>
#include <malloc.h>

#include <QApplication>
#include <QFontDatabase>
#include <QPixmapCache>
#include <algorithm>
#include <iostream>
#include <numeric>
#include <span>
#include <vector>

#include "support/Measured.h"
#include "support/Surroundings.h"
#include "tireless/TirelessWalk.h"

namespace quarnel02 {
namespace {

int Given(const char* variable, int otherwise) {
    return qEnvironmentVariableIsSet(variable) ? qEnvironmentVariableIntValue(variable) : otherwise;
}

/// What each run must have seen, whatever its seeds: kinds of events as the walk counts them.
constexpr std::array kMustBeReached = {"in frmTask",
                                       "in frmResource",
                                       "in frmMatrix",
                                       "in frmFile",
                                       "in QFileDialog",
                                       "in message",
                                       "in menu",
                                       "in frmStudy",
                                       "in QInputDialog",
                                       "stochastic design",
                                       "action mnuFileNew",
                                       "action mnuFileOpen",
                                       "action mnuFileSave",
                                       "action mnuFileSaveAs",
                                       "action mnuFileImport",
                                       "action mnuFileExportXlsx",
                                       "action mnuFileExportCsv",
                                       "action mnuFileReportPdf",
                                       "action mnuFileExit",
                                       "action mnuEditUndo",
                                       "restart",
                                       "wrote .mdb",
                                       "paste",
                                       "clipboard killed",
                                       "type",
                                       "cell",
                                       "undone steps"};

constexpr int kShort = 1000;  // events in all

/// What a long one must have seen too.
constexpr int kLong = 10'000;
constexpr std::array kMustBeReachedInTime = {"in frmTRInfo",
                                             "in frmGuide",
                                             "in QPrintPreviewDialog",
                                             "fixed design",
                                             "action mnuEditRedo",
                                             "entry of mnuFileRecover",
                                             "entry of mnuFileExamples",
                                             "report opened",
                                             "wrote .xlsx",
                                             "wrote .csv",
                                             "wrote .pdf",
                                             "wrote .svg",
                                             "context menu",
                                             "step Import",
                                             "step Paste",
                                             "step Add",
                                             "step Delete",
                                             "step Move",
                                             "step Duplicate",
                                             "step Clear"};

/// What the toolkit has to say, but for what this platform cannot do.
void Tell(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith(QLatin1String("This plugin does not support"))) {
        std::cerr << message.toStdString() << std::endl;
    }
}

constexpr double kMegabyte = 1e6;
/// The toolkit's caches fill up in the first walks, and then no more; with a window
/// gone nothing of its model stays.
constexpr double kMostHeap = 30 * kMegabyte;

/// Bytes of the heap in use; 0 under a sanitizer, which looks for leaks itself.
double Heap() {
    return static_cast<double>(mallinfo2().uordblks);
}

double MeanOf(std::span<const double> heaps) {
    return std::accumulate(heaps.begin(), heaps.end(), 0.0) / static_cast<double>(heaps.size());
}

/// Walk after walk, the heap takes no more in the last quarter of a long run than in the second:
/// what a window leaves behind would add up.
void ExpectNoGrowth(std::span<const double> heaps) {
    constexpr std::size_t long_run = 16;
    constexpr double noise = 4 * kMegabyte;
    const std::size_t quarter = heaps.size() / 4;
    if (heaps.size() >= long_run) {
        EXPECT_LT(MeanOf(heaps.last(quarter)), MeanOf(heaps.subspan(quarter, quarter)) + noise);
    }
}

class Tireless : public ::testing::Test {
  protected:
    Tireless() {
        qputenv("HOME", m_home.Path().c_str());
        qInstallMessageHandler(Tell);
    }

    void Walk(unsigned seed, int events) {
        test::TirelessWalk walk(seed);
        walk.Run(events);
        for (const std::string& promise : walk.Broken()) {
            ADD_FAILURE() << promise;
        }
        if (HasFailure()) {
            std::cerr << "Repeat with SEED=" << seed << " SEEDS=1 EVENTS=" << events
                      << "; the last of " << walk.Events() << " events:\n"
                      << walk.LastEvents();
        }
        for (const auto& [what, often] : walk.Reached()) {
            m_reached[what] += often;
        }
    }

    template <class Kinds>
    void ExpectReached(const Kinds& kinds) {
        for (const char* what : kinds) {
            EXPECT_GT(m_reached[what], 0) << what;
        }
    }

    void TellReached() const {
        for (const auto& [what, often] : m_reached) {
            std::cout << often << "\t" << what << "\n";
        }
    }

    std::map<std::string, int> m_reached;

  private:
    test::OrdinaryUser m_nobody;  // who can write nowhere else
    TemporaryDirectory m_home;
};

TEST_F(Tireless, NothingIsLostAndNothingGrows) {
    const int seeds = Given("SEEDS", 4);
    const int events = Given("EVENTS", 250);
    const int first = Given("SEED", 1);
    std::vector<double> heaps;
    for (int i = 0; i < seeds && !HasFailure(); ++i) {
        Walk(static_cast<unsigned>(first + i), events);
        QPixmapCache::clear();  // bounded, and filled by each new window
        const double heap = heaps.emplace_back(Heap());
        EXPECT_LT(heap, kMostHeap) << "after seed " << first + i;
        if (qEnvironmentVariableIsSet("SEEDS")) {
            std::cout << "seed " << first + i << ", " << heap / kMegabyte << " MB" << std::endl;
        }
    }
    if (HasFailure()) {
        return;
    }
    ExpectNoGrowth(heaps);
    TellReached();
    if (seeds * events >= kShort) {
        ExpectReached(kMustBeReached);
    }
    if (seeds * events >= kLong) {
        ExpectReached(kMustBeReachedInTime);
    }
}

}  // namespace
}  // namespace quarnel02
