#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quarnel02 {

/// A path as UTF-8 text, for messages and for the store.
std::string PathText(const std::filesystem::path& path);

enum class FileKind { Missing, Ordinary, Directory, Special };

/// What stands at `path`, links followed. Throws FileAccess when that cannot be told, because a
/// directory on the way may not be searched or a link leads nowhere but to itself.
FileKind KindOfFile(const std::filesystem::path& path);

/// Whole content of a file, byte for byte. Throws FileNotFound or FileAccess.
std::string ReadFile(const std::filesystem::path& path);

/// Replaces the file's content. Throws FileNotFound for a missing directory, else FileAccess; the
/// file may then be partly written.
void WriteFile(const std::filesystem::path& path, std::string_view content);

/// Copies `source` onto `target`, whole or not at all: the copy is written beside the target,
/// flushed to the disk and renamed over it. The permissions of an existing target are kept; a link
/// is followed; anything but an ordinary file is refused as a target.
/// Throws FileNotFound or FileAccess naming the file; the target is then as it was before.
void CopyWhole(const std::filesystem::path& source, const std::filesystem::path& target);

/// A new empty directory, removed with everything in it when the object goes.
class TemporaryDirectory {
  public:
    /// Throws FileAccess when no directory can be made in the system's place for such files.
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;
    TemporaryDirectory(TemporaryDirectory&&) = delete;
    TemporaryDirectory& operator=(TemporaryDirectory&&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

}  // namespace quarnel02
