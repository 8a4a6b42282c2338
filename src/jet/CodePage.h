#pragma once

// Internal to jet/.

#include <memory>
#include <string>
#include <string_view>

namespace quarnel02::jet {

/// A Windows code page, such as 1252.
class CodePage {
  public:
    /// Throws Refusal for one that this system does not know.
    explicit CodePage(unsigned number);

    /// Bytes that stand for nothing become the replacement character.
    [[nodiscard]] std::string Utf8Of(std::string_view text) const;

  private:
    struct Close {
        void operator()(void* conversion) const;
    };
    std::unique_ptr<void, Close> m_conversion;
};

}  // namespace quarnel02::jet
