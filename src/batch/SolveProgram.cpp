#include "batch/SolveProgram.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "basic/FailureText.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "batch/HandOver.h"
#include "batch/Interruption.h"
#include "batch/Jobs.h"
#include "batch/Json.h"
#include "batch/Options.h"
#include "batch/Requests.h"
#include "batch/SolveFile.h"
#include "batch/StudyFile.h"

namespace quarnel02 {

namespace {

constexpr int kError = 1;
constexpr int kNotSolved = 2;

SolveOutcome SolveUnlessInterrupted(const SolveRequest& request) {
    const EndOnSignals ending;
    return request.Study ? StudyFile(request) : SolveFile(request);
}

/// What is said of one of several models says of which, unless it does already.
std::string WithOwner(const SolveRequest& request, const std::string& text) {
    const std::string model = PathText(request.Model);
    const bool named = text.find(model) != std::string::npos;
    return request.OneOfSeveral && !named ? model + ": " + text : text;
}

int Solve(const SolveRequest& request) {
    const SolveOutcome outcome = SolveUnlessInterrupted(request);
    std::cout << outcome.Report << std::flush;
    for (const std::string& message : outcome.Messages) {
        std::cerr << WithOwner(request, message) << '\n';
    }
    std::cerr << outcome.WhyNot;
    if (!std::cout) {
        std::cerr << "quarnel02-solve: the report cannot be written to standard output.\n";
        return kError;
    }
    return outcome.Report.empty() || !outcome.Messages.empty() ? kNotSolved : 0;
}

int SolveOrSayWhyNot(const SolveRequest& request) {
    try {
        return Solve(request);
    } catch (const std::exception& error) {
        const std::string text = FailureText(error);
        if (request.Format == PrintFormat::Json) {
            std::cout << JsonLine(NoResultJson(JsonHead(request), {text}));
        }
        std::cerr << "quarnel02-solve: " << WithOwner(request, text) << '\n';
        return kError;
    }
}

/// Prints the results of several models one behind the other.
class SeveralResults {
  public:
    explicit SeveralResults(const std::vector<SolveRequest>& requests) : m_requests(requests) {}

    void Print(int number, const JobResult& result) {
        const SolveRequest& request = m_requests[static_cast<std::size_t>(number)];
        std::cout << Text(request, result) << std::flush;
        std::cerr << result.Err;
        int status = result.Status;
        if (status != 0 && status != kError && status != kNotSolved) {
            std::cerr << "quarnel02-solve: "
                      << WithOwner(request,
                                   "the solve ended with status " + std::to_string(status) + ".")
                      << '\n';
            status = kError;
        }
        m_failed = m_failed || status == kError;
        m_notSolved = m_notSolved || status == kNotSolved;
    }

    [[nodiscard]] int Status() const {
        return m_failed || !std::cout ? kError : m_notSolved ? kNotSolved : 0;
    }

  private:
    std::string Text(const SolveRequest& request, const JobResult& result) {
        if (request.Format == PrintFormat::Text) {
            return "==> " + PathText(request.Model) + " <==\n" + result.Out;
        }
        if (request.Format == PrintFormat::Json || result.Out.empty()) {
            return result.Out;
        }
        const std::size_t rows = m_headed ? result.Out.find('\n') + 1 : 0;
        m_headed = true;
        return result.Out.substr(rows);
    }

    const std::vector<SolveRequest>& m_requests;
    bool m_headed = false;  ///< whether the columns have been named
    bool m_failed = false;
    bool m_notSolved = false;
};

int SolveSeveral(const std::vector<SolveRequest>& requests, int atOnce) {
    SeveralResults results(requests);
    const auto job = [&](int number) {
        return SolveOrSayWhyNot(requests[static_cast<std::size_t>(number)]);
    };
    RunJobs(static_cast<int>(requests.size()), atOnce, job,
            [&](int number, const JobResult& result) { results.Print(number, result); });
    return results.Status();
}

/// A program that cannot make PDF files hands over to the one that can.
std::vector<SolveRequest> PreparedRequests(const Options& options, char* argv[],
                                           const PdfMaker& pdf) {
    std::vector<SolveRequest> requests = RequestsOf(options);
    if (options.Pdf && !pdf) {
        HandOverToReport(argv);
    }
    for (SolveRequest& request : requests) {
        if (request.Pdf) {
            request.Pdf->Make = pdf;
        }
    }
    return requests;
}

int Run(int argc, char* argv[], const PdfMaker& pdf) {
    CLI::App app(
        "Designs the cheapest assembly line for a fixed annual demand, or for a distribution of "
        "demand, and prints the report; or studies the choice.",
        "quarnel02-solve");
    Options options;
    Describe(app, options);
    try {
        app.parse(argc, argv);
        RequireCombination(app, options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    std::vector<SolveRequest> requests;
    try {
        requests = PreparedRequests(options, argv, pdf);
    } catch (const RunTimeError& error) {
        std::cerr << "quarnel02-solve: " << error.what() << '\n';
        return kError;
    }
    return requests.size() == 1 ? SolveOrSayWhyNot(requests.front())
                                : SolveSeveral(requests, options.Jobs);
}

}  // namespace

int RunSolveProgram(int argc, char* argv[], const PdfMaker& pdf) {
    try {
        return Run(argc, argv, pdf);
    } catch (const std::exception& error) {
        std::fputs(error.what(), stderr);
        return kError;
    }
}

}  // namespace quarnel02
