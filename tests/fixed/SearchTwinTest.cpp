// The search on random networks, most of which costing would not produce, against a plain twin
// that works on a list in memory.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/NetworkScript.h"

namespace quarnel02 {
namespace {

using test::CostedNetwork;
using test::Way;

using Lines = std::vector<std::string>;

constexpr int kNetworks = 400;

struct Label {
    int Pathway;
    int Start;
    float Cost;
};

struct Twin {
    std::map<int, Label> Labels;  ///< by node
    std::set<int> Chosen;
    std::string Message;  ///< empty when the search ends well
};

struct Candidate {
    int Pathway;
    Way At;
};

std::vector<Candidate> CandidatesOf(const std::vector<Way>& ways) {
    std::vector<Candidate> candidates;
    int id = 0;
    for (const Way& way : ways) {
        ++id;
        if (way.State == 1 || way.State == 4) {
            candidates.push_back({id, way});
        }
    }
    std::sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
        return std::pair(a.At.End, a.At.Start) < std::pair(b.At.End, b.At.Start);
    });
    return candidates;
}

float CostOver(const Twin& twin, const Way& way) {
    const auto start = twin.Labels.find(way.Start);
    const float before = start == twin.Labels.end() ? 0.0F : start->second.Cost;
    return before + static_cast<float>(way.Cost);
}

bool IsReached(const Twin& twin, int node) {
    return twin.Labels.contains(node);
}

void LabelNodes(Twin& twin, const std::vector<Candidate>& candidates) {
    int node = candidates.front().At.End;
    Label label{candidates.front().Pathway, candidates.front().At.Start,
                static_cast<float>(candidates.front().At.Cost)};
    for (std::size_t i = 1; i < candidates.size(); ++i) {
        const auto& [pathway, way] = candidates[i];
        const auto own = static_cast<float>(way.Cost);
        const float over = CostOver(twin, way);
        if (way.End != node) {
            twin.Labels[node] = label;
            node = way.End;
            const float here = CostOver(twin, way);
            label = {pathway, way.Start, way.Start == 1 ? own : here};
            if (way.Start != 1 && !IsReached(twin, way.Start)) {
                twin.Message = "message[information]: There is no feasible solution.";
                return;
            }
        } else if (over < label.Cost) {
            if (!IsReached(twin, way.Start)) {
                twin.Message = "message[critical]: There is no feasible solution.";
                return;
            }
            label = {pathway, way.Start, over};
        }
    }
    twin.Labels[node] = label;
}

Twin SearchTwin(const std::vector<Way>& ways) {
    Twin twin;
    LabelNodes(twin, CandidatesOf(ways));
    if (!twin.Message.empty()) {
        return twin;
    }
    int node = twin.Labels.rbegin()->first;
    while (node != 1) {
        const auto label = twin.Labels.find(node);
        if (label == twin.Labels.end()) {
            twin.Message = "message[critical]: There is no feasible solution!";
            return twin;
        }
        twin.Chosen.insert(label->second.Pathway);
        node = label->second.Start;
    }
    return twin;
}

Lines LabelRows(const Twin& twin) {
    Lines rows;
    for (const auto& [node, label] : twin.Labels) {
        rows.push_back(std::to_string(node) + "|" + std::to_string(label.Pathway) + "|" +
                       std::to_string(label.Start) + "|" + NumberText(label.Cost));
    }
    return rows;
}

Lines StatesAfter(const std::vector<Way>& ways, const Twin& twin) {
    Lines states;
    int id = 0;
    for (const Way& way : ways) {
        ++id;
        const int released = way.State == 4 ? 1 : way.State;
        states.push_back(std::to_string(twin.Chosen.contains(id) ? 4 : released));
    }
    return states;
}

std::vector<Way> RandomWays(std::mt19937& engine) {
    const auto roll = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(engine);
    };
    const int last = roll(2, 6);
    const int density = roll(1, 4);
    std::vector<Way> ways;
    for (int start = 1; start < last; ++start) {
        for (int end = start + 1; end <= last; ++end) {
            if (roll(1, 4) <= density) {
                ways.push_back({start, end, static_cast<double>(std::max(0, roll(-6, 12))), 1});
                ways.back().State = roll(1, 8) == 1 ? roll(2, 4) : 1;
            }
        }
    }
    std::shuffle(ways.begin(), ways.end(), engine);
    ways.push_back({1, last + 1, 5, roll(1, 2)});
    if (CandidatesOf(ways).empty()) {
        ways.back().State = 1;
    }
    return ways;
}

bool EndsEarly(const std::vector<Way>& ways, const Twin& twin) {
    const auto last = std::max_element(ways.begin(), ways.end(),
                                       [](const Way& a, const Way& b) { return a.End < b.End; });
    return twin.Labels.rbegin()->first < last->End;
}

TEST(SearchTwin, AgreesOnRandomNetworks) {
    std::map<std::string, int> outcomes;
    for (unsigned seed = 1; seed <= kNetworks; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 engine(seed);
        const std::vector<Way> ways = RandomWays(engine);
        const Twin twin = SearchTwin(ways);
        CostedNetwork network(ways);
        network.Search();
        EXPECT_EQ(network.HasReport(), twin.Message.empty());
        if (!twin.Message.empty()) {
            EXPECT_EQ(network.Form.Events, Lines{twin.Message});
        } else {
            EXPECT_EQ(network.Form.Events.size(), EndsEarly(ways, twin) ? 2U : 1U);
        }
        EXPECT_EQ(network.Labels(), LabelRows(twin));
        EXPECT_EQ(network.States(), StatesAfter(ways, twin));
        ++outcomes[twin.Message];
    }
    EXPECT_EQ(outcomes.size(), 4U) << "an outcome is missing";
    EXPECT_GT(outcomes[""], kNetworks / 10);
}

}  // namespace
}  // namespace quarnel02
