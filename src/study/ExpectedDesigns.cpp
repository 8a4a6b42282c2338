#include "study/ExpectedDesigns.h"

namespace quarnel02 {

namespace {

/// Keeps the curves of the prefixes.
class PrefixKeeper : public WatchedCurves {
  public:
    using WatchedCurves::WatchedCurves;

    void Made(const CurveName& name, const CostCurve& curve) override {
        WatchedCurves::Made(name, curve);
        if (name.Stage == CurveStage::Prefix) {
            Prefixes.push_back(curve);
        }
    }

    std::vector<CostCurve> Prefixes;
};

}  // namespace

StochasticLine ExpectedDesigns::LineAt(float capacity) const {
    const CurveSegment& segment = *Result.ExpectedCosts.At(capacity);
    const auto cost = static_cast<float>(segment.CostAt(capacity));
    CostCurve point;
    point.Append({capacity, capacity, cost, cost, segment.Tag});
    return *CheapestLineOf(Model, Demand, Penalty, Prefixes, point);
}

ExpectedDesigns DesignWithCurves(const LineModel& model, float penaltyPerUnit,
                                 const StudyWatch& watch) {
    PrefixKeeper keeper(watch, model.TaskCount());
    StochasticResult result = DesignForDemand(model, penaltyPerUnit, keeper);
    return {model, DemandDistribution(model.Demand()), penaltyPerUnit, std::move(keeper.Prefixes),
            std::move(result)};
}

}  // namespace quarnel02
