#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

namespace quarnel02 {

/// A recent-file item of the File menu.
struct RecentItem {
    std::string Caption;  ///< "1. ..\line.mdb", or "3." for an item without a file
    bool Enabled = false;
};

/// The list of model files last used, kept in "Marrowgate.cfg": one full path per line, most
/// recent first, at most seven. A line is read up to its first comma.
class RecentFiles {
  public:
    explicit RecentFiles(std::filesystem::path configuration);

    /// Entries of the configuration file in order; none when there is no such file. Throws
    /// FileAccess when it cannot be read.
    [[nodiscard]] std::vector<std::string> Entries() const;

    /// Puts directory + separator + file on top of the list; does nothing when either is empty.
    /// Keeps at most six older entries and drops repetitions. Throws FileAccess when the
    /// configuration file cannot be read or written; it never waits for what stands in its place.
    void Add(const std::string& directory, const std::string& file);

    /// Captions and states of the four menu items from the entries whose files exist; a list that
    /// cannot be read has none. With exactly three of them the fourth item is left as it was; that
    /// is meant.
    void FillMenu(std::array<RecentItem, 4>& items) const;

    /// The first entry whose file name is that of the item's caption; "" when there is none. Of
    /// equal names in different directories it is always the more recent one.
    [[nodiscard]] std::string EntryFor(const std::string& caption) const;

  private:
    [[nodiscard]] std::vector<std::string> ReadableEntries() const;

    std::filesystem::path m_configuration;
};

}  // namespace quarnel02
