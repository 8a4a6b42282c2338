#pragma once

#include <filesystem>
#include <string>

#include "model/Database.h"

namespace quarnel02 {

/// The application directory and the model in it that is being worked on. A value: it holds no
/// file open.
class WorkingCopy {
  public:
    /// `directory` holds the template, the working copy and the reports.
    explicit WorkingCopy(std::filesystem::path directory);

    [[nodiscard]] const std::filesystem::path& Directory() const { return m_directory; }
    /// Full path of a file of the directory.
    [[nodiscard]] std::filesystem::path File(const std::string& name) const;

    /// The working copy itself, "working.seq".
    [[nodiscard]] std::filesystem::path Path() const { return File("working.seq"); }
    /// The model that a new one begins as, "blank.seq".
    [[nodiscard]] std::filesystem::path Template() const { return File("blank.seq"); }
    /// Where the last working copy waits while another one takes its place, "working.old".
    [[nodiscard]] std::filesystem::path OldPath() const { return File("working.old"); }

    /// A handle of the caller's own, to be held no longer than an event lasts: the file is replaced
    /// between events. Throws as Database::Open does.
    [[nodiscard]] Database Open() const { return Database::Open(Path()); }

  private:
    std::filesystem::path m_directory;
};

}  // namespace quarnel02
