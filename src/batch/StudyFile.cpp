#include "batch/StudyFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "batch/Answers.h"
#include "batch/Json.h"
#include "batch/OpenedModel.h"
#include "shell/LoadLineModel.h"
#include "shell/ModelCheck.h"
#include "shell/StoredScenarios.h"
#include "study/LargestVolume.h"
#include "study/LineText.h"
#include "study/StudyTables.h"

namespace quarnel02 {

namespace {

constexpr std::size_t kFewestPoints = 2;

/// What a study has found.
struct Findings {
    StudyTable Table;
    Json Details;       ///< further keys of the JSON, an object
    std::string Notes;  ///< lines below the table for reading
    bool Found = true;  ///< whether there is any line
    std::string WhyNot;
};

int WholeVolume(const std::string& text, const char* option) {
    const double volume = TextToDouble(text, option);
    if (volume != std::trunc(volume) || volume < 1 || volume > kMostVolume) {
        throw RunTimeError(ErrorKind::Overflow, std::string(option) + ": " + text +
                                                    " must be a whole number from 1 to " +
                                                    Format(kMostVolume, "#,###") + ".");
    }
    return static_cast<int>(volume);
}

/// A study of the model that a form shows.
class Study {
  public:
    Study(BatchForm& form, const SolveRequest& request, LineModel model)
        : m_form(form), m_request(request), m_line(Prepare(std::move(model))) {}

    [[nodiscard]] Findings Run() {
        switch (m_request.Study->Kind) {
            case StudyKind::Volumes:
                return Volumes();
            case StudyKind::Alternatives:
                return m_request.Stochastic ? BestOfCapacities() : Alternatives();
            case StudyKind::Sensitivity:
                return m_request.Stochastic ? ExpectedSensitivity() : Sensitivity();
            case StudyKind::Scenarios:
                return Scenarios();
            case StudyKind::WhyNot:
                return ExplainWhyNot();
        }
        return {};
    }

  private:
    [[nodiscard]] const LineModel& Model() const { return m_line.Model; }

    [[nodiscard]] FixedDemandRequest Request() {
        const FixedDemandAnswers answers = AnswersOf(m_form, m_request);
        const FixedDemandRequest request{TextToDouble(answers.Demand, "Fixed Demand"),
                                         answers.Shifts, StationLimitOf(m_request)};
        static_cast<void>(WorkloadOf(request, Model().Parameters()));  // refuses volumes
        return request;
    }

    /// Twice the largest volume of the demand rows.
    [[nodiscard]] int UsualLastVolume() const {
        double most = 0;
        for (const DemandPoint& point : Model().Demand()) {
            most = std::max(most, std::ceil(2 * static_cast<double>(point.Volume)));
        }
        if (most < 1) {
            throw RunTimeError(ErrorKind::TypeMismatch,
                               PathText(m_request.Model) +
                                   " has no demand row with a volume. Say with --to up to which "
                                   "annual volume to look.");
        }
        return static_cast<int>(std::min<double>(most, kMostVolume));
    }

    [[nodiscard]] VolumeSpan Span() const {
        const StudyOrder& order = *m_request.Study;
        VolumeSpan span;
        span.From = order.From ? WholeVolume(*order.From, "--from") : 1;
        span.To = order.To ? WholeVolume(*order.To, "--to") : UsualLastVolume();
        span.StationLimit = StationLimitOf(m_request);
        return span;
    }

    [[nodiscard]] std::vector<VolumeRange> Wanted(std::vector<VolumeRange> ranges) const {
        if (m_request.Shifts != 0) {
            std::erase_if(
                ranges, [&](const VolumeRange& range) { return range.Shifts != m_request.Shifts; });
        }
        return ranges;
    }

    [[nodiscard]] Findings Volumes() const {
        const VolumeSpan span = Span();
        Findings findings{VolumesTable(Model(), Wanted(VolumeRanges(m_line, span))), Json::object(),
                          "", true, ""};
        findings.Details["from"] = span.From;
        findings.Details["to"] = span.To;
        findings.Details["station_limit"] = span.StationLimit ? Json(*span.StationLimit) : Json();
        if (m_request.Format == PrintFormat::Json) {
            findings.Details["single_class"] = SingleClasses(span);
        }
        const std::int16_t shifts = m_request.Shifts != 0 ? m_request.Shifts : std::int16_t{3};
        NoteWhetherFound(findings, {static_cast<double>(span.From), shifts, span.StationLimit});
        return findings;
    }

    [[nodiscard]] Json SingleClasses(const VolumeSpan& span) const {
        Json classes = Json::array();
        for (const TypeRanges& alone : RangesByType(Model(), span)) {
            classes.push_back({{"type", alone.Type},
                               {"rows", RowsJson(VolumesTable(Model(), Wanted(alone.Ranges)))}});
        }
        return classes;
    }

