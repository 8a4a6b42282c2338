#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

#include "sheets/PackedTables.h"

namespace quarnel02 {

/// The named steps by which a model came to be what it is, each with the input tables before and
/// after it. What is undone can be redone until another step is made. When the steps take more
/// memory than they may, the oldest are forgotten.
class UndoStack {
  public:
    static constexpr std::size_t kMostBytes = 50'000'000;

    explicit UndoStack(std::size_t mostBytes = kMostBytes) : m_mostBytes(mostBytes) {}

    /// Adds a step, such as "Paste 480 cells", and drops what was undone. Nothing is added when
    /// nothing has changed.
    void Push(std::string name, const InputTables& before, const InputTables& after);

    /// Makes the last step that is not undone lead to these tables; without one nothing happens.
    void Extend(const InputTables& after);

    /// Forgets everything, as for another model.
    void Clear();

    [[nodiscard]] bool CanUndo() const { return m_done > 0; }
    [[nodiscard]] bool CanRedo() const { return m_done < m_steps.size(); }
    /// "Undo Paste 480 cells", "Redo Paste 480 cells"; "Undo" and "Redo" without a step.
    [[nodiscard]] std::string UndoText() const;
    [[nodiscard]] std::string RedoText() const;

    /// Makes the database hold the tables before the last step, or after the one that was undone
    /// last, in one transaction; without such a step nothing happens. What was changed behind the
    /// stack's back is kept: undoing notes it as part of the step, so that Redo brings it back.
    /// Derived tables and counts on screen are the caller's. Throws what the store reports;
    /// database and stack are then as before.
    void Undo(const Database& database);
    void Redo(const Database& database);

    [[nodiscard]] std::size_t Steps() const { return m_steps.size(); }
    /// Memory of the snapshots.
    [[nodiscard]] std::size_t Bytes() const { return m_bytes; }

  private:
    struct Step {
        std::string Name;
        PackedTables Before;
        PackedTables After;
    };

    void DropUndone();
    void ForgetOldest();
    void CountBytes();

    std::size_t m_mostBytes;
    std::deque<Step> m_steps;
    std::size_t m_done = 0;  ///< steps that are not undone
    std::size_t m_bytes = 0;
};

/// "1 task", "480 cells".
std::string CountText(std::size_t count, std::string_view what);

/// Name of a step: "Paste 480 cells", "Move 1 task".
std::string StepName(std::string_view verb, std::size_t count, std::string_view what);

}  // namespace quarnel02
