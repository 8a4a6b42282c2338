#include "study/WhyNot.h"

#include <algorithm>
#include <limits>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "line/CostModel.h"
#include "line/Demand.h"
#include "line/ResourceCurve.h"
#include "line/WorkTime.h"
#include "study/FigureText.h"
#include "study/LargestVolume.h"

namespace quarnel02 {

namespace {

/// Whenever there is a line there is one with a station for every task, because no station needs
/// less time for a task than one that does nothing else. So tasks can be looked at one by one.
class LoneTasks {
  public:
    explicit LoneTasks(const PreparedLine& line)
        : m_production(line.Model.Parameters()),
          m_workTimes(static_cast<std::size_t>(line.Model.TaskCount())) {
        for (std::size_t place = 0; place < line.Pathways.size(); ++place) {
            const Pathway& pathway = line.Pathways[place];
            if (pathway.FirstTask == pathway.LastTask) {
                Enter(pathway.FirstTask, line.Contents[place].WorkTime);
            }
        }
    }

    [[nodiscard]] int Count() const { return static_cast<int>(m_workTimes.size()); }
    [[nodiscard]] bool CanBeDone(int task) const { return Least(task).has_value(); }

    /// Fewest parallel stations for a task that can be done; none when they cannot be counted.
    [[nodiscard]] std::optional<std::int16_t> Stations(int task, double volume,
                                                       std::int16_t shifts) const {
        const Workload workload = WorkloadOf({volume, shifts, {}}, m_production);
        const auto count =
            TryFitStations(*Least(task), ToSingle(workload.AvailableCycleTime, "Max cycle time"));
        return count ? std::optional(count->Stations) : std::nullopt;
    }

    /// Fewest stations for which there is a line.
    [[nodiscard]] std::optional<std::int16_t> SmallestLimit(double volume,
                                                            std::int16_t shifts) const {
        std::int16_t limit = 0;
        for (int task = 1; task <= Count(); ++task) {
            const auto stations = CanBeDone(task) ? Stations(task, volume, shifts) : std::nullopt;
            if (!stations) {
                return std::nullopt;
            }
            limit = std::max(limit, *stations);
        }
        return limit;
    }

    [[nodiscard]] bool HasLine(const FixedDemandRequest& request) const {
        const auto limit = SmallestLimit(request.Volume, request.Shifts);
        return limit && (!request.StationLimit || *limit <= *request.StationLimit);
    }

    [[nodiscard]] int LargestVolumeFor(std::int16_t shifts, int stations) const {
        int volume = kMostVolume;
        for (int task = 1; task <= Count(); ++task) {
            const bool possible = CanBeDone(task) && stations > 0;
            volume = std::min(
                volume, possible ? LargestVolume(m_production, shifts, *Least(task), stations) : 0);
        }
        return volume;
    }

  private:
    [[nodiscard]] const std::optional<float>& Least(int task) const {
        return m_workTimes[static_cast<std::size_t>(task) - 1];
    }
    void Enter(int task, float workTime) {
        auto& least = m_workTimes[static_cast<std::size_t>(task) - 1];
        least = least ? std::min(*least, workTime) : workTime;
    }

