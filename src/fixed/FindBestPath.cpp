#include "fixed/FindBestPath.h"

#include <optional>
#include <string>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "fixed/DrawLinks.h"
#include "fixed/WriteSolutionSummary.h"
#include "shell/DesignMade.h"

namespace quarnel02 {

namespace {

/// Positions in table BestPaths.
constexpr int kThisPath = 0;
constexpr int kPathId = 1;
constexpr int kSubPath = 2;

struct DeadEnd {
    const char* Message;
    MessageIcon Icon;
};

constexpr DeadEnd kUnreachedStart{"There is no feasible solution.", MessageIcon::Information};
constexpr DeadEnd kUnlabelledWayIn{"There is no feasible solution.", MessageIcon::Critical};
constexpr DeadEnd kBrokenChain{"There is no feasible solution!", MessageIcon::Critical};

/// Least cost of reaching a node that has a label.
std::optional<float> LabelOf(MainForm& form, std::int16_t node) {
    const RecordSet label = form.OpenWorkingCopy().OpenRecordSet(
        "SELECT PathCost FROM BestPaths WHERE ThisPath = " + NumberText(int{node}) + ";");
    return label.RecordCount() != 0 ? std::optional(label.Single(0)) : std::nullopt;
}

/// Cost of reaching a node by this way in, from a start node with this label.
float CostFrom(std::optional<float> start, const RecordSet& ways) {
    return ToSingle(static_cast<double>(start.value_or(0.0F)) + ways.Number(3), "PathCost");
}

/// One search: the label of the node in hand, and the labels written so far.
class PathSearch {
  public:
    explicit PathSearch(MainForm& form)
        : m_form(form),
          m_labels(form.OpenWorkingCopy().OpenRecordSet("SELECT * FROM BestPaths;")) {}

    void ForgetLastRun();
    std::optional<DeadEnd> LabelNodes();
    std::optional<DeadEnd> MarkChain();

  private:
    void ReadWayIn(const RecordSet& ways);
    std::optional<DeadEnd> BeginNode(const RecordSet& ways);
    std::optional<DeadEnd> TryOtherWayIn(const RecordSet& ways);
    void AppendLabel();
    void Mark(std::int16_t pathway) const;