    void NoteWhetherFound(Findings& findings, const FixedDemandRequest& request) const {
        findings.Found = !findings.Table.Rows.empty();
        if (!findings.Found) {
            findings.WhyNot = WhyNotText(ExplainNoLine(m_line, request), request);
        }
    }

    static void NoteRequest(Findings& findings, const FixedDemandRequest& request) {
        findings.Details["shifts"] = request.Shifts;
        findings.Details["volume"] = JsonNumber(request.Volume);
        findings.Details["station_limit"] =
            request.StationLimit ? Json(*request.StationLimit) : Json();
    }

    [[nodiscard]] Findings Alternatives() {
        const FixedDemandRequest request = Request();
        const std::vector<Alternative> best = AlternativesFor(m_line, request);
        Findings findings{AlternativesTable(Model(), best), Json::object(), "", true, ""};
        NoteRequest(findings, request);
        NoteWhetherFound(findings, request);
        if (findings.Found) {
            NoteReplacements(findings, request, best.front().Design);
        }
        return findings;
    }

    void NoteReplacements(Findings& findings, const FixedDemandRequest& request,
                          const Line& design) const {
        Json& all = findings.Details["replacements"] = Json::array();
        const auto replacements = Replacements(m_line, request, design);
        for (std::size_t place = 0; place < replacements.size(); ++place) {
            if (!replacements[place]) {
                continue;
            }
            const auto& [group, difference] = *replacements[place];
            const std::string instead = GroupText(Model(), group.Group);
            all.push_back({{"station", place + 1},
                           {"line", instead},
                           {"difference", JsonNumber(difference)}});
            findings.Notes += "Station " + NumberText(static_cast<int>(place) + 1) +
                              ": the next best is " + instead + ", " + Format(difference, "#,##0") +
                              " more.\n";
        }
    }

    [[nodiscard]] ExpectedDesigns Designs() const {
        return DesignWithCurves(Model(),
                                ToSingle(Model().Parameters().Penalty, "Penalty ($/unit)"));
    }

    void NoteWhetherExpected(Findings& findings) const {
        findings.Found = !findings.Table.Rows.empty();
        if (!findings.Found) {
            const FixedDemandRequest least = LeastExpectedRequest(Model());
            findings.WhyNot = ExpectedWhyNotText(ExplainNoLine(m_line, least), least);
        }
    }

    [[nodiscard]] Findings BestOfCapacities() const {
        const std::vector<Capacity> best = BestCapacities(Designs());
        Findings findings{CapacitiesTable(Model(), best), Json::object(), "", true, ""};
        Json& details = findings.Details["capacities"] = Json::array();
        for (const Capacity& capacity : best) {
            details.push_back(DetailsOf(capacity));
            const std::string word = CapacityWord(capacity);
            findings.Notes += word.empty()
                                  ? ""
                                  : "Capacity " + NumberText(static_cast<int>(details.size())) +
                                        ": " + word + ".\n";
        }
        NoteWhetherExpected(findings);
        return findings;
    }

    [[nodiscard]] static Json DetailsOf(const Capacity& capacity) {
        const CostFigures& totals = capacity.Table.Totals;
        Json details = {{"capacity", JsonNumber(DecimalOfSingle(capacity.Line.Capacity))},
                        {"difference", JsonNumber(capacity.Difference)},
                        {"capital", JsonNumber(totals.Capital)},
                        {"machine", JsonNumber(totals.Machine)},
                        {"labour", JsonNumber(totals.Labour)},
                        {"shortage_probability", JsonNumber(capacity.ShortageProbability)},
                        {"unmet_units", JsonNumber(capacity.UnmetUnits)},
                        {"word", CapacityWord(capacity)}};
        Json& demand = details["demand"] = Json::array();
        for (const CapacityOutcome& outcome : capacity.Outcomes) {
            demand.push_back({{"volume", JsonNumber(DecimalOfSingle(outcome.Point.Volume))},
                              {"shifts", outcome.Shifts},
                              {"production", JsonNumber(outcome.Production)},
                              {"utilisation", JsonNumber(outcome.Utilisation)},
                              {"cost", JsonNumber(outcome.Cost)}});
        }
        return details;
    }

    [[nodiscard]] double Share() const {
        constexpr double percent = 100;
        const auto& share = m_request.Study->Share;
        return share ? TextToDouble(*share, "--share") / percent : kUsualShare;
    }

    [[nodiscard]] Findings Sensitivity() {
        const FixedDemandRequest request = Request();
        Findings findings{SensitivityTable(SensitivityOf(m_line, request, Share())), Json::object(),
                          "", true, ""};
        NoteRequest(findings, request);
        NoteWhetherFound(findings, request);
        return findings;
    }

