#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "line/Pathways.h"

namespace quarnel02 {

/// Where a pathway stands among all pathways of a model.
class PathwayPlaces {
  public:
    explicit PathwayPlaces(const PreparedLine& line);

    /// From 0; none when the resource cannot do all of these tasks.
    [[nodiscard]] std::optional<std::size_t> Of(int resource, int first, int last) const;

  private:
    struct Chain {
        std::size_t Place = 0;  ///< of the pathway with the first task alone
        int LastTask = 0;       ///< of the longest one; 0 for none
    };
    [[nodiscard]] std::size_t ChainPlace(int resource, int first) const {
        return (static_cast<std::size_t>(resource) - 1) * m_tasks +
               static_cast<std::size_t>(first) - 1;
    }

    std::size_t m_tasks;
    std::vector<Chain> m_chains;  ///< by resource, then first task
};

}  // namespace quarnel02
