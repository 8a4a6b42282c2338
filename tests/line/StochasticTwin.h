#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <vector>

#include "line/ContentTwin.h"
#include "line/LineModel.h"

namespace quarnel02::test {

/// Expected costs of lines at one capacity, straight from the model: no curves. Stations are
/// counted up one by one, expectations are sums over the demand points, and what does not decide
/// about stations is in double precision.
class StochasticTwin {
  public:
    StochasticTwin(const LineModel& model, double penaltyPerUnit)
        : m_model(model), m_penalty(penaltyPerUnit) {
        ListContents();
        m_first = std::numeric_limits<float>::infinity();
        for (const DemandPoint& point : model.Demand()) {
            for (const double factor : {1.0, 1.5, 3.0}) {
                const float meant = Ceiling(factor * static_cast<double>(point.Volume));
                m_last = std::max(m_last, meant);
                if (point.Volume > 0) {
                    m_meant.insert(meant);
                    m_first = std::min(m_first, point.Volume);
                }
            }
        }
    }

    [[nodiscard]] bool CanDo(int resource, int first, int last) const {
        const auto entries = m_model.Entries(resource, first, last);
        return std::all_of(entries.begin(), entries.end(),
                           [](const MatrixEntry& entry) { return entry.TaskTime > 0; });
    }

    [[nodiscard]] int Stations(int resource, int first, int last, float capacity) const {
        const float work = Content(resource, first, last).WorkTime;
        const auto meant = m_meant.lower_bound(capacity);
        int stations = 1;
        for (;; ++stations) {
            const auto time =
                static_cast<double>(static_cast<float>(static_cast<double>(work) / stations));
            if (time <= CycleTime(capacity) ||
                (meant != m_meant.end() && time <= CycleTime(*meant) * (1 + 1e-6))) {
                return stations;
            }
        }
    }

    /// Dollars per year of a station group; its stations are as few as are enough.
    [[nodiscard]] double GroupCost(int resource, int first, int last, float capacity) const {
        const Resource& costs = m_model.ResourceOf(resource);
        const Production& year = m_model.Parameters();
        const WorkContent& content = Content(resource, first, last);
        const int stations = Stations(resource, first, last, capacity);
        const double capital = stations *
                               (static_cast<double>(content.ToolCostSum) + costs.FixedCost) *
                               costs.ICF * year.ACF;
        const double machine = costs.VarCost / 3600 * Expected(capacity).Production *
                               static_cast<double>(content.WorkTime) / stations * costs.UpTime /
                               100;
        const double labour = stations * Expected(capacity).Shifts * 8 * year.Days *
                              year.LaborCost / costs.StatPerWrk;
        return capital + machine + labour;
    }

    [[nodiscard]] double Penalty(float capacity) const {
        return (Expected(m_last).Production - Expected(capacity).Production) * m_penalty;
    }

    /// Of all lines, one partition of the tasks after the other; none when there is no line.
    [[nodiscard]] std::optional<double> LeastLineCost(float capacity) const {
        const int tasks = m_model.TaskCount();
        Costs groups;
        for (int first = 1; first <= tasks; ++first) {
            for (int last = 1; last <= tasks; ++last) {
                groups.push_back(last < first ? std::nullopt
                                              : LeastGroupCost(first, last, capacity));
            }
        }
        return LeastFrom(1, groups);
    }

    /// Every capacity at which the cost of any line may bend or jump, with its neighbours.
    [[nodiscard]] std::vector<float> Volumes() const {
        std::set<float> volumes = {m_first, m_last};
        for (const float meant : m_meant) {
            volumes.insert({std::nextafter(meant, 0.0F), meant, Up(meant)});
        }
        for (int resource = 1; resource <= m_model.ResourceCount(); ++resource) {
            for (int first = 1; first <= m_model.TaskCount(); ++first) {
                for (int last = first; last <= m_model.TaskCount(); ++last) {
                    if (CanDo(resource, first, last)) {
                        AddStationSteps(volumes, resource, first, last);
                    }
                }
            }
        }
        std::erase_if(volumes, [&](float each) { return each < m_first || each > m_last; });
        return {volumes.begin(), volumes.end()};
    }

