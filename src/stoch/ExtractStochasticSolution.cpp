#include "stoch/ExtractStochasticSolution.h"

#include <optional>

#include "basic/RunTimeError.h"
#include "stoch/ArcCost.h"
#include "stoch/CurveFile.h"
#include "stoch/ExpectedProduction.h"
#include "stoch/ExpectedShifts.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

/// The cheapest point of a curve; the earliest of equal ones.
struct CheapestPoint {
    float Cost;
    float Volume;
    DesignSegment Design;
};

std::optional<CheapestPoint> FindCheapestPoint(const StochRun& run, int tasks) {
    std::optional<CheapestPoint> best;
    const auto take = [&](float cost, float volume, const DesignSegment& design) {
        if (!best || cost < best->Cost) {
            best = {cost, volume, design};
        }
    };
    for (CurveReader<DesignSegment> designs(run.Files.Final(tasks)); !designs.AtEnd();
         designs.Advance()) {
        const DesignSegment& design = designs.Current();
        take(design.CostStart, design.SegStart, design);
        take(design.CostEnd, design.SegEnd, design);
        if (design.SegEnd > run.LastVolume || designs.Number() == kMostRecords) {
            break;
        }
    }
    return best;
}

DesignSegment DesignAt(const StochRun& run, int task, float volume) {
    CurveReader<DesignSegment> designs(run.Files.Final(task));
    while (!designs.AtEnd() && designs.Current().SegEnd < volume) {
        designs.Advance();
    }
    if (designs.AtEnd()) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "The final table of a task ends before the chosen capacity.");
    }
    return designs.Current();
}

SolutionEntry EntryFor(const StochRun& run, const DesignSegment& design, int endTask,
                       const ExpectedProduction& production, const ExpectedShifts& shifts) {
    const int start = design.PrevTask + 1;
    const auto content = ContentOfArc(run, design.ArcResource, start, endTask);
    const float cost =
        AnnualCost(AnnualPartsOfArc(run, design.ArcResource, content.value(), design.ArcInfo,
                                    production.At(run.Capacity), shifts.At(run.Capacity)));
    return {static_cast<std::int16_t>(start), static_cast<std::int16_t>(endTask),
            design.ArcResource, design.ArcInfo, cost};
}

}  // namespace

void ExtractStochasticSolution(StochRun& run) {
    const int tasks = run.Form.Model.OpenRecordSet("SELECT Tasks FROM Gen;").Integer(0);
    const auto best = FindCheapestPoint(run, tasks);
    if (!best) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "No design is possible at any volume: every line would need more than "
                           "4,095 parallel stations. Check the task times and the demand.");
    }
    run.Capacity = best->Volume;
    run.ExpectedCost = best->Cost;
    run.Solution.clear();
    const ExpectedProduction production(run.Files);
    const ExpectedShifts shifts(run.Files);
    DesignSegment design = best->Design;
    int end = tasks;
    run.Solution.push_back(EntryFor(run, design, end, production, shifts));
    while (design.PrevTask != 0) {
        end = design.PrevTask;
        design = DesignAt(run, end, run.Capacity);
        run.Solution.push_back(EntryFor(run, design, end, production, shifts));
    }
}

}  // namespace quarnel02
