// The fixed-demand design in memory on generated models of three sizes: preparing a model, and one
// more volume of a prepared one. Arguments of each benchmark: tasks, resources.

#include <benchmark/benchmark.h>

#include "GeneratedLine.h"
#include "line/CheapestLine.h"
#include "line/ReportedChain.h"

namespace quarnel02 {
namespace {

constexpr std::uint32_t kSeed = 1;

LineModel ModelOf(const benchmark::State& state) {
    return bench::GeneratedLine(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                                kSeed);
}

/// A volume that no call before had.
FixedDemandRequest NextRequest() {
    static double volume = 50000;
    volume = volume > 100000 ? 50000 : volume + 997;
    return {volume, 2, {}};
}

void CountPathways(benchmark::State& state, const PreparedLine& line) {
    const auto pathways = static_cast<double>(line.Pathways.size());
    state.counters["pathways"] = pathways;
    state.counters["per_pathway"] = benchmark::Counter(
        pathways, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void PrepareModel(benchmark::State& state) {
    const LineModel model = ModelOf(state);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(Prepare(model));
    }
    CountPathways(state, Prepare(model));
}

void OneMoreVolume(benchmark::State& state) {
    const PreparedLine line = Prepare(ModelOf(state));
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(CheapestLine(line, NextRequest()));
    }
    CountPathways(state, line);
}

void CostOnly(benchmark::State& state) {
    const PreparedLine line = Prepare(ModelOf(state));
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(CostAll(line, NextRequest()));
    }
    CountPathways(state, line);
}

/// All that the tables of a fixed-demand design hold, from the model.
void WholeDesign(benchmark::State& state) {
    const LineModel model = ModelOf(state);
    while (state.KeepRunning()) {
        const PreparedLine line = Prepare(model);
        CostedPathways costed = CostAll(line, NextRequest());
        const std::vector<Way> ways = CheapestWays(line, costed);
        MarkDearer(costed.States, ways);
        benchmark::DoNotOptimize(SearchReportedChain(ways));
        benchmark::DoNotOptimize(costed);
    }
    CountPathways(state, Prepare(model));
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"tasks", "resources"})
        ->Args({10, 5})
        ->Args({25, 10})
        ->Args({50, 25})
        ->Unit(benchmark::kMillisecond);
}

BENCHMARK(PrepareModel)->Apply(Sizes);
BENCHMARK(OneMoreVolume)->Apply(Sizes);
BENCHMARK(CostOnly)->Apply(Sizes);
BENCHMARK(WholeDesign)->Apply(Sizes);

}  // namespace
}  // namespace quarnel02

BENCHMARK_MAIN();
