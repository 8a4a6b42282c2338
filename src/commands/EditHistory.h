#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "commands/InputWatch.h"
#include "sheets/UndoStack.h"
#include "shell/WorkingCopy.h"

namespace quarnel02 {

/// The undo steps of the working copy. It does not matter who writes to the tables: whatever has
/// changed since it last looked becomes one step.
class EditHistory {
  public:
    /// `inputs` watches the working copy and must outlive the history.
    EditHistory(WorkingCopy copy, InputWatch& inputs);

    /// Forgets all steps: the working copy has become another model. Throws what the store reports.
    void Restart();

    /// Makes a step of what has changed since the last look, under that name, such as "Paste 480
    /// cells", or one that is found in the change (ChangeName). Changes of nothing but the counts
    /// of records belong to the step before. Cheap while nothing is written; not to be called
    /// inside a transaction. Throws what the store reports.
    void Note(const std::string& name = {});

    /// Called at the end of every Note.
    void SetListener(std::function<void()> listener) { m_listener = std::move(listener); }
    /// The InputDigest of the working copy at the last look.
    [[nodiscard]] std::uint64_t Digest() const { return m_digest; }

    [[nodiscard]] bool CanUndo() const { return m_stack.CanUndo(); }
    [[nodiscard]] bool CanRedo() const { return m_stack.CanRedo(); }
    /// "Undo Paste 480 cells", "Redo Paste 480 cells"; "Undo" and "Redo" without a step.
    [[nodiscard]] std::string UndoText() const { return m_stack.UndoText(); }
    [[nodiscard]] std::string RedoText() const { return m_stack.RedoText(); }

    /// Makes the working copy hold what it held before the last step, or after the one undone last;
    /// without one nothing happens. What was not noted yet is a step first. Arcs, pathways and
    /// windows are the caller's (ShowInputs). Throws what the store reports; all is then as before.
    void Undo();
    void Redo();

  private:
    void Look();
    void NoteChange(const std::string& name);

    WorkingCopy m_copy;
    InputWatch& m_inputs;
    UndoStack m_stack;
    std::optional<InputTables> m_tables;  ///< as they were at the last look
    std::uint64_t m_digest = 0;
    std::function<void()> m_listener;
};

}  // namespace quarnel02
