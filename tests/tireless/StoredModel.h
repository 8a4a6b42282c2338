#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "basic/Immovable.h"

struct sqlite3;

namespace quarnel02::test {

/// A model file as SQLite itself reads it, past the program's own way to the tables.
class StoredModel : Immovable {
  public:
    /// Throws when it cannot be opened.
    explicit StoredModel(const std::filesystem::path& file);
    ~StoredModel();

    /// All that a planner enters, row by row, as text.
    [[nodiscard]] std::string Inputs() const;

    /// The promises that every state of a model keeps, and which of them this one breaks.
    [[nodiscard]] std::vector<std::string> Broken() const;

    /// Whether pathways are marked as chosen.
    [[nodiscard]] bool HasChosenLine() const;

    /// The first field of the first row, as a number.
    [[nodiscard]] int Number(const std::string& sql) const;

  private:
    [[nodiscard]] std::vector<std::string> Rows(const std::string& sql) const;
    [[nodiscard]] std::string Soundness() const;
    void LookAtCounts(std::vector<std::string>& broken) const;
    void LookAtArcs(std::vector<std::string>& broken) const;
    void LookAtChosen(std::vector<std::string>& broken) const;

    sqlite3* m_file = nullptr;
};

}  // namespace quarnel02::test
