#include "support/StochBruteForce.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <utility>

namespace quarnel02::test {

namespace {

float Single(double value) {
    return static_cast<float>(value);
}

double Wide(float value) {
    return value;
}

float Up(float volume) {
    return std::nextafter(volume, std::numeric_limits<float>::infinity());
}

float Down(float volume) {
    return std::nextafter(volume, 0.0F);
}

void AddResource(ModelScript& model, Dice& dice, int gaps) {
    const int id = static_cast<int>(model.Resources.size()) + 1;
    model.Resources.push_back({"R" + std::to_string(id), dice(0, 3), dice(0, 100) * 1000.0,
                               dice(0, 20) + 0.5, static_cast<double>(dice(60, 100)),
                               dice(10, 20) / 10.0, dice(0, 12) + 0.25, dice(1, 12) / 2.0});
    for (int task = 1; task <= model.Tasks; ++task) {
        if (gaps == 0 || !dice.OneIn(8 / gaps)) {
            model.Matrix.push_back({id, task, dice(0, 40) == 0 ? 0 : dice(1, 600) / 10.0,
                                    dice(1, 3), dice(0, 200) * 100.0});
        }
    }
}

void AddDemand(ModelScript& model, Dice& dice) {
    const int points = dice(2, 10);
    const bool adds_up = dice.OneIn(2);
    int left = 100;
    for (int point = 1; point <= points; ++point) {
        float volume = Single(dice(20, 4000) * 100.0 + (dice.OneIn(3) ? dice(0, 99) / 7.0 : 0));
        if (point > 1 && dice.OneIn(8)) {
            volume = model.Demand.back().Volume;
        }
        const int share = point == points ? left : dice(0, std::min(left, 60));
        model.Demand.push_back({volume, Single(adds_up ? share : dice(0, 400) / 10.0)});
        left -= share;
    }
    if (dice.OneIn(6)) {
        model.Demand.front().Volume = 0;
        model.Demand.back().Volume += 1000;
    }
}

}  // namespace

ModelScript RandomStochModel(Dice& dice) {
    ModelScript model;
    model.Tasks = dice(1, 7);
    model.Days = dice(200, 300);
    model.ACF = dice(10, 40) / 100.0;
    model.LaborCost = dice(0, 40);
    model.TransportTime = dice(0, 10);
    const int gaps = dice(0, 2);  // 0 is a matrix without gaps
    const int resources = dice(1, 5);
    for (int resource = 1; resource <= resources; ++resource) {
        AddResource(model, dice, gaps);
    }
    AddDemand(model, dice);
    return model;
}

StochBruteForce::StochBruteForce(const ModelScript& model, double penaltyPerUnit)
    : m_model(model), m_demand(model.Demand), m_penalty(penaltyPerUnit) {
    std::stable_sort(m_demand.begin(), m_demand.end(),
                     [](const auto& a, const auto& b) { return a.Volume < b.Volume; });
    for (const auto& at : m_demand) {
        double expected = 0;
        for (const auto& [volume, percent] : m_demand) {
            expected += Wide(percent) / 100 * Wide(std::min(volume, at.Volume));
        }
        m_production.push_back(Single(expected));
        if (m_first == 0) {
            m_first = at.Volume;
        }
    }
    double sum = 0;
    for (const auto& [volume, percent] : m_demand) {
        sum += Wide(percent);
    }
    if (std::fabs(sum - 100) < 0.005) {  // complete: certain up to the lowest demand
        m_production.front() = m_demand.front().Volume;
        for (float& production : m_production) {
            production = std::max(production, m_demand.front().Volume);
        }
    }
    m_last = Single(3 * Wide(m_demand.back().Volume));
    if (Wide(m_last) < 3 * Wide(m_demand.back().Volume)) {
        m_last = Up(m_last);
    }
    for (int resource = 1; resource <= static_cast<int>(model.Resources.size()); ++resource) {
        for (int start = 1; start <= model.Tasks; ++start) {
            for (int end = 1; end <= model.Tasks; ++end) {
                m_loads.push_back(end < start ? Load{} : MakeLoad(resource, start, end));
            }
        }
    }
}

StochBruteForce::Load StochBruteForce::MakeLoad(int resource, int start, int end) const {
    const ResourceRow& row = m_model.Resources.at(static_cast<std::size_t>(resource - 1));
    std::map<int, double> cost_of_tool;
    float work = 0;
    int first_tool = 0;
    int tool = 0;
    for (int task = start; task <= end; ++task) {
        const auto pair = std::find_if(
            m_model.Matrix.begin(), m_model.Matrix.end(),
            [&](const MatrixRow& each) { return each.Resource == resource && each.Task == task; });
        if (pair == m_model.Matrix.end() || pair->Entry.TaskTime <= 0) {
            return {};
        }
        cost_of_tool.emplace(pair->Entry.ToolNum,
                             pair->Entry.ToolCost);  // the first task that names it counts
        work = Single(Wide(work) + pair->Entry.TaskTime / (row.UpTime * 0.01));
        if (task == start) {
            first_tool = pair->Entry.ToolNum;
        } else if (pair->Entry.ToolNum != tool) {
            work = Single(Wide(work) + row.ToolChange);
        }
        tool = pair->Entry.ToolNum;
    }
    const double back = tool == first_tool ? m_model.TransportTime
                                           : std::max(m_model.TransportTime, row.ToolChange);
    double tools = 0;
    for (const auto& [number, cost] : cost_of_tool) {
        tools += cost;
    }
    return {true, Single(Wide(work) + back / (row.UpTime * 0.01)), tools};
}

const StochBruteForce::Load& StochBruteForce::LoadOf(int resource, int start, int end) const {
    return m_loads.at(
        static_cast<std::size_t>(((resource - 1) * m_model.Tasks + start - 1) * m_model.Tasks) +
        static_cast<std::size_t>(end - 1));
}

double StochBruteForce::Production(float capacity) const {
    for (std::size_t next = 1; next < m_demand.size(); ++next) {
        const double low = Wide(m_demand[next - 1].Volume);
        const double high = Wide(m_demand[next].Volume);
        const double rise = Wide(m_production[next]) - Wide(m_production[next - 1]);
        if (Wide(capacity) <= high) {
            return Wide(m_production[next - 1]) +
                   (high == low ? 0 : rise * (Wide(capacity) - low) / (high - low));
        }
    }
    return Wide(m_production.back());
}

double StochBruteForce::Shifts(float capacity) const {
    double expected = 0;
    for (const auto& [volume, percent] : m_demand) {
        const int shifts = Wide(capacity) >= 3 * Wide(volume)     ? 1
                           : Wide(capacity) >= 1.5 * Wide(volume) ? 2
                                                                  : 3;
        expected += Wide(percent) / 100 * shifts;
    }
    return Wide(Single(expected));
}

double StochBruteForce::Penalty(float capacity) const {
    return (Wide(m_production.back()) - Production(capacity)) * m_penalty;
}

float StochBruteForce::CycleTime(float capacity) const {
    return Single(m_model.Days * 3 * 8 * 3600 / Wide(capacity));
}

/// Up to a demand volume, 1.5 or 3 times it, a station may be exactly full: one part in a million
/// over what there is.
int StochBruteForce::StationsFor(float work, float capacity) const {
    const float available = CycleTime(capacity);
    float meant = 0;  // the next such volume
    for (const auto& [volume, percent] : m_demand) {
        for (const double factor : {1.0, 1.5, 3.0}) {
            const float exact = Single(factor * Wide(volume));
            const float marked = Wide(exact) < factor * Wide(volume) ? Up(exact) : exact;
            if (marked >= capacity && (meant == 0 || marked < meant)) {
                meant = marked;
            }
        }
    }
    const double full = meant == 0 ? 0 : Wide(CycleTime(meant)) * (1 + 1e-6);
    int stations = 1;
    while (available < Single(Wide(work) / stations) &&
           full < Wide(Single(Wide(work) / stations))) {
        ++stations;
    }
    return stations;
}

bool StochBruteForce::CanDo(int resource, int start, int end) const {
    return LoadOf(resource, start, end).Possible;
}

int StochBruteForce::Stations(int resource, int start, int end, float capacity) const {
    return StationsFor(LoadOf(resource, start, end).Work, capacity);
}

double StochBruteForce::ArcCost(int resource, int start, int end, float capacity) const {
    const ResourceRow& row = m_model.Resources.at(static_cast<std::size_t>(resource - 1));
    const Load& load = LoadOf(resource, start, end);
    const int stations = StationsFor(load.Work, capacity);
    const double time = Wide(load.Work) / stations;
    const double capital = stations * (load.ToolSet + row.FixedCost) * row.ICF * m_model.ACF;
    const double machine = row.VarCost / 3600 * Production(capacity) * time * row.UpTime * 0.01;
    const double labour =
        stations * Shifts(capacity) * 8 * m_model.Days * m_model.LaborCost / row.StatPerWrk;
    return capital + machine + labour;
}

std::optional<double> StochBruteForce::ArcCost(int start, int end, float capacity) const {
    std::optional<double> best;
    for (int resource = 1; resource <= static_cast<int>(m_model.Resources.size()); ++resource) {
        if (CanDo(resource, start, end)) {
            const double cost = ArcCost(resource, start, end, capacity);
            best = best ? std::min(*best, cost) : cost;
        }
    }
    return best;
}

std::optional<double> StochBruteForce::DesignCost(int end, float capacity) const {
    std::vector<std::optional<double>> best(static_cast<std::size_t>(end) + 1);
    best[0] = 0;
    for (int last = 1; last <= end; ++last) {
        auto& shortest = best[static_cast<std::size_t>(last)];
        for (int start = 1; start <= last; ++start) {
            const auto& before = best[static_cast<std::size_t>(start - 1)];
            const auto arc = ArcCost(start, last, capacity);
            if (before && arc && (!shortest || *before + *arc < *shortest)) {
                shortest = *before + *arc;
            }
        }
    }
    return best.back();
}

void StochBruteForce::AddStationSteps(std::vector<float>& volumes) const {
    for (const Load& load : m_loads) {
        if (!load.Possible) {
            continue;
        }
        // Halving between two capacities until they are neighbours, for every step between them.
        for (float low = m_first; low < m_last;) {
            const int stations = StationsFor(load.Work, low);
            if (StationsFor(load.Work, m_last) == stations) {
                break;
            }
            float high = m_last;
            while (Up(low) < high) {
                const float middle = Single((Wide(low) + Wide(high)) / 2);
                (StationsFor(load.Work, middle) == stations ? low : high) = middle;
            }
            volumes.insert(volumes.end(), {low, high});
            low = high;
        }
    }
}

std::vector<float> StochBruteForce::Volumes() const {
    std::vector<float> volumes{m_first, Up(m_first), m_last, Down(m_last)};
    for (const auto& point : m_demand) {
        for (const double factor : {1.0, 1.5, 3.0}) {
            const float near = Single(factor * Wide(point.Volume));
            volumes.insert(volumes.end(), {Down(near), near, Up(near)});
        }
    }
    AddStationSteps(volumes);
    std::erase_if(volumes, [&](float volume) { return volume < m_first || volume > m_last; });
    std::sort(volumes.begin(), volumes.end());
    volumes.erase(std::unique(volumes.begin(), volumes.end()), volumes.end());
    return volumes;
}

}  // namespace quarnel02::test
