#pragma once

// Internal to sheets/: which cells of an .xlsx file are shown in percent.

#include <pugixml.hpp>
#include <string_view>
#include <vector>

namespace quarnel02 {

class XlsxStyles {
  public:
    /// Of a file without styles.
    XlsxStyles() = default;
    explicit XlsxStyles(const pugi::xml_document& styles);

    /// Whether a cell of that style ("" for none) shows its number times 100.
    [[nodiscard]] bool IsPercent(std::string_view style) const;

  private:
    std::vector<bool> m_percent;  ///< by style
};

}  // namespace quarnel02