  private:
    struct Expectation {
        double Production = 0;
        double Shifts = 0;
    };

    using Costs = std::vector<std::optional<double>>;  ///< by first task, then last task

    [[nodiscard]] std::optional<double> LeastGroupCost(int first, int last, float capacity) const {
        std::optional<double> least;
        for (int resource = 1; resource <= m_model.ResourceCount(); ++resource) {
            if (CanDo(resource, first, last)) {
                const double cost = GroupCost(resource, first, last, capacity);
                least = least ? std::min(*least, cost) : cost;
            }
        }
        return least;
    }

    [[nodiscard]] std::optional<double> LeastFrom(int first, const Costs& groups) const {
        const int tasks = m_model.TaskCount();
        if (first > tasks) {
            return 0;
        }
        std::optional<double> least;
        for (int last = first; last <= tasks; ++last) {
            const auto group = groups[static_cast<std::size_t>((first - 1) * tasks + last - 1)];
            const auto rest = LeastFrom(last + 1, groups);
            if (group && rest && (!least || *group + *rest < *least)) {
                least = *group + *rest;
            }
        }
        return least;
    }

    static float Up(float volume) {
        return std::nextafter(volume, std::numeric_limits<float>::infinity());
    }
    static float Ceiling(double value) {
        const auto rounded = static_cast<float>(value);
        return static_cast<double>(rounded) < value ? Up(rounded) : rounded;
    }

    [[nodiscard]] double CycleTime(float capacity) const {
        return static_cast<double>(static_cast<float>(m_model.Parameters().Days * 3 * 8 * 3600 /
                                                      static_cast<double>(capacity)));
    }

    [[nodiscard]] const WorkContent& Content(int resource, int first, int last) const {
        const int tasks = m_model.TaskCount();
        return m_contents[static_cast<std::size_t>(((resource - 1) * tasks + first - 1) * tasks +
                                                   last - 1)];
    }

    void ListContents() {
        const int tasks = m_model.TaskCount();
        for (int resource = 1; resource <= m_model.ResourceCount(); ++resource) {
            for (int first = 1; first <= tasks; ++first) {
                for (int last = 1; last <= tasks; ++last) {
                    const bool can = last >= first && CanDo(resource, first, last);
                    m_contents.push_back(can ? ContentTwin(m_model.Entries(resource, first, last),
                                                           m_model.ResourceOf(resource),
                                                           m_model.Parameters().TransportTime)
                                             : WorkContent{});
                }
            }
        }
    }

    [[nodiscard]] Expectation Expected(float capacity) const {
        Expectation sum;
        const auto most = static_cast<double>(capacity);
        for (const DemandPoint& point : m_model.Demand()) {
            const double share = static_cast<double>(point.Probability) / 100;
            const auto volume = static_cast<double>(point.Volume);
            sum.Production += share * std::min(volume, most);
            sum.Shifts += share * (most >= 3 * volume ? 1 : most >= 1.5 * volume ? 2 : 3);
        }
        return sum;
    }

    /// Last capacity of each number of stations, found by halving.
    void AddStationSteps(std::set<float>& volumes, int resource, int first, int last) const {
        float low = m_first;
        const int most = Stations(resource, first, last, m_last);
        while (Stations(resource, first, last, low) < most) {
            const int stations = Stations(resource, first, last, low);
            float high = m_last;
            while (Up(low) < high) {
                const float middle = low + (high - low) / 2;
                const float probe = middle > low && middle < high ? middle : Up(low);
                (Stations(resource, first, last, probe) == stations ? low : high) = probe;
            }
            volumes.insert({low, high});
            low = high;
        }
    }

    const LineModel& m_model;
    double m_penalty;
    std::vector<WorkContent> m_contents;  ///< by resource, first task and last task
    float m_first = 0;
    float m_last = 0;
    std::set<float> m_meant;
};

}  // namespace quarnel02::test
