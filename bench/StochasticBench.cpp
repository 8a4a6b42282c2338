// The design for a demand distribution of 5 points on generated models of three sizes: the whole
// run with its run files, and the same recurrences on tables in memory as the bare limit.
// Arguments of each benchmark: tasks, resources.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>
#include <utility>
#include <vector>

#include "BenchForm.h"
#include "basic/Files.h"
#include "fixed/LoadModel.h"
#include "generate_model.h"
#include "model/ModelFile.h"
#include "shell/Demand.h"
#include "shell/LoadLineModel.h"
#include "stoch/AddCurves.h"
#include "stoch/BuildDemandTable.h"
#include "stoch/BuildFinalTable.h"
#include "stoch/BuildShiftTable.h"
#include "stoch/LoadStochData.h"
#include "stoch/MergeCurves.h"
#include "stoch/ResourceCurve.h"
#include "stoch/cmdStoch.h"

namespace quarnel02 {
namespace {

using Clock = std::chrono::steady_clock;

/// A curve in memory, walked and written like one in a file.
template <class Segment>
using Table = std::vector<Segment>;

template <class Segment>
class TableReader {
  public:
    using SegmentType = Segment;

    explicit TableReader(const Table<Segment>& table) : m_table(table) {}
    [[nodiscard]] bool AtEnd() const { return m_at == m_table.size(); }
    [[nodiscard]] const Segment& Current() const { return m_table[m_at]; }
    [[nodiscard]] int Number() const { return static_cast<int>(m_at) + 1; }
    void Advance() { ++m_at; }
    void AdvancePast(float volume) { m_at += Current().SegEnd <= volume ? 1U : 0U; }

  private:
    const Table<Segment>& m_table;
    std::size_t m_at = 0;
};

template <class Segment>
struct TableWriter {
    Table<Segment> Segments;
    void Write(const Segment& segment) { Segments.push_back(segment); }
};

template <class Segment, class Key>
void MergeInto(Table<Segment>& table, const Table<Segment>& other, Key key) {
    if (table.empty()) {
        table = other;
        return;
    }
    TableReader<Segment> first(table);
    TableReader<Segment> second(other);
    TableWriter<Segment> output;
    CurveMerge(first, second, output, key).Run();
    table = std::move(output.Segments);
}

/// Cheapest resource of an arc at every volume.
Table<ArcSegment> ArcTable(const StochRun& run, const ExpectedProduction& production,
                           const ExpectedShifts& shifts, int start, int end) {
    Table<ArcSegment> table;
    for (int resource = 1; resource <= run.Resources; ++resource) {
        if (const auto content = ContentOfArc(run, resource, start, end)) {
            TableWriter<ArcSegment> curve;
            ResourceCurve(run, production, shifts, resource, *content).Write(curve);
            MergeInto(table, curve.Segments, [](double cost) { return cost; });
        }
    }
    return table;
}

/// The recurrences over task prefixes; the last table has no penalties added.
Table<DesignSegment> FinalTable(const StochRun& run) {
    const ExpectedProduction production(run.Files);
    const ExpectedShifts shifts(run.Files);
    std::vector<Table<DesignSegment>> finals(1);
    for (int end = 1; end <= run.Tasks; ++end) {
        Table<DesignSegment> best;
        for (int start = 1; start <= end; ++start) {
            const auto arcs = ArcTable(run, production, shifts, start, end);
            TableWriter<DesignSegment> designs;
            if (start == 1) {
                for (const ArcSegment& arc : arcs) {
                    designs.Write(WithArc(arc, 0));
                }
            } else {
                TableReader<ArcSegment> arc(arcs);
                TableReader<DesignSegment> prefix(finals[static_cast<std::size_t>(start - 1)]);
                AddCurves(arc, prefix, start - 1, designs);
            }
            MergeInto(best, designs.Segments, ComparedCost);
        }
        finals.push_back(std::move(best));
    }
    return finals.back();
}

/// A loaded generated model in a directory of its own.
struct LoadedModel {
    LoadedModel(int tasks, int resources) : Form(Directory.Path()) {
        MakeModelFile(Form.InApplicationDirectory("working.seq"),
                      ReadFile(QUARNEL02_SCHEMA_FILE) + GeneratedModelScript(tasks, resources, 1));
        LoadModel(Form);
        ListDemand(Form);
    }

    TemporaryDirectory Directory;
    bench::BenchForm Form;
};

double BareSeconds(LoadedModel& model) {
    model.Form.OpenWorkingCopy();
    StochRun run(model.Form);
    LoadStochData(run);
    run.Parameters = LoadLineModel(model.Form.Model).Parameters();
    BuildDemandTable(run);
    BuildShiftTable(run);
    const auto start = Clock::now();
    benchmark::DoNotOptimize(FinalTable(run));
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    run.Files.DeleteAll();
    return seconds;
}

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void StochasticSolve(benchmark::State& state) {
    LoadedModel model(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    double solving = 0;
    while (state.KeepRunning()) {
        const auto start = Clock::now();
        cmdStoch_Click(model.Form);
        solving += std::chrono::duration<double>(Clock::now() - start).count();
    }
    state.counters["peak_MB"] = PeakMegabytes();

    double files = 0;
    double bytes = 0;
    cmdStoch_Click(model.Form, {.RunFile =
                                    [&](const std::filesystem::path& file) {
                                        ++files;
                                        bytes +=
                                            static_cast<double>(std::filesystem::file_size(file));
                                    },
                                .Summary = {}});
    const double bare = BareSeconds(model);
    state.counters["run_files"] = files;
    state.counters["run_MB"] = bytes / 1e6;
    state.counters["bare_ms"] = bare * 1e3;
    state.counters["ratio"] = solving / static_cast<double>(state.iterations()) / bare;
}

BENCHMARK(StochasticSolve)
    ->ArgNames({"tasks", "resources"})
    ->Args({12, 6})
    ->Args({20, 10})
    ->Args({50, 25})
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

}  // namespace
}  // namespace quarnel02
