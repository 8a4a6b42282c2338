#include "batch/SolveFile.h"

#include <utility>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "batch/Answers.h"
#include "batch/Json.h"
#include "batch/OpenedModel.h"
#include "batch/Results.h"
#include "shell/LoadLineModel.h"
#include "shell/Reports.h"
#include "stoch/cmdStoch.h"
#include "study/WhyNot.h"

namespace quarnel02 {

namespace {

FixedDemandRequest RequestOf(const FixedDemandAnswers& answers) {
    FixedDemandOrder order;
    TakeStationLimit(answers.StationLimit, order);
    return {TextToDouble(answers.Demand, "Fixed Demand"), answers.Shifts,
            order.Request.StationLimit};
}

/// A design of one of the two kinds.
class Design {
  public:
    Design(OpenedModel& model, const SolveRequest& request)
        : m_form(model.Form()), m_format(model.Format()), m_request(request) {}

    SolveOutcome Run() {
        SolveOutcome outcome = m_request.Stochastic ? Stochastic() : FixedDemand();
        if (m_request.Format == PrintFormat::Json) {
            outcome.Report = JsonLine(outcome.Report.empty()
                                          ? NoResultJson(JsonHead(m_request), outcome.Messages)
                                          : m_json);
        }
        return outcome;
    }

  private:
    [[nodiscard]] LineModel Model() const { return LoadLineModel(m_form.OpenWorkingCopy()); }
    [[nodiscard]] bool WantsJson() const { return m_request.Format == PrintFormat::Json; }

    SolveOutcome FixedDemand() {
        const FixedDemandAnswers answers = AnswersOf(m_form, m_request);
        SolveFixedDemand(m_form, answers);
        SolveOutcome outcome = TakeOutcome(m_form, m_request, kRunReport, m_format);
        if (WantsJson() && !outcome.Report.empty()) {
            m_json = FixedDesignJson(JsonHead(m_request), Model(), RequestOf(answers));
        }
        if (!outcome.Messages.empty()) {
            outcome.WhyNot = WhyNotLine(answers);
        }
        return outcome;
    }

    [[nodiscard]] std::string WhyNotLine(const FixedDemandAnswers& answers) const {
        try {
            const PreparedLine line = Prepare(Model());
            const FixedDemandRequest request = RequestOf(answers);
            return line.Model.TaskCount() == 0 ? ""
                                               : WhyNotText(ExplainNoLine(line, request), request);
        } catch (const RunTimeError&) {  // of a model that is not complete; the message says so
            return {};
        }
    }

    SolveOutcome Stochastic() {
        MakeRunFileDirectory(m_request);
        const StochasticOutcome design = cmdStoch_Click(m_form, m_request.KeepRunFiles);
        SolveOutcome outcome = TakeOutcome(m_form, m_request, kProductionReport, m_format);
        if (!outcome.Report.empty()) {
            outcome.Report.insert(0, design.Summary + "\n");
        }
        if (WantsJson() && design.Line) {
            m_json = StochasticDesignJson(JsonHead(m_request), Model(), *design.Line);
        }
        if (design.End == StochasticEnd::ImpossibleTask) {
            outcome.WhyNot = WhyNotExpected();
        }
        return outcome;
    }

    [[nodiscard]] std::string WhyNotExpected() const {
        const PreparedLine line = Prepare(Model());
        const FixedDemandRequest least = LeastExpectedRequest(line.Model);
        return ExpectedWhyNotText(ExplainNoLine(line, least), least);
    }

    BatchForm& m_form;
    ModelFormat m_format;  ///< of the model file
    const SolveRequest& m_request;
    Json m_json;  ///< of a line
};

}  // namespace

SolveOutcome SolveFile(const SolveRequest& request) {
    RequireModelSpared(request);
    RequireStationLimit(request);
    OpenedModel opened(request.Model, request.Progress);
    return Design(opened, request).Run();
}

}  // namespace quarnel02
