#pragma once

#include <cstdlib>
#include <string>

#include "basic/Files.h"
#include "line/StochasticDesign.h"
#include "shell/LoadLineModel.h"
#include "stoch/BuildDemandTable.h"
#include "stoch/BuildShiftTable.h"
#include "stoch/DrawStochasticCosts.h"
#include "stoch/StageTables.h"
#include "support/ModelScript.h"
#include "support/ScriptedForm.h"
#include "support/TestModel.h"

namespace quarnel02::test {

/// The tables and charts of a stochastic solve without its checks, report and clean-up. All run
/// files are kept.
class StochDesk {
  public:
    explicit StochDesk(const ModelScript& model, const std::string& penalty = "0")
        : StochDesk(model.Sql(), penalty) {}
    explicit StochDesk(const std::string& sql, const std::string& penalty = "0")
        : Copy(sql),
          Form(Copy.Directory()),
          Model(LoadLineModel(Copy.Open())),
          Demand(Model.Demand()),
          Penalty(std::strtof(penalty.c_str(), nullptr)) {}

    void BuildDemandTables() {
        BuildDemandTable(Demand, Files, Form.picGraph[1]);
        BuildShiftTable(Demand, Files, Form.picGraph[3]);
    }

    void Design() {
        StageTables tables(Files, Form, Model.TaskCount());
        Result = DesignForDemand(Model, Penalty, tables);
    }

    /// All stages up to the chart of the costs, for a model that has a line.
    void Solve() {
        BuildDemandTables();
        Design();
        DrawStochasticCosts(Line(), Result.ExpectedCosts, Demand, Form.picGraph[3]);
    }

    [[nodiscard]] const StochasticLine& Line() const { return Result.Line.value(); }
    /// A run file as it is kept.
    [[nodiscard]] std::filesystem::path File(const std::string& name) const {
        return Kept.Path() / name;
    }

    TestModel Copy;
    ScriptedForm Form;
    LineModel Model;
    DemandDistribution Demand;
    float Penalty;
    TemporaryDirectory Kept;
    RunFiles Files{Copy.Directory(), Kept.Path()};
    StochasticResult Result;
};

}  // namespace quarnel02::test
