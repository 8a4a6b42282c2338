#include "fixed/DrawLinks.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "fixed/ArcDrawing.h"
#include "fixed/NetworkPicture.h"
#include "line/CheapestLine.h"

namespace quarnel02 {

namespace {

/// Reads what the picture of the network shows.
class NetworkReader {
  public:
    NetworkReader(const Database& database, PathwayCosts costs)
        : m_database(database), m_costs(costs), m_arcs(database) {}

    NetworkValues Read(std::int16_t nodes) {
        m_values.Nodes = nodes;
        m_values.Spacing = NodeSpacing(nodes);
        m_values.Arcs.assign(m_arcs.All().begin(), m_arcs.All().end());
        m_ways.resize(m_values.Arcs.size());
        ReadPathways();
        ReadReaching();
        NameArcs();
        return std::move(m_values);
    }

  private:
    void ReadPathways() {
        RecordSet rows =
            m_database.OpenRecordSet("SELECT ArcId, Feasible, ResourceId, Cost FROM Pathways;");
        for (; !rows.Eof(); rows.MoveNext()) {
            const std::size_t place = PlaceOf(m_arcs.WithId(rows.Integer(0)));
            const bool costed = m_costs == PathwayCosts::Known && !IsNull(rows.Field(3));
            const ArcWay way{rows.Integer(2), rows.Integer(1), costed ? rows.Number(3) : 0};
            NoteState(place, static_cast<std::size_t>(way.State));
            m_ways[place].push_back(way);
        }
    }

    /// Labels are those of the search that chose the line which is shown.
    void ReadReaching() {
        constexpr auto chosen = static_cast<std::size_t>(PathwayState::Chosen);
        if (m_costs != PathwayCosts::Known || m_values.InState.at(chosen).empty()) {
            return;
        }
        RecordSet rows = m_database.OpenRecordSet("SELECT ThisPath, SubPath FROM BestPaths;");
        for (; !rows.Eof(); rows.MoveNext()) {
            if (const Arc* arc = m_arcs.Between(rows.Integer(1), rows.Integer(0))) {
                m_values.Reaching.push_back(PlaceOf(*arc));
            }
        }
    }

    [[nodiscard]] std::size_t PlaceOf(const Arc& arc) const {
        return static_cast<std::size_t>(&arc - m_arcs.All().data());
    }

    /// Dearer ways are no layer of their own.
    void NoteState(std::size_t place, std::size_t state) {
        constexpr std::size_t dearer = 3;
        const bool first = std::none_of(
            m_ways[place].begin(), m_ways[place].end(),
            [&](const ArcWay& way) { return static_cast<std::size_t>(way.State) == state; });
        if (state < NetworkValues::kStates && state != dearer && first) {
            m_values.InState.at(state).push_back(place);
        }
    }

    void NameArcs() {
        const auto names = ResourceNames(m_database);
        for (std::size_t place = 0; place < m_ways.size(); ++place) {
            const Arc& arc = m_values.Arcs[place];
            m_values.Words.push_back(ArcWords(arc.TaskStart, arc.TaskEnd, m_ways[place], names));
        }
    }

    const Database& m_database;
    PathwayCosts m_costs;
    Arcs m_arcs;
    NetworkValues m_values;
    std::vector<std::vector<ArcWay>> m_ways;  ///< by place of the arc
};

}  // namespace

void DrawLinks(const Database& database, const TextBoxes& boxes, Picture& network,
               PathwayCosts costs) {
    network.Clear();
    const double tasks = TextToDouble(boxes.Text(TextBox::txtTasks), "Number of tasks");
    const std::int16_t nodes = ToInteger(tasks + 1, "Number of tasks");
    ComposeNetwork(network, NetworkReader(database, costs).Read(nodes));
}

}  // namespace quarnel02
