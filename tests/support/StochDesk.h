#pragma once

#include <string>

#include "model/ModelFile.h"
#include "stoch/AddExpectedPenalties.h"
#include "stoch/BuildDemandTable.h"
#include "stoch/BuildFinalTable.h"
#include "stoch/BuildInitialTable.h"
#include "stoch/BuildIntermediateTable.h"
#include "stoch/BuildResourceTables.h"
#include "stoch/BuildShiftTable.h"
#include "stoch/ExtractStochasticSolution.h"
#include "stoch/LoadStochData.h"
#include "support/ModelScript.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02::test {

/// The stages of a stochastic solve, one by one, on a model's working copy.
class StochDesk {
  public:
    explicit StochDesk(const ModelScript& model, const std::string& penalty = "0")
        : StochDesk(model.Sql(), penalty) {}
    explicit StochDesk(const std::string& sql, const std::string& penalty = "0")
        : Copy(sql), Form(Copy.Directory()), Run(Form) {
        Form.SetText(TextBox::txtPenalty, penalty);
        Form.OpenWorkingCopy();
    }

    void BuildDemandTables() {
        LoadStochData(Run);
        BuildDemandTable(Run);
        BuildShiftTable(Run);
    }

    void BuildArc(int start, int end) {
        Run.StartTask = start;
        Run.EndTask = end;
        BuildResourceTables(Run);
        BuildInitialTable(Run);
    }

    /// Every arc that ends at a task, and the task's candidates; gives what that stage returns.
    int BuildCandidates(int end) {
        for (int start = 1; start <= end; ++start) {
            BuildArc(start, end);
        }
        return BuildIntermediateTable(Run);
    }

    void BuildFinalTables() {
        for (int end = 1; end <= Run.Tasks; ++end) {
            const int counter = BuildCandidates(end);
            BuildFinalTable(Run, counter);
        }
    }

    /// All stages up to the chosen design.
    void Solve() {
        BuildDemandTables();
        BuildFinalTables();
        AddExpectedPenalties(Run);
        ExtractStochasticSolution(Run);
    }

    TestModel Copy;
    ScriptedForm Form;
    StochRun Run;
};

}  // namespace quarnel02::test
