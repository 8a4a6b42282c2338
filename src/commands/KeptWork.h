#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quarnel02 {

/// A model in the directory of kept work.
struct KeptModel {
    std::filesystem::path Path;
    std::string Caption;  ///< "2026-11-21 10:05  Pump  (12 tasks, 5 resources)"
};

/// Model files of work that was about to be lost, in the directory "Recovered" beside the working
/// copy. Their names hold product, date and time; the newest twenty stay. Only their owner can read
/// them. Files of other names in the directory are left alone.
class KeptWork {
  public:
    using Clock = std::chrono::system_clock;

    explicit KeptWork(std::filesystem::path directory);

    /// Keeps the model of the working copy, unless the newest kept model has the same inputs.
    /// Gives the file that holds the work. Throws what KeepModel and the store report.
    [[nodiscard]] std::filesystem::path Keep(const std::filesystem::path& workingCopy,
                                             Clock::time_point now = Clock::now()) const;

    /// Moves a working copy that cannot be copied, with its journal, into the directory as it is:
    /// as a model where it can be read as one, else with the extension ".seq", which List leaves
    /// out. Gives its new place. Throws FileAccess.
    [[nodiscard]] std::filesystem::path SetAside(const std::filesystem::path& file,
                                                 Clock::time_point now = Clock::now()) const;

    /// Whether a file stands in the directory.
    [[nodiscard]] bool Holds(const std::filesystem::path& file) const;

    /// The kept models that can be read, newest first.
    [[nodiscard]] std::vector<KeptModel> List() const;

  private:
    std::filesystem::path m_directory;
};

}  // namespace quarnel02
