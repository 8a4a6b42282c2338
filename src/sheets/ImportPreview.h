#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "sheets/InputTables.h"

namespace quarnel02 {

/// What an import would change, to be shown before it does.
struct ImportPreview {
    /// How many there are of something before and after.
    struct Count {
        std::string What;  ///< "tasks", "resources", "matrix cells", "demand rows"
        std::size_t Before;
        std::size_t After;
    };
    static constexpr std::size_t kShown = 10;

    std::vector<Count> Counts;
    std::size_t Differences = 0;  ///< all of them; 0 means that the model stays the same
    std::vector<std::string>
        First;  ///< at most kShown: "Task 3, Description: \"a\" becomes \"b\"."

    /// Counts and first differences, a line each: "40 tasks become 45." "12 resources."
    [[nodiscard]] std::string Text() const;
};

ImportPreview PreviewOf(const InputTables& before, const InputTables& after);

}  // namespace quarnel02
