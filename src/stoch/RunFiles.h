#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "line/CurveListener.h"

namespace quarnel02 {

inline constexpr const char* kProductionTable = "EProd";
inline constexpr const char* kShiftTable = "EShift";

/// The run file of a curve: "F1T12.R3" of resource 3 on the arc from task 1 to task 12, "IT112" of
/// the arc, "Temp2" of the second candidate of a prefix and "Final12" of the prefix to task 12,
/// with or without penalties; "TempC" and "Final" for what a merge of the two kinds puts out.
/// Meant: the two numbers of "IT" stand without separation, so that some arcs share a name.
std::string RunFileName(const CurveName& curve);

/// The run files of a stochastic solve. The tables that its stages exchange live in the application
/// directory while it runs; those and scratch tables are kept elsewhere where that is asked for.
class RunFiles {
  public:
    /// Run files live in `directory`. All are kept in `kept`, an empty directory.
    explicit RunFiles(std::filesystem::path directory,
                      std::optional<std::filesystem::path> kept = {});

    /// Writes a table of whole records, which replaces one of its name. Throws FileAccess naming
    /// the file, also where something that is no run file has the name; a table that cannot be
    /// written whole goes again.
    void Write(const std::string& name, const std::string& records) const;
    /// Deletes a table if there is one. Throws FileAccess.
    void Delete(const std::string& name) const;

    [[nodiscard]] bool KeepsScratch() const { return m_kept.has_value(); }
    /// Writes a table that exists only where it is kept. Throws FileAccess.
    void WriteScratch(const std::string& name, const std::string& records) const;
    /// Renames such a table over another one. Throws FileAccess.
    void RenameScratch(const std::string& from, const std::string& to) const;

    /// Deletes every run file of the application directory (IsRunFile), also those of an earlier
    /// run, and nothing else. Never fails.
    void DeleteAll() const noexcept;

  private:
    std::filesystem::path m_directory;
    std::optional<std::filesystem::path> m_kept;
};

/// Whether a file that is there is a run file: an ordinary one of whole records, whose name is that
/// of a table, letter case aside. Directories, links and other files of such names are none.
[[nodiscard]] bool IsRunFile(const std::filesystem::path& path);

}  // namespace quarnel02
