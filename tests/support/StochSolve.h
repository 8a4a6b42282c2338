#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "stoch/cmdStoch.h"
#include "support/LoadedModel.h"
#include "support/Surroundings.h"

namespace quarnel02::test {

/// A loaded model whose stochastic button is pressed.
struct StochSolve : LoadedModel {
    explicit StochSolve(const ModelScript& model, const std::string& penalty = "0")
        : StochSolve(model.Sql(), penalty) {}
    explicit StochSolve(const std::string& sql, const std::string& penalty = "0")
        : LoadedModel(sql) {
        Form.SetText(TextBox::txtPenalty, penalty);
    }

    void Press() { cmdStoch_Click(Form); }

    /// A file of whole records, whatever their size.
    void MakeFile(const std::string& name) const {
        constexpr std::size_t records_of_all_sizes = 16 * 15 * 11;
        WriteFile(Copy.File(name), std::string(records_of_all_sizes, 's'));
    }

    /// Files of the application directory without template and working copy.
    [[nodiscard]] std::vector<std::string> Files() const {
        std::vector<std::string> names = NamesIn(Copy.Directory());
        std::erase(names, "blank.seq");
        std::erase(names, "working.seq");
        return names;
    }

    [[nodiscard]] std::string ProductionReport() const {
        return ReadFile(Copy.File("ProdRpt.txt"));
    }

    /// Events that start with one of some words, in order.
    [[nodiscard]] std::vector<std::string> EventsOf(const std::vector<std::string>& words) const {
        std::vector<std::string> found;
        for (const std::string& event : Form.Events) {
            if (std::any_of(words.begin(), words.end(),
                            [&](const std::string& word) { return event.starts_with(word); })) {
                found.push_back(event);
            }
        }
        return found;
    }
};

}  // namespace quarnel02::test
