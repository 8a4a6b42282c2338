#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Files.h"
#include "model/Database.h"

namespace quarnel02::test {

/// A temporary application directory with the template "blank.seq" and a working copy.
class TestModel {
  public:
    /// The working copy is the template with `script` run in it (INSERTs and UPDATEs).
    explicit TestModel(const std::string& script = "");

    [[nodiscard]] const std::filesystem::path& Directory() const { return m_directory.Path(); }
    [[nodiscard]] std::filesystem::path File(const std::string& name = "working.seq") const {
        return Directory() / name;
    }
    [[nodiscard]] Database Open() const { return Database::Open(File()); }

    /// Rows of a SELECT on the working copy: the first `fields` fields of each as default texts
    /// joined by "|"; Null as "".
    [[nodiscard]] std::vector<std::string> RowsOf(const std::string& sql, int fields) const;

  private:
    TemporaryDirectory m_directory;
};

}  // namespace quarnel02::test
