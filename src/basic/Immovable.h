#pragma once

namespace quarnel02 {

/// Base of classes that are neither copied nor moved: interfaces, and owners of something that
/// others point to.
class Immovable {
  public:
    Immovable(const Immovable&) = delete;
    Immovable& operator=(const Immovable&) = delete;
    Immovable(Immovable&&) = delete;
    Immovable& operator=(Immovable&&) = delete;

  protected:
    Immovable() = default;
    ~Immovable() = default;
};

}  // namespace quarnel02
