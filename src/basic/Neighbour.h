#pragma once

// Internal to basic/: the file beside a target in which its new content is made ready.

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "basic/Descriptor.h"
#include "basic/Immovable.h"

namespace quarnel02 {

/// Who may use a file, and how.
struct Ownership {
    mode_t Mode = 0600;
    bool SameOwner = false;  ///< Owner and Group are to be taken
    uid_t Owner = 0;
    gid_t Group = 0;
};

/// A flushed file with the new content, in the target's directory. While the content is written it
/// has no name where the system has nameless files, so that nothing is left when the program is
/// killed. It is locked, so that another program's RemoveLeftNeighbours spares it. Removed when the
/// object goes, unless it has taken the target's place.
class Neighbour : Immovable {
  public:
    /// Throws FileNotFound or FileAccess in the name of `target`; nothing is left then.
    Neighbour(std::filesystem::path target, std::string_view content, const Ownership& ownership);
    ~Neighbour() { Remove(); }

    /// Whether it has the mode, owner and group that it was to have.
    [[nodiscard]] bool IsAsAsked() const;

    void TakePlaceOf(const std::filesystem::path& target);

    /// Leaves the file where it is, and says where.
    std::filesystem::path Keep();

  private:
    void Remove();
    bool MakeNameless(std::string_view content);
    void MakeNamed(std::string_view content);
    void Fill(std::string_view content);

    std::filesystem::path m_target;
    Ownership m_ownership;
    std::string m_name;  ///< empty while there is none
    Descriptor m_file{-1};
};

/// Moves `file` to an unused neighbour's name and returns that.
std::filesystem::path PutAside(const std::filesystem::path& file);

/// Removes what killed programs of this user have left in the target's directory: files with a
/// neighbour's name that no program holds. Never fails.
void RemoveLeftNeighbours(const std::filesystem::path& target) noexcept;

}  // namespace quarnel02
