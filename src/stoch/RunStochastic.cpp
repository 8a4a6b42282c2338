#include "stoch/RunStochastic.h"

#include <string>

#include "basic/Numbers.h"
#include "shell/Reports.h"
#include "stoch/AddExpectedPenalties.h"
#include "stoch/BuildDemandTable.h"
#include "stoch/BuildFinalTable.h"
#include "stoch/BuildInitialTable.h"
#include "stoch/BuildIntermediateTable.h"
#include "stoch/BuildResourceTables.h"
#include "stoch/BuildShiftTable.h"
#include "stoch/DrawStochasticCosts.h"
#include "stoch/ExtractStochasticSolution.h"
#include "stoch/LoadStochData.h"
#include "stoch/WriteProductionReport.h"

namespace quarnel02 {

namespace {

/// Shows the status window while it lives.
class StatusWindow {
  public:
    explicit StatusWindow(MainForm& form) : m_form(form) {
        m_form.ShowStatus("PLEASE WAIT -- PROGRAM IS RUNNING");
    }
    ~StatusWindow() { m_form.HideStatus(); }
    StatusWindow(const StatusWindow&) = delete;
    StatusWindow& operator=(const StatusWindow&) = delete;
    StatusWindow(StatusWindow&&) = delete;
    StatusWindow& operator=(StatusWindow&&) = delete;

  private:
    MainForm& m_form;
};

/// Deletes the run files when it goes.
class RunFileCleaner {
  public:
    explicit RunFileCleaner(const RunFiles& files) : m_files(files) { m_files.DeleteAll(); }
    ~RunFileCleaner() { m_files.DeleteAll(); }
    RunFileCleaner(const RunFileCleaner&) = delete;
    RunFileCleaner& operator=(const RunFileCleaner&) = delete;
    RunFileCleaner(RunFileCleaner&&) = delete;
    RunFileCleaner& operator=(RunFileCleaner&&) = delete;

  private:
    const RunFiles& m_files;
};

void ShowResourceTables(const StochRun& run, const RunListener& listener) {
    if (!listener.RunFile) {
        return;
    }
    for (int resource = 1; resource <= run.Resources; ++resource) {
        const auto table = run.Files.Resource(run.StartTask, run.EndTask, resource);
        if (IsRunFile(table)) {
            listener.RunFile(table);
        }
    }
}

/// All arcs that end at the end task in hand, then its intermediate and final tables.
void BuildTablesOfEndTask(StochRun& run, int tasks, const RunListener& listener) {
    MainForm& form = run.Form;
    const std::string end = NumberText(run.EndTask);
    const int arcs = tasks * (tasks + 1) / 2;
    for (int start = 1; start <= run.EndTask; ++start) {
        run.StartTask = start;
        const std::string arc = " for Task " + NumberText(start) + " To Task " + end;
        form.SetStatus("Creating Resource Tables" + arc);
        BuildResourceTables(run);
        ShowResourceTables(run, listener);
        form.SetStatus("Creating Initial Tables" + arc);
        BuildInitialTable(run);
        form.SetProgress(run.EndTask * (run.EndTask - 1) / 2 + start, arcs);
    }
    form.SetStatus("Creating Intermediate Tables for Task " + end);
    const int counter = BuildIntermediateTable(run);
    form.SetStatus("Creating Final Table for Task " + end);
    BuildFinalTable(run, counter);
    form.SetStatus(end + " of " + NumberText(tasks) + " Tasks Completed");
}

void BuildTables(StochRun& run, const RunListener& listener) {
    const StatusWindow status(run.Form);
    BuildDemandTable(run);
    BuildShiftTable(run);
    const int tasks = run.Form.Model.OpenRecordSet("SELECT Tasks FROM GEN;").Integer(0);
    for (run.EndTask = 1; run.EndTask <= tasks; ++run.EndTask) {
        BuildTablesOfEndTask(run, tasks, listener);
    }
    run.Form.SetStatus("Adding Expected Penalties to Final Table");
    AddExpectedPenalties(run);
    ExtractStochasticSolution(run);
    DrawStochasticCosts(run);
}

}  // namespace

void RunStochastic(MainForm& form, const RunListener& listener) {
    form.OpenWorkingCopy();
    StochRun run(form);
    const RunFileCleaner cleaner(run.Files);
    if (!LoadStochData(run)) {
        form.ShowMessage("Please complete the task and resource information tables first.",
                         MessageIcon::Information);
        return;
    }
    RemoveReport(form, kProductionReport);
    BuildTables(run, listener);
    const std::string summary = WriteProductionReport(run);
    if (listener.Summary) {
        listener.Summary(summary);
    }
    form.Model.Close();
    if (listener.RunFile) {
        run.Files.ForEach(listener.RunFile);
    }
}

}  // namespace quarnel02