    MainForm& m_form;
    RecordSet m_labels;
    std::int16_t m_pathId = 0;
    std::int16_t m_taskEnd = 0;
    std::int16_t m_taskStart = 0;
    float m_label = 0;  ///< least cost of reaching the node
};

void PathSearch::ForgetLastRun() {
    if (m_labels.RecordCount() > 0) {
        m_labels.MoveLast();
        for (m_labels.MoveFirst(); !m_labels.Eof(); m_labels.MoveNext()) {
            m_labels.Delete();
        }
    }
    RecordSet chosen = m_form.Model.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 4;");
    for (; !chosen.Eof(); chosen.MoveNext()) {
        chosen.Edit();
        chosen.Set("Feasible", 1);
        chosen.Update();
        chosen.MoveToLastModified();
    }
}

void PathSearch::ReadWayIn(const RecordSet& ways) {
    m_pathId = ways.Integer(0);
    m_taskEnd = ways.Integer(1);
    m_taskStart = ways.Integer(2);
}

void PathSearch::AppendLabel() {
    m_labels.AddNew();
    m_labels.Set("ThisPath", m_taskEnd);
    m_labels.Set("PathId", m_pathId);
    m_labels.Set("SubPath", m_taskStart);
    m_labels.Set("PathCost", m_label);
    m_labels.Update();
    m_labels.MoveToLastModified();
}

std::optional<DeadEnd> PathSearch::LabelNodes() {
    RecordSet ways = m_form.Model.OpenRecordSet(
        "SELECT Pathways.PathId, Arcs.TaskEnd, Arcs.TaskStart, Pathways.Cost FROM Arcs INNER JOIN "
        "Pathways ON Arcs.ArcId = Pathways.ArcId Where ((Pathways.Feasible = 1)) ORDER BY "
        "Arcs.TaskEnd, Arcs.TaskStart;");
    ways.MoveLast();
    ways.MoveFirst();
    // Meant: the very first way in counts as a start of the line, wherever it starts.
    ReadWayIn(ways);
    m_label = ways.Single(3);
    for (ways.MoveNext(); !ways.Eof(); ways.MoveNext()) {
        const bool new_node = ways.Integer(1) != m_taskEnd;
        if (const auto dead_end = new_node ? BeginNode(ways) : TryOtherWayIn(ways)) {
            return dead_end;
        }
    }
    AppendLabel();
    return std::nullopt;
}

std::optional<DeadEnd> PathSearch::BeginNode(const RecordSet& ways) {
    AppendLabel();
    ReadWayIn(ways);
    if (m_taskStart == 1) {
        m_label = ways.Single(3);
        return std::nullopt;
    }
    const auto start = LabelOf(m_form, m_taskStart);
    m_label = CostFrom(start, ways);
    // Meant: a start node without a label ends the search, even if a later way in would do.
    return start ? std::nullopt : std::optional(kUnreachedStart);
}

std::optional<DeadEnd> PathSearch::TryOtherWayIn(const RecordSet& ways) {
    const auto start = LabelOf(m_form, ways.Integer(2));
    const float cost = CostFrom(start, ways);
    if (!(cost < m_label)) {
        return std::nullopt;
    }
    ReadWayIn(ways);
    m_label = cost;
    // Meant: a way in from node 1 ends here too, because node 1 has no label.
    return start ? std::nullopt : std::optional(kUnlabelledWayIn);
}

std::optional<DeadEnd> PathSearch::MarkChain() {
    m_labels.MoveLast();
    for (;;) {
        const std::int16_t target = m_labels.Integer(kSubPath);
        Mark(m_labels.Integer(kPathId));
        if (target == 1) {
            return std::nullopt;
        }
        while (m_labels.Integer(kThisPath) != target) {
            m_labels.MovePrevious();
            if (m_labels.Bof()) {
                return kBrokenChain;
            }
        }
    }
}

void PathSearch::Mark(std::int16_t pathway) const {
    RecordSet row = m_form.Model.OpenRecordSet(
        "SELECT Feasible FROM Pathways WHERE PathId = " + NumberText(int{pathway}) + ";");
    row.Edit();
    row.Set("Feasible", 4);
    row.Update();
    row.MoveToLastModified();
}

std::optional<DeadEnd> Search(MainForm& form) {
    PathSearch search(form);
    Transaction transaction(form.Model);
    search.ForgetLastRun();
    auto dead_end = search.LabelNodes();
    if (!dead_end) {
        dead_end = search.MarkChain();
    }
    transaction.Commit();
    return dead_end;
}

/// How far a line that was found goes.
struct LineEnd {
    int LastTask;  ///< of the line
    int Tasks;     ///< of the model

    [[nodiscard]] bool LeavesTasksOut() const { return LastTask < Tasks; }
};

LineEnd FetchLineEnd(MainForm& form) {
    const Database& database = form.OpenWorkingCopy();
    const RecordSet last = database.OpenRecordSet("SELECT Max(ThisPath) FROM BestPaths;");
    const RecordSet gen = database.OpenRecordSet("SELECT Tasks FROM Gen;");
    return {last.Integer(0) - 1, gen.Integer(0)};
}

/// "2 shifts, 60,000 units a year"
std::string DesignCaption(const FixedDemandState& state, LineEnd end) {
    const std::string shifts =
        NumberText(int{state.ShiftCount}) + (state.ShiftCount == 1 ? " shift" : " shifts");
    const std::string volume =
        Format(TextToDouble(state.FixedDemand, "Fixed Demand"), "#,##0") + " units a year";
    return shifts + ", " + volume +
           (end.LeavesTasksOut() ? ", ends after task " + NumberText(end.LastTask) : "");
}

std::string LeftOutText(LineEnd end) {
    return "This line ends after task " + NumberText(end.LastTask) + ": no resource can do tasks " +
           NumberText(end.LastTask + 1) + " to " + NumberText(end.Tasks) + " within the limits.";
}

}  // namespace

float GetPathCost(MainForm& form, std::int16_t node) {
    return LabelOf(form, node).value_or(0.0F);
}

void FindBestPath(MainForm& form) {
    const auto dead_end = Search(form);
    DrawLinks(form);
    if (dead_end) {
        form.ShowMessage(dead_end->Message, dead_end->Icon);
        return;
    }
    WriteSolutionSummary(form);
    const LineEnd end = FetchLineEnd(form);
    NoteDesign(form, DesignCaption(form.FixedDemandSolve, end));
    if (end.LeavesTasksOut()) {
        form.ShowMessage(LeftOutText(end), MessageIcon::Critical);
    }
}

}  // namespace quarnel02
