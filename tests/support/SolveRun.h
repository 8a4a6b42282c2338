#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "basic/Files.h"
#include "files/ModelFile.h"
#include "support/ModelScript.h"
#include "support/ProgramRun.h"
#include "support/Surroundings.h"

namespace quarnel02::test {

/// A directory with model files in which the batch program runs, without a display and with a
/// temporary directory of its own.
class SolveRun {
  public:
    SolveRun() { std::filesystem::create_directory(Temporary()); }

    [[nodiscard]] std::filesystem::path File(const std::string& name) const {
        return m_directory.Path() / name;
    }

    /// Makes a model file of the template with `script` run in it; gives its path as text.
    std::string Make(const std::string& name, const std::string& script) const {
        MakeModelFile(File(name), ReadFile(QUARNEL02_SCHEMA_FILE) + script);
        return PathText(File(name));
    }
    std::string Make(const std::string& name, const ModelScript& model) const {
        return Make(name, model.Sql());
    }

    /// Runs quarnel02-solve with these arguments.
    [[nodiscard]] ProgramResult operator()(std::vector<std::string> arguments,
                                           const std::filesystem::path& out = {}) const {
        return Program("quarnel02-solve", std::move(arguments), out);
    }

    /// Runs another of the programs.
    [[nodiscard]] ProgramResult Program(const std::string& name, std::vector<std::string> arguments,
                                        const std::filesystem::path& out = {}) const {
        arguments.insert(arguments.begin(), std::string(QUARNEL02_PROGRAMS) + "/" + name);
        return RunProgram(
            arguments,
            {{"TMPDIR", PathText(Temporary())}, {"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}}, out);
    }

    /// Whether the runs have left nothing in their temporary directory.
    [[nodiscard]] bool LeftNothing() const { return std::filesystem::is_empty(Temporary()); }

  private:
    [[nodiscard]] std::filesystem::path Temporary() const { return m_directory.Path() / "tmp"; }

    TemporaryDirectory m_directory;
};

}  // namespace quarnel02::test
