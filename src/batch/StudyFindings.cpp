#include "batch/StudyFindings.h"

#include <algorithm>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "batch/StudyAsked.h"
#include "shell/StoredScenarios.h"
#include "study/LineText.h"
#include "study/StudyTables.h"

namespace quarnel02 {

namespace {

/// A study of the model that a form shows.
class Study {
  public:
    Study(BatchForm& form, const SolveRequest& request, LineModel model)
        : m_form(form), m_request(request), m_line(Prepare(std::move(model))) {}

    [[nodiscard]] StudyFindings Run() {
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

    [[nodiscard]] std::vector<VolumeRange> Wanted(std::vector<VolumeRange> ranges) const {
        if (m_request.Shifts != 0) {
            std::erase_if(
                ranges, [&](const VolumeRange& range) { return range.Shifts != m_request.Shifts; });
        }
        return ranges;
    }

    [[nodiscard]] StudyFindings Volumes() const {
        const VolumeSpan span = SpanOf(m_request, Model());
        StudyFindings findings{VolumesTable(Model(), Wanted(VolumeRanges(m_line, span))),
                               Json::object(), "", true, ""};
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

    void NoteWhetherFound(StudyFindings& findings, const FixedDemandRequest& request) const {
        findings.Found = !findings.Table.Rows.empty();
        if (!findings.Found) {
            findings.WhyNot = WhyNotText(ExplainNoLine(m_line, request), request);
        }
    }

    static void NoteRequest(StudyFindings& findings, const FixedDemandRequest& request) {
        findings.Details["shifts"] = request.Shifts;
        findings.Details["volume"] = JsonNumber(request.Volume);
        findings.Details["station_limit"] =
            request.StationLimit ? Json(*request.StationLimit) : Json();
    }

    [[nodiscard]] StudyFindings Alternatives() {
        const FixedDemandRequest request = FixedRequestOf(m_form, m_request);
        const std::vector<Alternative> best = AlternativesFor(m_line, request);
        StudyFindings findings{AlternativesTable(Model(), best), Json::object(), "", true, ""};
        NoteRequest(findings, request);
        NoteWhetherFound(findings, request);
        if (findings.Found) {
            NoteReplacements(findings, request, best.front().Design);
        }
        return findings;
    }

    void NoteReplacements(StudyFindings& findings, const FixedDemandRequest& request,
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

    void NoteWhetherExpected(StudyFindings& findings) const {
        findings.Found = !findings.Table.Rows.empty();
        if (!findings.Found) {
            const FixedDemandRequest least = LeastExpectedRequest(Model());
            findings.WhyNot = ExpectedWhyNotText(ExplainNoLine(m_line, least), least);
        }
    }

    [[nodiscard]] StudyFindings BestOfCapacities() const {
        const std::vector<Capacity> best = BestCapacities(Designs());
        StudyFindings findings{CapacitiesTable(Model(), best), Json::object(), "", true, ""};
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

    [[nodiscard]] StudyFindings Sensitivity() {
        const FixedDemandRequest request = FixedRequestOf(m_form, m_request);
        StudyFindings findings{SensitivityTable(SensitivityOf(m_line, request, ShareOf(m_request))),
                               Json::object(), "", true, ""};
        NoteRequest(findings, request);
        NoteWhetherFound(findings, request);
        return findings;
    }

    [[nodiscard]] StudyFindings ExpectedSensitivity() const {
        StudyFindings findings{SensitivityTable(SensitivityOf(Designs(), ShareOf(m_request))),
                               Json::object(), "", true, ""};
        NoteWhetherExpected(findings);
        return findings;
    }

    [[nodiscard]] StudyFindings Scenarios() {
        DesignOrder base{Model(), {}};
        if (!m_request.Stochastic) {
            base.Fixed = FixedRequestOf(m_form, m_request);
        }
        const std::vector<ScenarioOutcome> outcomes =
            SolveScenarios(base, ReadScenarios(m_form.OpenWorkingCopy()));
        StudyFindings findings{ScenariosTable(outcomes), Json::object(), "", true, ""};
        findings.Found = std::any_of(outcomes.begin(), outcomes.end(),
                                     [](const ScenarioOutcome& each) { return each.HasLine; });
        return findings;
    }

    [[nodiscard]] StudyFindings ExplainWhyNot() {
        const FixedDemandRequest request = m_request.Stochastic ? LeastExpectedRequest(Model())
                                                                : FixedRequestOf(m_form, m_request);
        const WhyNot why = ExplainNoLine(m_line, request);
        StudyFindings findings{WhyNotTable(why), Json::object(), "", true, ""};
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

}  // namespace

StudyFindings FindingsOf(BatchForm& form, const SolveRequest& request, LineModel model) {
    return Study(form, request, std::move(model)).Run();
}

}  // namespace quarnel02
