#include "stoch/RunStochastic.h"

#include <set>
#include <system_error>
#include <utility>

#include "basic/Numbers.h"
#include "basic/ScopeGuard.h"
#include "line/StochasticDesign.h"
#include "shell/LoadLineModel.h"
#include "shell/Reports.h"
#include "stoch/BuildDemandTable.h"
#include "stoch/BuildShiftTable.h"
#include "stoch/DrawStochasticCosts.h"
#include "stoch/ExtractStochasticSolution.h"
#include "stoch/Notices.h"
#include "stoch/StageTables.h"
#include "stoch/StationsOnCurve.h"
#include "stoch/WriteProductionReport.h"
#include "study/LineText.h"

namespace quarnel02 {

namespace {

/// Demand rows that are no demand points. More points than a design takes are an error of their
/// own.
void NoticeRowsLeftOut(const Database& database, const LineModel& model, SolveStatus& status) {
    const auto points = static_cast<int>(model.Demand().size());
    const int rows = database.OpenRecordSet("SELECT Volume FROM Demand;").RecordCount();
    if (points <= kMostDemandPoints && rows > points) {
        status.Notice(NoticeOfRowsLeftOut(rows - points));
    }
}

/// One solve of a complete model.
class Solve {
  public:
    Solve(const Database& database, const StochasticRequest& request, const RunFiles& files,
          SolveStatus& status, Dialogs& dialogs, PictureBoxes& pictures)
        : m_database(database),
          m_request(request),
          m_files(files),
          m_status(status),
          m_dialogs(dialogs),
          m_pictures(pictures),
          m_model(LoadLineModel(database)) {}

    /// An earlier report stays until it is known that the run has an end.
    StochasticOutcome Run() {
        std::optional<StochasticLine> line;
        try {
            line = BuildTables();
        } catch (const SolveCancelled&) {
            return {StochasticEnd::Cancelled, {}, {}, {}};
        }
        RemoveReport(WorkingCopy(m_request.ApplicationDirectory), kProductionReport);
        if (!line) {
            return {StochasticEnd::ImpossibleTask, {}, {}, {}};
        }
        std::string summary = WriteProductionReport(*line, m_model, m_database,
                                                    m_request.ApplicationDirectory, m_pictures);
        return {StochasticEnd::Designed, std::move(summary), CapacityText(*line),
                ExpectedCostText(*line), line};
    }

  private:
    /// Shows the status window meanwhile. Where a task is impossible it says so and leaves the
    /// window: the program is to end.
    std::optional<StochasticLine> BuildTables() {
        m_status.ShowStatus("PLEASE WAIT -- PROGRAM IS RUNNING");
        const FailureGuard hide([this] { m_status.HideStatus(); });
        NoticeRowsLeftOut(m_database, m_model, m_status);
        const DemandDistribution demand(m_model.Demand());
        BuildDemandTable(demand, m_files, m_pictures.picGraph[1]);
        BuildShiftTable(demand, m_files, m_pictures.picGraph[3]);
        StageTables tables(m_files, m_status, m_model.TaskCount());
        const StochasticResult result = DesignForDemand(m_model, m_request.PenaltyPerUnit, tables);
        if (result.ImpossibleTask != 0) {
            m_dialogs.ShowMessage(
                ImpossibleTaskText(m_model, result.ImpossibleTask, demand.FirstVolume()),
                MessageIcon::Critical);
            return std::nullopt;
        }
        const StochasticLine& line = ExtractStochasticSolution(result);
        DrawStochasticCosts(line, result.ExpectedCosts, demand, m_pictures.picGraph[3],
                            [&](const CurveSegment& segment) {
                                return LineText(m_model, StationsOn(segment, tables.Prefixes()));
                            });
        m_status.HideStatus();
        return line;
    }

    const Database& m_database;
    const StochasticRequest& m_request;
    const RunFiles& m_files;
    SolveStatus& m_status;
    Dialogs& m_dialogs;
    PictureBoxes& m_pictures;
    LineModel m_model;
};

/// The report of an earlier run, after this one has failed. What cannot be removed stays.
void RemoveReport(const WorkingCopy& copy) noexcept {
    try {
        if (HasReport(copy, kProductionReport)) {
            std::filesystem::remove(copy.File(kProductionReport));
        }
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch)
        // Meant: the error that ended the run is the one to report.
    }
}

}  // namespace

bool HasEveryResource(const Database& database) {
    RecordSet rows = database.OpenRecordSet("SELECT ResourceId FROM Resources;");
    std::set<Value> numbers;
    for (; !rows.Eof(); rows.MoveNext()) {
        numbers.insert(rows.Field(0));
    }
    std::int64_t number = database.OpenRecordSet("SELECT Resources FROM Gen;").Integer(0);
    while (number > 0 && numbers.contains(Value(number))) {
        --number;
    }
    return number == 0;
}

StochasticOutcome RunStochastic(const Database& database, const StochasticRequest& request,
                                SolveStatus& status, Dialogs& dialogs, PictureBoxes& pictures) {
    const auto start = std::chrono::system_clock::now();
    const RunFiles files(request.ApplicationDirectory, request.KeepRunFiles);
    files.DeleteAll();
    const FailureGuard clean_up([&] { files.DeleteAll(); });
    RequireFewResources(database.OpenRecordSet("SELECT Resources FROM Gen;").Integer(0));
    if (!HasEveryResource(database)) {
        dialogs.ShowMessage("Please complete the task and resource information tables first.",
                            MessageIcon::Information);
        return {};
    }
    Solve solve(database, request, files, status, dialogs, pictures);
    const WorkingCopy copy(request.ApplicationDirectory);
    const FailureGuard no_report([&] { RemoveReport(copy); });
    StochasticOutcome outcome = solve.Run();
    if (outcome.End != StochasticEnd::ImpossibleTask) {
        files.DeleteAll();
    }
    outcome.Took = std::chrono::system_clock::now() - start;
    return outcome;
}

}  // namespace quarnel02
