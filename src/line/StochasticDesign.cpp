#include "line/StochasticDesign.h"

#include <cstddef>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "line/ArcContents.h"
#include "line/ExpectedPenalties.h"
#include "line/LowerEnvelope.h"
#include "line/ResourceCurve.h"

namespace quarnel02 {

namespace {

void RequirePenalty(float penalty) {
    if (penalty < 0) {
        throw RunTimeError(ErrorKind::Overflow, "Penalty ($/unit) is " + NumberText(penalty) +
                                                    "; it must be at least 0.");
    }
}

/// The recurrences over task prefixes.
class Programme {
  public:
    Programme(const LineModel& model, CurveListener& listener, StochasticResult& result)
        : m_model(model),
          m_demand(model.Demand()),
          m_contents(model),
          m_listener(listener),
          m_result(result) {}

    void Run(float penaltyPerUnit) {
        for (int last = 1; last <= m_model.TaskCount(); ++last) {
            if (!AddPrefix(last)) {
                m_result.ImpossibleTask = last;
                return;
            }
        }
        if (m_prefixes.empty()) {
            return;
        }
        const CurveName name{CurveStage::WithPenalties, 1, m_model.TaskCount(), 0};
        m_listener.Begin(name);
        m_result.ExpectedCosts =
            WithExpectedPenalties(m_prefixes.back(), m_demand.Production(), penaltyPerUnit);
        Tell(name, m_result.ExpectedCosts);
        NoteTooLong(name, m_result.ExpectedCosts);
        m_result.Line =
            CheapestLineOf(m_model, m_demand, penaltyPerUnit, m_prefixes, m_result.ExpectedCosts);
    }

  private:
    /// False when no arc ends at the task.
    bool AddPrefix(int last) {
        m_contents.Next();
        std::vector<CostCurve> arcs;
        for (int first = 1; first <= last; ++first) {
            arcs.push_back(ArcCurve(first, last));
        }
        std::vector<CostCurve> candidates = Candidates(std::move(arcs), last);
        if (candidates.empty()) {
            return false;
        }
        m_prefixes.push_back(PrefixCurve(std::move(candidates), last));
        return true;
    }

    /// Lower envelope of the curves of the resources that can do an arc.
    CostCurve ArcCurve(int first, int last) {
        std::vector<CostCurve> curves = ResourceCurves(first, last);
        const CurveName name{CurveStage::Arc, first, last, 0};
        m_listener.Begin(name);
        return Envelope(std::move(curves), name, CurveStage::ArcMerge, ZeroCost::AsItIs);
    }

    /// Empty where even the first volume needs too many stations.
    std::vector<CostCurve> ResourceCurves(int first, int last) {
        m_listener.Begin({CurveStage::Resource, first, last, 0});
        std::vector<CostCurve> curves;
        m_contents.ForEachResource(first, [&](int resource, const WorkContent& content) {
            const CurveName name{CurveStage::Resource, first, last, resource};
            CostCurve curve = ResourceCurve(m_model, m_demand, resource, content);
            Tell(name, curve);
            if (curve.Ending() != CurveEnd::None) {
                const bool empty = curve.IsEmpty();
                NoteEarlyEnd(
                    {name, curve.Ending(), empty ? m_demand.FirstVolume() : curve.End(), empty});
            }
            if (!curve.IsEmpty()) {
                curves.push_back(std::move(curve));
            }
        });
        return curves;
    }

    /// The arcs that end at a task, each added to the cheapest lines of the tasks before it. An arc
    /// goes when it is added: the curves of a long line take memory.
    std::vector<CostCurve> Candidates(std::vector<CostCurve> arcs, int last) {
        m_listener.Begin({CurveStage::Candidate, 1, last, 0});
        std::vector<CostCurve> candidates;
        for (int first = 1; first <= last; ++first) {
            const CostCurve arc = std::move(arcs[static_cast<std::size_t>(first) - 1]);
            if (arc.IsEmpty()) {
                continue;
            }
            candidates.push_back(
                first == 1 ? WithPreviousTask(arc, 0)
                           : Sum(arc, m_prefixes[static_cast<std::size_t>(first) - 2], first - 1));
            const CurveName name{CurveStage::Candidate, 1, last,
                                 static_cast<int>(candidates.size())};
            Tell(name, candidates.back());
            NoteTooLong(name, candidates.back());
        }
        return candidates;
    }

    CostCurve PrefixCurve(std::vector<CostCurve> candidates, int last) {
        const CurveName name{CurveStage::Prefix, 1, last, 0};
        m_listener.Begin(name);
        return Envelope(std::move(candidates), name, CurveStage::PrefixMerge,
                        ZeroCost::AsTenThousand);
    }

    /// Lower envelope of curves in their order, each of which goes when it is merged; every merge
    /// is told as one of `merges`.
    CostCurve Envelope(std::vector<CostCurve> curves, const CurveName& name, CurveStage merges,
                       ZeroCost zero) {
        CostCurve lowest = curves.empty() ? CostCurve() : std::move(curves.front());
        for (std::size_t next = 1; next < curves.size(); ++next) {
            const CostCurve curve = std::move(curves[next]);
            lowest = LowerEnvelope(lowest, curve, zero);
            Tell({merges, name.FirstTask, name.LastTask, static_cast<int>(next) + 1}, lowest);
            NoteTooLong(name, lowest);
        }
        Tell(name, lowest);
        return lowest;
    }

    void Tell(const CurveName& name, const CostCurve& curve) { m_listener.Made(name, curve); }

    void NoteTooLong(const CurveName& name, const CostCurve& curve) {
        if (curve.Ending() == CurveEnd::TooLong) {
            NoteEarlyEnd({name, CurveEnd::TooLong, curve.End(), false});
        }
    }

    void NoteEarlyEnd(const EarlyEnd& end) {
        m_result.EarlyEnds.push_back(end);
        m_listener.EndsEarly(end);
    }

    const LineModel& m_model;
    DemandDistribution m_demand;
    ArcContents m_contents;
    CurveListener& m_listener;
    StochasticResult& m_result;
    std::vector<CostCurve> m_prefixes;  ///< by last task
};

}  // namespace

void RequireFewResources(int resources) {
    if (resources > kMostInCurve) {
        throw RunTimeError(ErrorKind::Overflow,
                           "Number of resources is " + Format(resources, "#,###") +
                               "; the stochastic design takes at most 4,095 of them. Delete some "
                               "in the resource editor.");
    }
}

StochasticResult DesignForDemand(const LineModel& model, float penaltyPerUnit,
                                 CurveListener& listener) {
    RequireFewResources(model.ResourceCount());
    RequirePenalty(penaltyPerUnit);
    StochasticResult result;
    Programme(model, listener, result).Run(penaltyPerUnit);
    return result;
}

StochasticResult DesignForDemand(const LineModel& model, float penaltyPerUnit) {
    CurveListener ignored;
    return DesignForDemand(model, penaltyPerUnit, ignored);
}

}  // namespace quarnel02
