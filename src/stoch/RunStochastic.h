#pragma once

#include <filesystem>
#include <functional>

#include "shell/MainForm.h"

namespace quarnel02 {

/// Sees every run file before it is merged away or deleted; may copy it.
using RunFileObserver = std::function<void(const std::filesystem::path&)>;

/// Designs the line for the demand distribution of the working copy: builds the stage tables in
/// run files, takes the capacity of lowest expected cost, reports and draws it. Run files of an
/// earlier run are deleted first, its own at the end, also when it fails. The status window is
/// shown meanwhile.
/// Says so, and stops, when a resource has no row. Throws what the stages throw; the model is
/// then unchanged.
void RunStochastic(MainForm& form, const RunFileObserver& observer = {});

}  // namespace quarnel02
