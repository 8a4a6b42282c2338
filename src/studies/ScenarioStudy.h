#pragma once

#include <optional>
#include <vector>

#include "charts/CostBars.h"
#include "studies/ShownTable.h"
#include "studies/StudyInput.h"
#include "study/Scenarios.h"
#include "study/StudyWatch.h"

namespace quarnel02 {

/// What the window studies, as the base of scenarios.
DesignOrder OrderOf(const StudyInput& input);

/// The base and the scenarios of the model, solved. Looks at `watch`. Throws as SolveScenarios
/// does.
std::vector<ScenarioOutcome> StudyScenarios(const StudyInput& input, const StudyWatch& watch = {});

/// A row for the base and one for each scenario; those without an outcome, which are not solved
/// yet, have their names and differences only.
ShownTable TableOf(const std::vector<Scenario>& scenarios,
                   const std::vector<std::optional<ScenarioOutcome>>& outcomes);

/// A bar for each outcome with a line.
std::vector<CostBar> BarsOf(const std::vector<std::optional<ScenarioOutcome>>& outcomes);

}  // namespace quarnel02
