// The fixed-demand design on generated models of three sizes: the whole solve from the button to
// the written report, its stages, and the same pathways costed and searched in memory as the
// bare limit. Arguments of each benchmark: tasks, resources.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <chrono>
#include <optional>

#include "BenchForm.h"
#include "basic/Files.h"
#include "basic/Numbers.h"
#include "fixed/CostPathways.h"
#include "fixed/DrawLinks.h"
#include "fixed/FindBestPath.h"
#include "fixed/GeneratePathways.h"
#include "fixed/LoadModel.h"
#include "fixed/WriteSolutionSummary.h"
#include "fixed/cmdContinuous.h"
#include "generate_model.h"
#include "line/CheapestLine.h"
#include "model/ModelFile.h"
#include "shell/LoadLineModel.h"

namespace quarnel02 {
namespace {

constexpr std::int16_t kShifts = 2;
/// The demand is asked for, not taken from the model's list.
class BenchForm : public bench::BenchForm {
  public:
    using bench::BenchForm::BenchForm;
    [[nodiscard]] int DemandCount() const override { return 0; }
};

/// A loaded generated model in a directory of its own.
class LoadedModel {
  public:
    LoadedModel(int tasks, int resources) : m_form(m_directory.Path()) {
        MakeModelFile(m_form.InApplicationDirectory("working.seq"),
                      ReadFile(QUARNEL02_SCHEMA_FILE) + GeneratedModelScript(tasks, resources, 1));
        LoadModel(m_form);
    }
    BenchForm& Form() { return m_form; }
    [[nodiscard]] double Pathways() const {
        return m_form.Model.OpenRecordSet("SELECT * FROM Pathways;").RecordCount();
    }

  private:
    TemporaryDirectory m_directory;
    BenchForm m_form;
};

double PeakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

int Argument(const benchmark::State& state, std::size_t index) {
    return static_cast<int>(state.range(index));
}

void WholeSolve(benchmark::State& state) {
    using Clock = std::chrono::steady_clock;
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    double solving = 0;
    while (state.KeepRunning()) {
        const auto start = Clock::now();
        cmdContinuous_Click(model.Form(), kShifts);
        solving += std::chrono::duration<double>(Clock::now() - start).count();
    }
    const double seconds = solving / static_cast<double>(state.iterations());

    const PreparedLine line = Prepare(LoadLineModel(model.Form().Model));
    const FixedDemandRequest request{TextToDouble(bench::kDemand, "demand"), kShifts, std::nullopt};
    const auto start = Clock::now();
    benchmark::DoNotOptimize(CheapestLine(line, request));
    const double bare = std::chrono::duration<double>(Clock::now() - start).count();

    state.counters["pathways"] = model.Pathways();
    state.counters["us_per_pathway"] = seconds * 1e6 / model.Pathways();
    state.counters["bare_ms"] = bare * 1e3;
    state.counters["ratio"] = seconds / bare;
    state.counters["peak_MB"] = PeakMegabytes();
}

void Load(benchmark::State& state) {
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    while (state.KeepRunning()) {
        LoadModel(model.Form());
    }
}

void Generate(benchmark::State& state) {
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    while (state.KeepRunning()) {
        GeneratePathways(model.Form());
    }
}

/// Costing together with the search and the report that it ends with.
void CostSearchReport(benchmark::State& state) {
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    cmdContinuous_Click(model.Form(), kShifts);
    while (state.KeepRunning()) {
        state.PauseTiming();
        GeneratePathways(model.Form());
        state.ResumeTiming();
        CostPathways(model.Form());
    }
}

void SearchDrawReport(benchmark::State& state) {
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    cmdContinuous_Click(model.Form(), kShifts);
    while (state.KeepRunning()) {
        FindBestPath(model.Form());
    }
}

void Draw(benchmark::State& state) {
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    cmdContinuous_Click(model.Form(), kShifts);
    while (state.KeepRunning()) {
        DrawLinks(model.Form());
    }
}

void Report(benchmark::State& state) {
    LoadedModel model(Argument(state, 0), Argument(state, 1));
    cmdContinuous_Click(model.Form(), kShifts);
    while (state.KeepRunning()) {
        WriteSolutionSummary(model.Form());
    }
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"tasks", "resources"})
        ->Args({10, 5})
        ->Args({25, 10})
        ->Args({50, 25})
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
}

BENCHMARK(WholeSolve)->Apply(Sizes);
BENCHMARK(Load)->Apply(Sizes);
BENCHMARK(Generate)->Apply(Sizes);
BENCHMARK(CostSearchReport)->Apply(Sizes);
BENCHMARK(SearchDrawReport)->Apply(Sizes);
BENCHMARK(Draw)->Apply(Sizes);
BENCHMARK(Report)->Apply(Sizes);

}  // namespace
}  // namespace quarnel02

BENCHMARK_MAIN();
