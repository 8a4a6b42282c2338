// The design for a demand distribution of 5 points in memory on generated models of three sizes.
// Arguments of each benchmark: tasks, resources.

#include <benchmark/benchmark.h>

#include "GeneratedLine.h"
#include "line/StochasticDesign.h"

namespace quarnel02 {
namespace {

constexpr std::uint32_t kSeed = 1;
constexpr float kPenaltyPerUnit = 15;

/// What the programme goes through.
class CurveCounter : public CurveListener {
  public:
    void Made(const CurveName& /*name*/, const CostCurve& curve) override {
        ++Curves;
        Segments += static_cast<double>(curve.Segments().size());
    }

    double Curves = 0;
    double Segments = 0;
};

void StochasticDesign(benchmark::State& state) {
    const LineModel model = bench::GeneratedLine(static_cast<int>(state.range(0)),
                                                 static_cast<int>(state.range(1)), kSeed);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(DesignForDemand(model, kPenaltyPerUnit));
    }
    CurveCounter counter;
    DesignForDemand(model, kPenaltyPerUnit, counter);
    state.counters["curves"] = counter.Curves;
    state.counters["segments"] = counter.Segments;
}

BENCHMARK(StochasticDesign)
    ->ArgNames({"tasks", "resources"})
    ->Args({12, 6})
    ->Args({20, 10})
    ->Args({50, 25})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quarnel02
