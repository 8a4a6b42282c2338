#include "fixed/CostPathways.h"

#include <exception>
#include <optional>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/ArcDrawing.h"
#include "fixed/DrawLinks.h"
#include "fixed/FindBestPath.h"
#include "line/CheapestLine.h"
#include "model/RowWriter.h"
#include "shell/LoadLineModel.h"

namespace quarnel02 {

namespace {

constexpr Colour kProgressRed{200, 0, 0};

Workload WorkloadOf(const FixedDemandState& state) {
    return {TextToDouble(state.FixedDemand, "Fixed Demand"), state.ShiftCount,
            state.AvailableCycleTime};
}

std::optional<std::int16_t> LimitOf(const FixedDemandState& state) {
    constexpr std::int16_t no_limit = -1;
    return state.StationLimit == no_limit ? std::nullopt : std::optional(state.StationLimit);
}

/// The pathways to be costed, in the order of their rows.
struct OpenPathways {
    std::vector<std::int16_t> Ids;
    std::vector<Pathway> Ranges;
};

void RequireInModel(const LineModel& model, const Pathway& pathway) {
    if (pathway.Resource < 1 || pathway.Resource > model.ResourceCount() || pathway.FirstTask < 1 ||
        pathway.LastTask > model.TaskCount()) {
        throw RunTimeError(ErrorKind::NoCurrentRecord,
                           "The network has a pathway of resource " +
                               NumberText(int{pathway.Resource}) +
                               " that the model does not have. Open the model again.");
    }
}

/// Reads the rows to the end; draws the arc of each.
OpenPathways ReadPathways(RecordSet& rows, const Arcs& arcs, const LineModel& model,
                          Picture& picture) {
    OpenPathways pathways;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
        const Arc& arc = arcs.WithId(rows.Integer(1));
        picture.DrawWidth = 2;
        DrawArc(picture, arc, kProgressRed);
        const Pathway range{rows.Integer(2), static_cast<std::int16_t>(arc.TaskStart),
                            static_cast<std::int16_t>(arc.TaskEnd - 1)};
        RequireInModel(model, range);
        pathways.Ids.push_back(rows.Integer(0));
        pathways.Ranges.push_back(range);
    }
    return pathways;
}

void WriteCosts(const Database& database, const std::vector<std::int16_t>& ids,
                const CostedPathways& costed) {
    RowWriter rows = RowWriter::Changing(
        database, "Pathways", {"Feasible", "Stations", "Time", "Cost", "Investment", "AnnualLabor"},
        "PathId");
    for (std::size_t place = 0; place < ids.size(); ++place) {
        const PathwayCost& cost = costed.Costs[place];
        rows.Write({static_cast<int>(costed.States[place]), int{cost.Stations},
                    static_cast<double>(cost.Time), static_cast<double>(cost.Cost),
                    static_cast<double>(cost.Investment), static_cast<double>(cost.AnnualLabor),
                    int{ids[place]}});
    }
}

/// False when no pathway is within the limit.
bool CostAndWrite(MainForm& form, const Database& database) {
    const Workload workload = WorkloadOf(form.FixedDemandSolve);
    LineModel model = LoadLineModel(database);
    OpenPathways pathways = ReadPathways(form.PathwayRecords, Arcs(database), model, form.picArc);
    std::vector<WorkContent> contents = ContentsOf(model, pathways.Ranges);
    const PreparedLine line{std::move(model), std::move(pathways.Ranges), std::move(contents)};
    CostedPathways costed = CostAll(line, workload, LimitOf(form.FixedDemandSolve));
    const std::vector<Way> cheapest = CheapestWays(line, costed);
    MarkDearer(costed.States, cheapest);
    WriteCosts(database, pathways.Ids, costed);
    return !cheapest.empty();
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
    const bool feasible = CostAndWrite(form, database);
    transaction.Commit();
    if (!feasible) {
        DrawLinks(form);
        form.ShowMessage("There is not a feasible solution!", MessageIcon::Critical);
        return;
    }
    FindBestPath(form);
}

}  // namespace quarnel02