    const Production& m_production;
    std::vector<std::optional<float>> m_workTimes;  ///< least, by task; none: nobody can do it
};

void SortTasks(const LoneTasks& tasks, const FixedDemandRequest& request, WhyNot& why) {
    for (int task = 1; task <= tasks.Count(); ++task) {
        if (!tasks.CanBeDone(task)) {
            why.ImpossibleTasks.push_back(task);
            continue;
        }
        const auto stations = tasks.Stations(task, request.Volume, request.Shifts);
        if (!stations) {
            why.OverloadedTasks.push_back(task);
        } else if (request.StationLimit && *stations > *request.StationLimit) {
            why.ForbiddenTasks.push_back(task);
        }
    }
}

std::optional<std::int16_t> FewestShifts(const LoneTasks& tasks, FixedDemandRequest request) {
    for (request.Shifts = 1; request.Shifts <= kMostShifts; ++request.Shifts) {
        if (tasks.HasLine(request)) {
            return request.Shifts;
        }
    }
    return std::nullopt;
}

/// "Task 3", "Tasks 3, 4 and 7".
std::string TasksInWords(const std::vector<int>& tasks) {
    std::string text = tasks.size() == 1 ? "Task " : "Tasks ";
    for (std::size_t place = 0; place < tasks.size(); ++place) {
        const bool last = place + 1 == tasks.size();
        text += (place == 0 ? "" : last ? " and " : ", ") + NumberText(tasks[place]);
    }
    return text;
}

std::string ImpossibleText(const WhyNot& why) {
    if (why.ImpossibleTasks.empty()) {
        return {};
    }
    return TasksInWords(why.ImpossibleTasks) + ": no resource can do " +
           (why.ImpossibleTasks.size() == 1 ? "it" : "them") +
           ". Enter a task time in the matrix.\n";
}

std::string CannotText(const WhyNot& why, const FixedDemandRequest& request) {
    std::string text = ImpossibleText(why);
    if (!why.OverloadedTasks.empty()) {
        text += TasksInWords(why.OverloadedTasks) +
                ": even 32,767 parallel stations are not enough for this volume.\n";
    }
    if (!why.ForbiddenTasks.empty()) {
        text += TasksInWords(why.ForbiddenTasks) + ": only the station limit of " +
                NumberText(int{*request.StationLimit}) + " forbids it.\n";
    }
    return text;
}

}  // namespace

WhyNot ExplainNoLine(const PreparedLine& line, const FixedDemandRequest& request) {
    constexpr int any = std::numeric_limits<std::int16_t>::max();
    const LoneTasks tasks(line);
    WhyNot why;
    SortTasks(tasks, request, why);
    why.HasLine = tasks.HasLine(request);
    why.SmallestLimit = tasks.SmallestLimit(request.Volume, request.Shifts);
    why.FewestShifts = FewestShifts(tasks, request);
    const int volume = tasks.LargestVolumeFor(
        request.Shifts, request.StationLimit ? int{*request.StationLimit} : any);
    if (volume > 0) {
        why.LargestVolume = volume;
    }
    return why;
}

FixedDemandRequest LeastExpectedRequest(const LineModel& model) {
    const DemandDistribution demand(model.Demand());
    return {static_cast<double>(demand.FirstVolume()), kMostShifts,
            static_cast<std::int16_t>(kMostInCurve)};
}

std::string WhyNotText(const WhyNot& why, const FixedDemandRequest& request) {
    if (why.HasLine) {
        return {};
    }
    std::string text = CannotText(why, request);
    if (why.SmallestLimit) {
        text += "There is a line with a station limit of " + NumberText(int{*why.SmallestLimit}) +
                " or more.\n";
    }
    if (why.FewestShifts) {
        text += "There is a line with " + CountText(*why.FewestShifts, "shift", "shifts") + ".\n";
    }
    if (why.LargestVolume) {
        text += "There is a line for up to " + Format(*why.LargestVolume, "#,###") +
                " units per year.\n";
    }
    return text;
}

std::string ExpectedWhyNotText(const WhyNot& why, const FixedDemandRequest& least) {
    if (why.HasLine) {
        return {};
    }
    std::string text = ImpossibleText(why);
    std::vector<int> beyond = why.OverloadedTasks;
    beyond.insert(beyond.end(), why.ForbiddenTasks.begin(), why.ForbiddenTasks.end());
    std::sort(beyond.begin(), beyond.end());
    if (!beyond.empty()) {
        text += TasksInWords(beyond) + ": even " + Format(kMostInCurve, "#,###") +
                " parallel stations are not enough for the lowest volume of the demand, " +
                FigureText(least.Volume) + " units per year.\n";
    }
    if (why.LargestVolume) {
        text += "There is a line where the lowest volume is at most " +
                Format(*why.LargestVolume, "#,###") + " units per year.\n";
    }
    return text;
}

}  // namespace quarnel02
