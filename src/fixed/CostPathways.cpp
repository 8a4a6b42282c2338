#include "fixed/CostPathways.h"

#include <exception>
#include <string>
#include <vector>

#include "basic/Numbers.h"
#include "fixed/ArcDrawing.h"
#include "fixed/CostModel.h"
#include "fixed/DrawLinks.h"
#include "fixed/FindBestPath.h"

namespace quarnel02 {

namespace {

constexpr Colour kProgressRed{200, 0, 0};

struct TaskRange {
    int First;
    int Last;
};

ResourceCosts FetchResource(const Database& database, int resource) {
    const RecordSet row = database.OpenRecordSet(
        "SELECT * FROM Resources WHERE ResourceId = " + NumberText(resource) + ";");
    return {row.Number(4), row.Number(5), row.Number(6),
            row.Number(7), row.Number(8), row.Number(9)};
}

Production FetchProduction(const Database& database) {
    const RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    return {gen.Number(2), gen.Number(3), gen.Number(4), gen.Number(5)};
}

/// Costs pathways one after the other; buffers are reused.
class PathwayCoster {
  public:
    explicit PathwayCoster(MainForm& form);

    /// Costs the current row and writes the result into it.
    void CostCurrent(RecordSet& pathways);

  private:
    TaskRange DrawProgress(int arc);
    void FetchMatrix(int resource, TaskRange tasks, const char* order,
                     std::vector<MatrixEntry>& entries) const;
    void Write(RecordSet& pathways, const PathwayCost& cost) const;

    const Database& m_database;
    Picture& m_picture;
    Workload m_workload;
    std::int16_t m_limit;
    std::vector<MatrixEntry> m_byTool;
    std::vector<MatrixEntry> m_byTask;
};

PathwayCoster::PathwayCoster(MainForm& form)
    : m_database(form.Model),
      m_picture(form.picArc),
      m_workload{TextToDouble(form.FixedDemandSolve.FixedDemand, "Fixed Demand"),
                 form.FixedDemandSolve.ShiftCount, form.FixedDemandSolve.AvailableCycleTime},
      m_limit(form.FixedDemandSolve.StationLimit) {}

TaskRange PathwayCoster::DrawProgress(int arc) {
    const RecordSet row =
        m_database.OpenRecordSet("SELECT * FROM Arcs WHERE ArcId = " + NumberText(arc) + ";");
    m_picture.DrawWidth = 2;
    DrawArc(m_picture, row, kProgressRed);
    return {row.Integer(1), row.Integer(2) - 1};
}

void PathwayCoster::FetchMatrix(int resource, TaskRange tasks, const char* order,
                                std::vector<MatrixEntry>& entries) const {
    RecordSet rows = m_database.OpenRecordSet(
        "SELECT TaskTime, ToolNum, ToolCost From Matrix WHERE (ResourceId = " +
        NumberText(resource) + " AND TaskId Between " + NumberText(tasks.First) + " And " +
        NumberText(tasks.Last) + ") ORDER BY " + order + ";");
    rows.MoveLast();
    rows.MoveFirst();
    entries.clear();
    for (; !rows.Eof(); rows.MoveNext()) {
        entries.push_back({rows.Number(0), rows.Integer(1), rows.Number(2)});
    }
}

void PathwayCoster::Write(RecordSet& pathways, const PathwayCost& cost) const {
    pathways.Edit();
    if (cost.OverEveryLimit || (m_limit != -1 && cost.Stations > m_limit)) {
        pathways.Set("Feasible", 2);
    }
    pathways.Set("Stations", cost.Stations);
    pathways.Set("Time", cost.Time);
    pathways.Set("Cost", cost.Cost);
    pathways.Set("Investment", cost.Investment);
    pathways.Set("AnnualLabor", cost.AnnualLabor);
    pathways.Update();
    pathways.MoveToLastModified();
}

void PathwayCoster::CostCurrent(RecordSet& pathways) {
    const int resource = pathways.Integer(2);
    const TaskRange tasks = DrawProgress(pathways.Integer(1));
    FetchMatrix(resource, tasks, "ToolNum, TaskId", m_byTool);
    const ResourceCosts costs = FetchResource(m_database, resource);
    const Production production = FetchProduction(m_database);
    FetchMatrix(resource, tasks, "TaskId", m_byTask);
    Write(pathways, CostOfPathway(m_byTool, m_byTask, costs, production, m_workload));
}

/// Draws the network again when an error leaves its scope, so that no progress colour stays.
class NetworkRedraw {
  public:
    explicit NetworkRedraw(MainForm& form) : m_form(form) {}
    ~NetworkRedraw() {
        if (std::uncaught_exceptions() > m_exceptions) {
            Redraw();
        }
    }
    NetworkRedraw(const NetworkRedraw&) = delete;
    NetworkRedraw& operator=(const NetworkRedraw&) = delete;
    NetworkRedraw(NetworkRedraw&&) = delete;
    NetworkRedraw& operator=(NetworkRedraw&&) = delete;

  private:
    void Redraw() noexcept {
        try {
            DrawLinks(m_form);
        } catch (const std::exception&) {  // the first error is the one to report
            return;
        }
    }

    MainForm& m_form;
    int m_exceptions = std::uncaught_exceptions();
};

/// False when no pathway is left in state 1.
bool KeepCheapestOfEachArc(const Database& database) {
    constexpr int arc_id = 1;
    RecordSet pathways =
        database.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 1 ORDER BY ArcId, Cost;");
    if (pathways.RecordCount() == 0) {
        return false;
    }
    pathways.MoveLast();
    pathways.MoveFirst();
    int arc = pathways.Integer(arc_id);
    for (pathways.MoveNext(); !pathways.Eof(); pathways.MoveNext()) {
        if (pathways.Integer(arc_id) != arc) {
            arc = pathways.Integer(arc_id);
            continue;
        }
        pathways.Edit();
        pathways.Set("Feasible", 3);
        pathways.Update();
        pathways.MoveToLastModified();
    }
    return true;
}

}  // namespace

void CostPathways(MainForm& form) {
    const NetworkRedraw redraw(form);
    const Database database = form.Model;
    Transaction transaction(database);
    RecordSet& pathways = form.PathwayRecords;
    pathways = database.OpenRecordSet("SELECT * FROM Pathways WHERE Feasible = 1;");
    if (pathways.RecordCount() == 0) {
        DrawLinks(form);
        form.ShowMessage("Please complete the task and resource tables first.",
                         MessageIcon::Information);
        return;
    }
    PathwayCoster coster(form);
    pathways.MoveLast();
    for (pathways.MoveFirst(); !pathways.Eof(); pathways.MoveNext()) {
        coster.CostCurrent(pathways);
    }
    const bool feasible = KeepCheapestOfEachArc(database);
    transaction.Commit();
    if (!feasible) {
        DrawLinks(form);
        form.ShowMessage("There is not a feasible solution!", MessageIcon::Critical);
        return;
    }
    FindBestPath(form);
}

}  // namespace quarnel02
