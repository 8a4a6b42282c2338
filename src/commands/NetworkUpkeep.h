#pragma once

#include <cstdint>

#include "shell/MainForm.h"

namespace quarnel02 {

/// Brings arcs and pathways up to date after an editor has changed what they are made from, and
/// leaves them, with the marks of the last solve, when it has changed nothing.
class NetworkUpkeep {
  public:
    /// Remembers what the working copy holds. Throws what the store reports.
    explicit NetworkUpkeep(MainForm& form);

    /// Rebuilds arcs and pathways (CreateLinks) when the working copy no longer holds what it
    /// held, or when the last rebuild failed. Throws what the store reports and what CreateLinks
    /// throws.
    void Rebuild();

    /// Whether a rebuild was called for.
    [[nodiscard]] bool Changed() const { return m_changed; }

  private:
    [[nodiscard]] std::uint64_t Inputs() const;

    MainForm& m_form;
    std::uint64_t m_inputs;
    bool m_changed = false;
    bool m_stale = false;
};

}  // namespace quarnel02