    [[nodiscard]] Findings ExpectedSensitivity() const {
        Findings findings{SensitivityTable(SensitivityOf(Designs(), Share())), Json::object(), "",
                          true, ""};
        NoteWhetherExpected(findings);
        return findings;
    }

    [[nodiscard]] Findings Scenarios() {
        DesignOrder base{Model(), {}};
        if (!m_request.Stochastic) {
            base.Fixed = Request();
        }
        const std::vector<ScenarioOutcome> outcomes =
            SolveScenarios(base, ReadScenarios(m_form.OpenWorkingCopy()));
        Findings findings{ScenariosTable(outcomes), Json::object(), "", true, ""};
        findings.Found = std::any_of(outcomes.begin(), outcomes.end(),
                                     [](const ScenarioOutcome& each) { return each.HasLine; });
        return findings;
    }

    [[nodiscard]] Findings ExplainWhyNot() {
        const FixedDemandRequest request =
            m_request.Stochastic ? LeastExpectedRequest(Model()) : Request();
        const WhyNot why = ExplainNoLine(m_line, request);
        Findings findings{WhyNotTable(why), Json::object(), "", true, ""};
        findings.Notes =
            m_request.Stochastic ? ExpectedWhyNotText(why, request) : WhyNotText(why, request);
        if (findings.Notes.empty()) {
            findings.Notes = "There is a line.\n";
        }
        return findings;
    }

    BatchForm& m_form;
    const SolveRequest& m_request;
    PreparedLine m_line;
};

const char* NameOf(StudyKind kind) {
    switch (kind) {
        case StudyKind::Volumes:
            return "volumes";
        case StudyKind::Alternatives:
            return "alternatives";
        case StudyKind::Sensitivity:
            return "sensitivity";
        case StudyKind::Scenarios:
            return "scenarios";
        case StudyKind::WhyNot:
            return "why-not";
    }
    return "";
}

Json JsonOf(const SolveRequest& request, const Findings& findings) {
    Json json = JsonHead(request);
    json["study"] = NameOf(request.Study->Kind);
    json["design"] = request.Stochastic ? "stochastic" : "fixed";
    json.update(findings.Details);
    json["rows"] = RowsJson(findings.Table);
    return json;
}

/// Of several models each row says which one it is of.
StudyTable WithModel(StudyTable table, const std::string& model) {
    table.Columns.insert(table.Columns.begin(), "model");
    for (auto& row : table.Rows) {
        row.insert(row.begin(), model);
    }
    return table;
}

std::string Printed(const SolveRequest& request, const Findings& findings) {
    switch (request.Format) {
        case PrintFormat::Json:
            return JsonLine(JsonOf(request, findings));
        case PrintFormat::Csv:
            return CsvText(request.OneOfSeveral ? WithModel(findings.Table, PathText(request.Model))
                                                : findings.Table);
        case PrintFormat::Text:
            break;
    }
    const bool sentences = request.Study->Kind == StudyKind::WhyNot;
    return (sentences ? "" : PlainText(findings.Table)) + findings.Notes;
}

/// Whether the model can be studied; else the form has said what is missing.
bool IsComplete(BatchForm& form, const Database& database, const SolveRequest& request) {
    if (!HasTasksAndResources(database, form)) {
        return false;
    }
    RequireUsableModel(database);
    if (!request.Stochastic) {
        return true;
    }
    RequireUsableDemand(database);
    if (LoadLineModel(database).Demand().size() < kFewestPoints) {
        form.ShowMessage("You must first enter a probability distribution for demand.",
                         MessageIcon::Information);
        return false;
    }
    return true;
}

SolveOutcome NotComplete(const BatchForm& form, const SolveRequest& request) {
    SolveOutcome outcome{"", form.Messages(), ""};
    if (request.Format == PrintFormat::Json) {
        outcome.Report = JsonLine(NoResultJson(JsonHead(request), outcome.Messages));
    }
    return outcome;
}

}  // namespace

SolveOutcome StudyFile(const SolveRequest& request) {
    RequireStationLimit(request);
    OpenedModel opened(request.Model, request.Progress);
    BatchForm& form = opened.Form();
    const Database database = form.OpenWorkingCopy();
    if (!IsComplete(form, database, request)) {
        return NotComplete(form, request);
    }
    const Findings findings = Study(form, request, LoadLineModel(database)).Run();
    SolveOutcome outcome{Printed(request, findings), {}, findings.WhyNot};
    if (!findings.Found) {
        outcome.Messages = {"There is no feasible solution."};
    }
    return outcome;
}

}  // namespace quarnel02
