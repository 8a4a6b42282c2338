#include "fixed/CostPathways.h"

#include <unordered_set>
#include <utility>
#include <vector>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "fixed/ArcDrawing.h"
#include "line/CheapestLine.h"
#include "model/RowWriter.h"

namespace quarnel02 {

namespace {

constexpr Colour kProgressRed{200, 0, 0};

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

/// Draws each arc once, however many pathways it has: the next would hide the last.
class ProgressDrawing {
  public:
    explicit ProgressDrawing(Picture& picture) : m_picture(picture) {}

    void Show(const Arc& arc) {
        if (m_drawn.insert(arc.Id).second) {
            m_picture.DrawWidth = 2;
            DrawArc(m_picture, arc, kProgressRed);
        }
    }

  private:
    Picture& m_picture;
    std::unordered_set<int> m_drawn;
};

OpenPathways ReadPathways(RecordSet& rows, const Arcs& arcs, const LineModel& model,
                          Picture& network) {
    OpenPathways pathways;
    ProgressDrawing progress(network);
    for (; !rows.Eof(); rows.MoveNext()) {
        const Arc& arc = arcs.WithId(rows.Integer(1));
        progress.Show(arc);
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

}  // namespace

Costing CostPathways(const Database& database, const LineModel& model,
                     const FixedDemandRequest& request, Picture& network) {
    Transaction transaction(database);
    RecordSet rows = database.OpenRecordSet(
        "SELECT PathId, ArcId, ResourceId FROM Pathways WHERE Feasible = 1;");
    if (rows.Eof()) {
        return Costing::NoPathway;
    }
    OpenPathways pathways = ReadPathways(rows, Arcs(database), model, network);
    std::vector<WorkContent> contents = ContentsOf(model, pathways.Ranges);
    const PreparedLine line{model, std::move(pathways.Ranges), std::move(contents)};
    CostedPathways costed = CostAll(line, request);
    const std::vector<Way> cheapest = CheapestWays(line, costed);
    MarkDearer(costed.States, cheapest);
    WriteCosts(database, pathways.Ids, costed);
    transaction.Commit();
    return cheapest.empty() ? Costing::NothingFeasible : Costing::Feasible;
}

}  // namespace quarnel02
