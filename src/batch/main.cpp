// quarnel02-solve: designs the assembly line of model files from the shell.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "basic/FailureText.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "batch/Interruption.h"
#include "batch/Jobs.h"
#include "batch/Json.h"
#include "batch/Options.h"
#include "batch/Requests.h"
#include "batch/SolveFile.h"
#include "batch/StudyFile.h"

namespace {

using quarnel02::JobResult;
using quarnel02::PrintFormat;
using quarnel02::SolveOutcome;
using quarnel02::SolveRequest;

constexpr int kError = 1;
constexpr int kNotSolved = 2;

SolveOutcome SolveUnlessInterrupted(const SolveRequest& request) {
    const quarnel02::EndOnSignals ending;
    return request.Study ? quarnel02::StudyFile(request) : quarnel02::SolveFile(request);
}

/// What is said of one of several models says of which, unless it does already.
std::string WithOwner(const SolveRequest& request, const std::string& text) {
    const std::string model = quarnel02::PathText(request.Model);
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
        const std::string text = quarnel02::FailureText(error);
        if (request.Format == PrintFormat::Json) {
            std::cout << quarnel02::JsonLine(
                quarnel02::NoResultJson(quarnel02::JsonHead(request), {text}));
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
            return "==> " + quarnel02::PathText(request.Model) + " <==\n" + result.Out;
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
    quarnel02::RunJobs(static_cast<int>(requests.size()), atOnce, job,
                       [&](int number, const JobResult& result) { results.Print(number, result); });
    return results.Status();
}

int Run(int argc, char* argv[]) {
    CLI::App app(
        "Designs the cheapest assembly line for a fixed annual demand, or for a distribution of "
        "demand, and prints the report; or studies the choice.",
        "quarnel02-solve");
    quarnel02::Options options;
    quarnel02::Describe(app, options);
    try {
        app.parse(argc, argv);
        quarnel02::RequireCombination(app, options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    }
    std::vector<SolveRequest> requests;
    try {
        requests = quarnel02::RequestsOf(options);
    } catch (const quarnel02::RunTimeError& error) {
        std::cerr << "quarnel02-solve: " << error.what() << '\n';
        return kError;
    }
    return requests.size() == 1 ? SolveOrSayWhyNot(requests.front())
                                : SolveSeveral(requests, options.Jobs);
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::fputs(error.what(), stderr);
        return kError;
    }
}
