#pragma once

// Internal to jet/.

#include <string>
#include <string_view>

#include "basic/Immovable.h"

namespace quarnel02::jet {

/// A Windows code page, such as 1252.
class CodePage : Immovable {
  public:
    /// Throws Refusal for one that this system does not know.
    explicit CodePage(unsigned number);
    ~CodePage();

    /// Bytes that stand for nothing become the replacement character.
    [[nodiscard]] std::string Utf8Of(std::string_view text) const;

  private:
    void* m_conversion;
};

}  // namespace quarnel02::jet
