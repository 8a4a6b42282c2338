#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace quarnel02::test {

/// The directory of a user with a few small files to open and to import: good, damaged, none.
class UserFiles {
  public:
    explicit UserFiles(std::filesystem::path directory);

    [[nodiscard]] const std::filesystem::path& Directory() const { return m_directory; }
    /// Full paths, for the name box of a dialog.
    [[nodiscard]] QStringList Models() const;
    [[nodiscard]] QStringList Workbooks() const;
    /// A model that can be designed, whatever was saved over it.
    [[nodiscard]] QString GoodModel();

    /// Extensions of the files that were written since this was asked last.
    std::vector<std::string> TakeWritten();

  private:
    [[nodiscard]] QStringList Paths(const QStringList& patterns) const;
    [[nodiscard]] std::map<std::string, std::string> Stamps() const;

    std::filesystem::path m_directory;
    std::string m_good;
    std::map<std::string, std::string> m_stamps;
};

}  // namespace quarnel02::test
