#include "study/Scenarios.h"

#include <algorithm>
#include <utility>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "line/CheapestLine.h"
#include "study/ExpectedDesigns.h"
#include "study/LargestVolume.h"
#include "study/ScenarioNames.h"
#include "study/VolumePieces.h"

namespace quarnel02 {

namespace {

constexpr double kPercent = 100;

[[noreturn]] void Refuse(const LineModel& model, const Difference& difference,
                         const std::string& why) {
    throw RunTimeError(ErrorKind::TypeMismatch,
                       "\"" + DifferenceText(model, difference) + "\": " + why);
}

/// What a difference makes of a value.
double Changed(double value, const Difference& difference) {
    return difference.ByShare ? value * (1 + *difference.Value / kPercent) : *difference.Value;
}

LineModel WithDemand(const LineModel& model, double factor) {
    std::vector<DemandPoint> demand(model.Demand().begin(), model.Demand().end());
    for (DemandPoint& point : demand) {
        point.Volume = ToSingle(DecimalOfSingle(point.Volume) * factor, "Volume");
    }
    std::vector<MatrixRow> matrix;
    for (int resource = 1; resource <= model.ResourceCount(); ++resource) {
        for (int task = 1; task <= model.TaskCount(); ++task) {
            matrix.push_back({resource, task, model.Entry(resource, task)});
        }
    }
    return {model.Parameters(),
            {model.Resources().begin(), model.Resources().end()},
            {model.Tasks().begin(), model.Tasks().end()},
            matrix,
            std::move(demand)};
}

/// Makes an order another one.
class OrderMaker {
  public:
    explicit OrderMaker(const DesignOrder& base) : m_base(base), m_order(base) {}

    void Apply(const Difference& difference) {
        switch (difference.Target) {
            case ScenarioTarget::Figure:
                return ApplyFigure(difference);
            case ScenarioTarget::Demand:
                return ApplyDemand(difference);
            case ScenarioTarget::Shifts:
                Fixed(difference).Shifts = static_cast<std::int16_t>(*difference.Value);
                return;
            case ScenarioTarget::StationLimit:
                Fixed(difference).StationLimit =
                    difference.Value ? std::optional(static_cast<std::int16_t>(*difference.Value))
                                     : std::nullopt;
                return;
        }
    }

    [[nodiscard]] DesignOrder Order() && { return std::move(m_order); }

  private:
    FixedDemandRequest& Fixed(const Difference& difference) {
        if (!m_order.Fixed) {
            Refuse(m_base.Model, difference,
                   "a design for a demand distribution is not asked for it. Solve the scenario "
                   "for a fixed demand, or remove this difference.");
        }
        return *m_order.Fixed;
    }

    void ApplyFigure(const Difference& difference) {
        const double value = Changed(ValueOf(m_base.Model, difference.Figure), difference);
        const FigureKind kind = difference.Figure.Kind;
        constexpr double most_days = 366;
        const double most = kind == FigureKind::Days ? most_days : kPercent;
        if ((kind == FigureKind::Days || kind == FigureKind::UpTime) && value > most) {
            Refuse(m_base.Model, difference,
                   "that would be " + NumberText(value) + "; at most " + NumberText(most) +
                       " is possible.");
        }
        m_order.Model = WithValue(m_order.Model, difference.Figure, value);
    }

    void ApplyDemand(const Difference& difference) {
        if (m_order.Fixed) {
            m_order.Fixed->Volume = Changed(m_order.Fixed->Volume, difference);
        } else if (difference.ByShare) {
            m_order.Model = WithDemand(m_order.Model, 1 + *difference.Value / kPercent);
        } else {
            Fixed(difference);
        }
    }

