#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace quarnel02 {

/// Names and places of the run files of a stochastic solve.
class RunFiles {
  public:
    /// Run files live in `directory`.
    explicit RunFiles(std::filesystem::path directory) : m_directory(std::move(directory)) {}

    [[nodiscard]] std::filesystem::path Path(const std::string& name) const {
        return m_directory / name;
    }
    [[nodiscard]] std::filesystem::path ExpectedProduction() const { return Path("EProd"); }
    [[nodiscard]] std::filesystem::path ExpectedShifts() const { return Path("EShift"); }
    [[nodiscard]] std::filesystem::path Resource(int start, int end, int resource) const;
    /// Meant: the two numbers stand without separation, so that some arcs share a name.
    [[nodiscard]] std::filesystem::path Initial(int start, int end) const;
    [[nodiscard]] std::filesystem::path Candidate(int number) const;
    [[nodiscard]] std::filesystem::path Final(int end) const;

    /// Deletes every run file (IsRunFile), also those of an earlier run, and nothing else. Never
    /// fails.
    void DeleteAll() const noexcept;

    /// Calls `action` for every run file that there is.
    void ForEach(const std::function<void(const std::filesystem::path&)>& action) const;

  private:
    std::filesystem::path m_directory;
};

/// Whether a file that is there is a run file: an ordinary one of whole records, whose name is that
/// of a table, letter case aside. Directories, links and other files of such names are none.
[[nodiscard]] bool IsRunFile(const std::filesystem::path& path);

/// Refuses to make a run file where something stands that is none. Throws FileAccess naming it.
void RequireFree(const std::filesystem::path& path);

/// Deletes a run file if there is one. Throws FileAccess.
void DeleteRunFile(const std::filesystem::path& path);

/// Renames a run file over another one of the new name. Throws FileAccess, also where the new name
/// is not free.
void RenameRunFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace quarnel02
