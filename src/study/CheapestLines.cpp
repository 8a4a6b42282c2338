#include "study/CheapestLines.h"

#include <algorithm>
#include <cstddef>
#include <tuple>

#include "line/Network.h"
#include "study/ArcCurves.h"

namespace quarnel02 {

namespace {

/// One of the cheapest ways of reaching a node.
struct RankedLabel {
    float Cost = 0;  ///< dollars per year, from the start of the line
    Way Last;        ///< the last step
    int Rank = 0;    ///< place among the labels of its start

    bool operator<(const RankedLabel& other) const {
        return std::tie(Cost, Last.Start, Last.Cost, Last.Pathway, Rank) <
               std::tie(other.Cost, other.Last.Start, other.Last.Cost, other.Last.Pathway,
                        other.Rank);
    }
};

template <typename Value>
void KeepLeast(std::vector<Value>& values, std::size_t most) {
    const std::size_t kept = std::min(most, values.size());
    std::partial_sort(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(kept),
                      values.end());
    values.erase(values.begin() + static_cast<std::ptrdiff_t>(kept), values.end());
}

class RankedSearch {
  public:
    RankedSearch(const PreparedLine& line, const CostedPathways& costed, int count)
        : m_line(line),
          m_costed(costed),
          m_count(static_cast<std::size_t>(count)),
          m_ways(line.Model.TaskCount()),
          m_labels(static_cast<std::size_t>(line.Model.TaskCount()) + 2) {}

    [[nodiscard]] std::vector<Line> Lines() && {
        SortWays();
        const int last_node = m_line.Model.TaskCount() + 1;
        m_labels[1] = {RankedLabel{}};
        for (int node = 2; node <= last_node; ++node) {
            Label(node);
        }
        std::vector<Line> lines;
        for (const RankedLabel& label : LabelsOf(last_node)) {
            lines.push_back(LineOf(label));
        }
        return lines;
    }

  private:
    [[nodiscard]] const std::vector<RankedLabel>& LabelsOf(int node) const {
        return m_labels[static_cast<std::size_t>(node)];
    }

    void SortWays() {
        for (std::size_t place = 0; place < m_line.Pathways.size(); ++place) {
            if (m_costed.States[place] == PathwayState::Feasible) {
                const auto& [resource, first, last] = m_line.Pathways[place];
                m_ways.At(first, last)
                    .push_back({m_costed.Costs[place].Cost,
                                {static_cast<int>(place) + 1, first, last + 1,
                                 static_cast<double>(m_costed.Costs[place].Cost)},
                                0});
            }
        }
    }

    /// No more than the cheapest labels of a node, behind no more than the cheapest ways of an arc,
    /// can be among the cheapest labels of the next one.
    void Label(int node) {
        auto& labels = m_labels[static_cast<std::size_t>(node)];
        for (int start = 1; start < node; ++start) {
            auto& ways = m_ways.At(start, node - 1);
            KeepLeast(ways, m_count);
            for (const RankedLabel& way : ways) {
                AppendBehind(labels, way.Last);
            }
            KeepLeast(labels, m_count);
        }
    }

    void AppendBehind(std::vector<RankedLabel>& labels, const Way& way) const {
        int rank = 0;
        for (const RankedLabel& start : LabelsOf(way.Start)) {
            labels.push_back({CostOver(start.Cost, way), way, rank});
            ++rank;
        }
    }

    [[nodiscard]] Line LineOf(const RankedLabel& end) const {
        Line line{{}, end.Cost};
        for (const RankedLabel* label = &end;;) {
            const auto place = static_cast<std::size_t>(label->Last.Pathway) - 1;
            const auto& [resource, first, last] = m_line.Pathways[place];
            const PathwayCost& cost = m_costed.Costs[place];
            line.Groups.push_back(
                {label->Last.Pathway, {resource, first, last, cost.Stations}, cost});
            if (first == 1) {
                break;
            }
            label = &LabelsOf(first)[static_cast<std::size_t>(label->Rank)];
        }
        std::reverse(line.Groups.begin(), line.Groups.end());
        return line;
    }

    const PreparedLine& m_line;
    const CostedPathways& m_costed;
    std::size_t m_count;
    OfArcs<std::vector<RankedLabel>> m_ways;         ///< as labels without a line before them
    std::vector<std::vector<RankedLabel>> m_labels;  ///< by node
};

}  // namespace

std::vector<Line> CheapestLines(const PreparedLine& line, const CostedPathways& costed, int count) {
    if (line.Model.TaskCount() == 0 || count < 1) {
        return {};
    }
    return RankedSearch(line, costed, count).Lines();
}

}  // namespace quarnel02
