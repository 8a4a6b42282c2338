#pragma once

// Internal to jet/.

#include <memory>
#include <string>

#include "jet/Bytes.h"
#include "jet/CodePage.h"

namespace quarnel02::jet {

/// Turns the texts of a file into UTF-8.
class TextDecoder {
  public:
    /// Texts in UTF-16, or in a code page (0 for the usual one). Throws Refusal like CodePage.
    TextDecoder(bool wide, unsigned codePage);

    [[nodiscard]] std::string Decode(Bytes text) const;

  private:
    std::unique_ptr<const CodePage> m_codePage;  ///< none for UTF-16
};

}  // namespace quarnel02::jet
