// The fixed-demand design on generated models of three sizes: the whole solve from the button to
// the written report, its stages, and the same pathways costed and searched in memory as the
// bare limit. Arguments of each benchmark: tasks, resources.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <span>
#include <vector>

#include "BenchForm.h"
#include "basic/Files.h"
#include "basic/Numbers.h"
#include "fixed/CostModel.h"
#include "fixed/CostPathways.h"
#include "fixed/DrawLinks.h"
#include "fixed/FindBestPath.h"
#include "fixed/GeneratePathways.h"
#include "fixed/LoadModel.h"
#include "fixed/WriteSolutionSummary.h"
#include "fixed/cmdContinuous.h"
#include "generate_model.h"
#include "model/ModelFile.h"

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

/// Model data in plain vectors, for the bare limit.
struct MemoryModel {
    std::vector<ResourceCosts> Resources;
    std::vector<std::vector<MatrixEntry>> Matrix;  ///< by resource, then task
    Production Parameters{};
};

MemoryModel ReadModel(const Database& database) {
    MemoryModel model;
    const RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    model.Parameters = {gen.Number(2), gen.Number(3), gen.Number(4), gen.Number(5)};
    RecordSet resources = database.OpenRecordSet("SELECT * FROM Resources;");
    for (; !resources.Eof(); resources.MoveNext()) {
        model.Resources.push_back({resources.Number(4), resources.Number(5), resources.Number(6),
                                   resources.Number(7), resources.Number(8), resources.Number(9)});
        RecordSet rows = database.OpenRecordSet(
            "SELECT TaskTime, ToolNum, ToolCost FROM Matrix WHERE ResourceId = " +
            NumberText(int{resources.Integer(0)}) + " ORDER BY TaskId;");
        auto& entries = model.Matrix.emplace_back();
        for (; !rows.Eof(); rows.MoveNext()) {
            entries.push_back({rows.Number(0), rows.Integer(1), rows.Number(2)});
        }
    }
    return model;
}

/// Costs every (arc, resource) pair with the same cost model and searches the cheapest chain.
float CheapestLine(const MemoryModel& model, const Workload& workload) {
    const std::size_t tasks = model.Matrix.front().size();
    std::vector<float> label(tasks + 1, std::numeric_limits<float>::infinity());
    label[0] = 0;
    std::vector<MatrixEntry> by_tool;
    for (std::size_t end = 1; end <= tasks; ++end) {
        for (std::size_t start = 0; start < end; ++start) {
            for (std::size_t resource = 0; resource < model.Resources.size(); ++resource) {
                const std::span by_task(model.Matrix[resource].data() + start, end - start);
                by_tool.assign(by_task.begin(), by_task.end());
                std::stable_sort(by_tool.begin(), by_tool.end(), [](const auto& a, const auto& b) {
                    return a.ToolNum < b.ToolNum;
                });
                const PathwayCost cost = CostOfPathway(by_tool, by_task, model.Resources[resource],
                                                       model.Parameters, workload);
                label[end] = std::min(label[end], label[start] + cost.Cost);
            }
        }
    }
    return label[tasks];
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

    const MemoryModel memory = ReadModel(model.Form().Model);
    const Workload workload{TextToDouble(bench::kDemand, "demand"), kShifts,
                            model.Form().FixedDemandSolve.AvailableCycleTime};
    const auto start = Clock::now();
    benchmark::DoNotOptimize(CheapestLine(memory, workload));
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
