#pragma once

// Internal to jet/.

namespace quarnel02::jet {

/// Names of tables and columns are alike whatever the case of their Latin letters.
constexpr char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace quarnel02::jet
