#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "line/FixedDemand.h"
#include "line/LineModel.h"
#include "line/StationGroup.h"

namespace quarnel02::test {

/// Costs of lines straight from the formulas, in doubles throughout and without curves.
class PlainCosts {
  public:
    PlainCosts(const LineModel& model, const FixedDemandRequest& request)
        : m_model(model), m_request(request) {}

    /// Of a line with the very stations of its groups; none when these are not the fewest ones or
    /// are too many.
    [[nodiscard]] std::optional<double> Of(const std::vector<StationGroup>& groups) const {
        double sum = 0;
        for (const StationGroup& group : groups) {
            const auto cost = OfGroup(group.Resource, group.FirstTask, group.LastTask);
            if (!cost || cost->Stations != group.Stations) {
                return std::nullopt;
            }
            sum += cost->Dollars;
        }
        return sum;
    }

    /// Of the cheapest line for the tasks from `first` on; infinite when there is none.
    [[nodiscard]] double Least(int first = 1) const {
        if (first > m_model.TaskCount()) {
            return 0;
        }
        double least = std::numeric_limits<double>::infinity();
        for (int last = first; last <= m_model.TaskCount(); ++last) {
            double group = std::numeric_limits<double>::infinity();
            for (int resource = 1; resource <= m_model.ResourceCount(); ++resource) {
                if (const auto cost = OfGroup(resource, first, last)) {
                    group = std::min(group, cost->Dollars);
                }
            }
            least = std::min(least, group + Least(last + 1));
        }
        return least;
    }

  private:
    struct GroupCost {
        double Dollars;
        int Stations;
    };

    [[nodiscard]] double WorkTime(int resource, int first, int last) const {
        const auto entries = m_model.Entries(resource, first, last);
        const Resource& figures = m_model.ResourceOf(resource);
        const double uptime = figures.UpTime / 100;
        double seconds = 0;
        int tool = entries.front().ToolNum;
        for (const MatrixEntry& entry : entries) {
            seconds += entry.TaskTime / uptime;
            seconds += entry.ToolNum != tool ? figures.ToolChange : 0;
            tool = entry.ToolNum;
        }
        double end = m_model.Parameters().TransportTime;
        if (tool != entries.front().ToolNum && figures.ToolChange > end) {
            end = figures.ToolChange;
        }
        return seconds + end / uptime;
    }

    [[nodiscard]] std::optional<int> Stations(double workTime) const {
        const double available =
            m_model.Parameters().Days * m_request.Shifts * 8 * 3600 / m_request.Volume * (1 + 1e-6);
        for (int stations = 1; stations <= m_request.StationLimit.value_or(3000); ++stations) {
            if (workTime / stations <= available) {
                return stations;
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] double ToolCost(int resource, int first, int last) const {
        double sum = 0;
        std::vector<int> counted;
        for (const MatrixEntry& entry : m_model.Entries(resource, first, last)) {
            if (std::find(counted.begin(), counted.end(), entry.ToolNum) == counted.end()) {
                counted.push_back(entry.ToolNum);
                sum += entry.ToolCost;
            }
        }
        return sum;
    }

    [[nodiscard]] std::optional<GroupCost> OfGroup(int resource, int first, int last) const {
        for (int task = first; task <= last; ++task) {
            if (!m_model.CanDo(resource, task)) {
                return std::nullopt;
            }
        }
        const double work = WorkTime(resource, first, last);
        const auto stations = Stations(work);
        if (!stations) {
            return std::nullopt;
        }
        const Resource& figures = m_model.ResourceOf(resource);
        const Production& year = m_model.Parameters();
        const double capital = *stations * (ToolCost(resource, first, last) + figures.FixedCost) *
                               figures.ICF * year.ACF;
        const double labour =
            *stations * m_request.Shifts * 8 * year.Days * year.LaborCost / figures.StatPerWrk;
        const double machine =
            figures.VarCost / 3600 * m_request.Volume * work / *stations * figures.UpTime / 100;
        return GroupCost{capital + labour + machine, *stations};
    }

    const LineModel& m_model;
    FixedDemandRequest m_request;
};

}  // namespace quarnel02::test
