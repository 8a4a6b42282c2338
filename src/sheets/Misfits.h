#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel02 {

/// A cell whose text its field does not take.
struct Misfit {
    std::size_t Row;     ///< in the sheet, from 0
    std::size_t Column;  ///< likewise
    std::string Reason;  ///< a sentence with the names of row and column
};

/// The cells of an edit that do not fit: how many, and the first of them.
class Misfits {
  public:
    static constexpr std::size_t kKept = 5;

    void Add(Misfit misfit);

    [[nodiscard]] bool IsEmpty() const { return m_count == 0; }
    [[nodiscard]] std::size_t Count() const { return m_count; }
    /// At most kKept, in the order of the block.
    [[nodiscard]] const std::vector<Misfit>& First() const { return m_first; }

    /// `opening` and the first reasons, with `between` in front of each: "Nothing was pasted. Row
    /// 3: uptime is 0 %; it must be above 0 and at most 100. And 4 more cells do not fit."
    [[nodiscard]] std::string Message(std::string opening, std::string_view between = " ") const;

  private:
    std::size_t m_count = 0;
    std::vector<Misfit> m_first;
};

}  // namespace quarnel02
