#pragma once

#include <exception>
#include <utility>

#include "basic/Immovable.h"

namespace quarnel02 {

/// Runs an action, which must not throw, at the end of its scope, however that is left.
template <class Action>
class ScopeGuard : Immovable {
  public:
    explicit ScopeGuard(Action action) : m_action(std::move(action)) {}
    ~ScopeGuard() { m_action(); }

  private:
    Action m_action;
};

/// Runs an action, which must not throw, when its scope is left by an exception.
template <class Action>
class FailureGuard : Immovable {
  public:
    explicit FailureGuard(Action action) : m_action(std::move(action)) {}
    ~FailureGuard() {
        if (std::uncaught_exceptions() > m_exceptions) {
            m_action();
        }
    }

  private:
    Action m_action;
    int m_exceptions = std::uncaught_exceptions();
};

}  // namespace quarnel02
