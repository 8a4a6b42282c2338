#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "shell/MainForm.h"

namespace quarnel02 {

/// What a caller may want of a run beside its results on the form.
struct RunListener {
    /// Sees every run file before it is merged away or deleted; may copy it.
    std::function<void(const std::filesystem::path&)> RunFile;
    /// Gets the lines of the summary.
    std::function<void(const std::string&)> Summary;
};

/// Designs the line for the demand distribution of the working copy: builds the stage tables in
/// run files, takes the capacity of lowest expected cost, reports and draws it. Run files of an
/// earlier run are deleted first, its own at the end, also when it fails. The status window is
/// shown meanwhile.
/// Says so, and stops, when a resource has no row. From then on the report of an earlier run is
/// gone. Throws what the stages throw; the model is then unchanged.
void RunStochastic(MainForm& form, const RunListener& listener = {});

}  // namespace quarnel02