    const DesignOrder& m_base;
    DesignOrder m_order;
};

bool SameLine(const LineTable& one, const LineTable& other) {
    return std::equal(one.Rows.begin(), one.Rows.end(), other.Rows.begin(), other.Rows.end(),
                      [](const StationRow& a, const StationRow& b) { return a.Group == b.Group; });
}

void DesignFixed(ScenarioOutcome& outcome, const StudyWatch& watch) {
    const LineModel& model = outcome.Order.Model;
    const FixedDemandRequest& request = *outcome.Order.Fixed;
    watch.Look();
    const auto line = CheapestLine(Prepare(model), request);
    if (!line) {
        return;
    }
    const std::vector<StationGroup> groups = GroupsOf(*line);
    outcome.HasLine = true;
    outcome.Table = TableOf(model, groups, BasisOf(request, model.Parameters()));
    outcome.Cost = line->Cost;
    outcome.Capacity = CapacityOf(model, groups, request.Shifts);
    outcome.CapacityShifts = request.Shifts;
}

void DesignExpected(ScenarioOutcome& outcome, const StudyWatch& watch) {
    const LineModel& model = outcome.Order.Model;
    WatchedCurves curves(watch, model.TaskCount());
    const float penalty = ToSingle(model.Parameters().Penalty, "Penalty ($/unit)");
    const auto line = DesignForDemand(model, penalty, curves).Line;
    if (!line) {
        return;
    }
    constexpr double all_shifts = 3;
    outcome.HasLine = true;
    outcome.Table = TableOf(model, *line);
    outcome.Cost = line->ExpectedCost;
    outcome.Penalty = line->ExpectedPenalty;
    outcome.Capacity = DecimalOfSingle(line->Capacity);
    outcome.CapacityShifts = all_shifts;
}

void Design(ScenarioOutcome& outcome, const StudyWatch& watch) {
    outcome.Order.Fixed ? DesignFixed(outcome, watch) : DesignExpected(outcome, watch);
    watch.Look(1);
}

ScenarioOutcome SolvedOutcome(const Scenario& scenario, const ScenarioOutcome& base,
                              const StudyWatch& watch) {
    ScenarioOutcome outcome;
    outcome.Name = scenario.Name;
    outcome.Order = base.Order;
    try {
        outcome.Order =
            WithDifferences(base.Order, DifferencesOf(base.Order.Model, scenario.Differences));
        Design(outcome, watch);
    } catch (const RunTimeError& error) {
        outcome.Problem = error.what();
    }
    return outcome;
}

void CompareOne(ScenarioOutcome& outcome, const ScenarioOutcome& base) {
    outcome.Difference.reset();
    if (outcome.HasLine && base.HasLine) {
        outcome.Difference = static_cast<double>(outcome.Cost) - static_cast<double>(base.Cost);
    }
    outcome.LineChanges = outcome.Problem.empty() &&
                          (outcome.HasLine != base.HasLine || !SameLine(outcome.Table, base.Table));
}

void AppendIfOther(std::vector<Difference>& differences, ScenarioTarget target,
                   std::optional<double> base, std::optional<double> other) {
    if (base != other) {
        differences.push_back({target, {}, false, other});
    }
}

}  // namespace

DesignOrder WithDifferences(const DesignOrder& base, std::span<const Difference> differences) {
    OrderMaker maker(base);
    for (const Difference& difference : differences) {
        maker.Apply(difference);
    }
    return std::move(maker).Order();
}

std::vector<Difference> DifferencesBetween(const DesignOrder& base, const DesignOrder& other) {
    std::vector<Difference> differences;
    for (const ModelFigure& figure : ExpectedFiguresOf(base.Model)) {
        const double value = ValueOf(other.Model, figure);
        if (value != ValueOf(base.Model, figure)) {
            differences.push_back({ScenarioTarget::Figure, figure, false, value});
        }
    }
    if (base.Fixed && other.Fixed) {
        const auto limit = [](const FixedDemandRequest& request) {
            return request.StationLimit ? std::optional<double>(*request.StationLimit)
                                        : std::nullopt;
        };
        AppendIfOther(differences, ScenarioTarget::Demand, base.Fixed->Volume, other.Fixed->Volume);
        AppendIfOther(differences, ScenarioTarget::Shifts, base.Fixed->Shifts, other.Fixed->Shifts);
        AppendIfOther(differences, ScenarioTarget::StationLimit, limit(*base.Fixed),
                      limit(*other.Fixed));
    }
    return differences;
}

void Compare(std::vector<ScenarioOutcome>& outcomes, std::size_t base) {
    for (ScenarioOutcome& outcome : outcomes) {
        CompareOne(outcome, outcomes[base]);
    }
}

std::vector<ScenarioOutcome> SolveScenarios(const DesignOrder& base,
                                            std::span<const Scenario> scenarios,
                                            const StudyWatch& watch) {
    const auto all = static_cast<double>(scenarios.size() + 1);
    std::vector<ScenarioOutcome> outcomes(1);
    outcomes.front().Name = kBaseName;
    outcomes.front().Order = base;
    Design(outcomes.front(), watch.Part(0, 1 / all));
    for (const Scenario& scenario : scenarios) {
        const auto done = static_cast<double>(outcomes.size());
        outcomes.push_back(
            SolvedOutcome(scenario, outcomes.front(), watch.Part(done / all, (done + 1) / all)));
    }
    Compare(outcomes, 0);
    return outcomes;
}

}  // namespace quarnel02
