#include "commands/EditHistory.h"

#include <utility>

#include "sheets/ChangeName.h"

namespace quarnel02 {

EditHistory::EditHistory(WorkingCopy copy, InputWatch& inputs)
    : m_copy(std::move(copy)), m_inputs(inputs) {}

void EditHistory::Look() {
    const std::uint64_t digest = m_inputs.Digest();
    m_tables = ReadInputTables(m_copy.Open());
    m_digest = digest;
}

void EditHistory::Restart() {
    m_stack.Clear();
    m_tables.reset();
    Look();
}

void EditHistory::Note(const std::string& name) {
    NoteChange(name);
    if (m_listener) {
        m_listener();
    }
}

void EditHistory::NoteChange(const std::string& name) {
    if (!m_tables) {
        Look();
        return;
    }
    if (m_inputs.Digest() == m_digest) {
        return;
    }
    const InputTables before = *m_tables;
    Look();
    const std::string change = ChangeName(before, *m_tables);
    if (change.empty()) {
        m_stack.Extend(*m_tables);
    } else {
        m_stack.Push(name.empty() ? change : name, before, *m_tables);
    }
}

void EditHistory::Undo() {
    Note();
    m_stack.Undo(m_copy.Open());
    Look();
}

void EditHistory::Redo() {
    Note();
    m_stack.Redo(m_copy.Open());
    Look();
}

}  // namespace quarnel02
