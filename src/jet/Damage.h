#pragma once

// Internal to jet/: how the parts of the reader give up.

#include <stdexcept>
#include <string>

namespace quarnel02::jet {

/// The bytes contradict themselves: a page, a row or a number lies where none can be.
class Damage : public std::exception {
  public:
    [[nodiscard]] const char* what() const noexcept override { return "is damaged."; }
};

/// The bytes are in order, but are not read. what() goes on from the name of the file and says what
/// to do: "is encrypted. ..."
class Refusal : public std::runtime_error {
  public:
    explicit Refusal(const std::string& why) : std::runtime_error(why) {}
};

}  // namespace quarnel02::jet
