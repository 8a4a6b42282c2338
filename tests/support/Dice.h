#pragma once

#include <random>

namespace quarnel02::test {

/// Numbers that are the same for the same seed.
class Dice {
  public:
    explicit Dice(unsigned seed) : m_engine(seed) {}
    int operator()(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(m_engine);
    }
    bool OneIn(int chances) { return (*this)(1, chances) == 1; }

  private:
    std::mt19937 m_engine;
};

}  // namespace quarnel02::test
