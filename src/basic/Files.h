#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "basic/Immovable.h"

namespace quarnel02 {

/// A path as UTF-8 text, for messages and for the store.
std::string PathText(const std::filesystem::path& path);

enum class FileKind { Missing, Ordinary, Directory, Special };

/// What stands at `path`, links followed. Throws FileAccess when that cannot be told, because a
/// directory on the way may not be searched or a link leads nowhere but to itself.
FileKind KindOfFile(const std::filesystem::path& path);

/// Whole content of an ordinary file, byte for byte. Never waits: a pipe or a device is refused.
/// Throws FileNotFound or FileAccess.
std::string ReadFile(const std::filesystem::path& path);

/// Replaces the file's content. Throws FileNotFound for a missing directory, else FileAccess; the
/// file may then be partly written.
void WriteFile(const std::filesystem::path& path, std::string_view content);

/// Puts `content` in place of the file `target`, whole or not at all: it is written beside the
/// target, flushed to the disk and renamed over it. Permissions, owner and group of an existing
/// target are kept; where they cannot be, or where the file has further names (hard links), the
/// content is written into the file itself once it stands whole beside it. A link is followed.
/// Journals that a database left beside the replaced content go with it, and so do neighbours that
/// a killed program left.
/// Anything but an ordinary file is refused as a target, and so is a write-protected file.
/// Throws FileNotFound or FileAccess naming the file; the target is then as it was before.
void WriteWhole(const std::filesystem::path& target, std::string_view content);

/// The same for a file of the program's own that nobody but its owner may read (mode 0600): it is
/// always renamed, over a write-protected file too, and keeps nothing of it.
void WritePrivate(const std::filesystem::path& target, std::string_view content);

/// WriteWhole and WritePrivate with the content of `source`.
void CopyWhole(const std::filesystem::path& source, const std::filesystem::path& target);
void CopyPrivate(const std::filesystem::path& source, const std::filesystem::path& target);

/// A new empty directory, removed with everything in it when the object goes.
class TemporaryDirectory : Immovable {
  public:
    /// Throws FileAccess when no directory can be made in the system's place for such files.
    TemporaryDirectory();
    ~TemporaryDirectory();

    [[nodiscard]] const std::filesystem::path& Path() const { return m_path; }

  private:
    std::filesystem::path m_path;
};

}  // namespace quarnel02
