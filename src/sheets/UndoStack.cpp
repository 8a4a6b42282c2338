#include "sheets/UndoStack.h"

#include <utility>

#include "basic/Numbers.h"

namespace quarnel02 {

void UndoStack::Push(std::string name, const InputTables& before, const InputTables& after) {
    if (before == after) {
        return;
    }
    DropUndone();
    const PackedTables* last = m_steps.empty() ? nullptr : &m_steps.back().After;
    PackedTables packed_before(before, last);
    PackedTables packed_after(after, &packed_before);
    m_steps.push_back({std::move(name), std::move(packed_before), std::move(packed_after)});
    m_done = m_steps.size();
    ForgetOldest();
}

void UndoStack::Extend(const InputTables& after) {
    if (CanUndo()) {
        Step& last = m_steps[m_done - 1];
        last.After = PackedTables(after, &last.Before);
        ForgetOldest();
    }
}

void UndoStack::Clear() {
    m_steps.clear();
    m_done = 0;
    m_bytes = 0;
}

void UndoStack::DropUndone() {
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done), m_steps.end());
}

/// Each snapshot shares what it can with the one in front of it.
void UndoStack::CountBytes() {
    m_bytes = 0;
    const PackedTables* last = nullptr;
    for (const Step& step : m_steps) {
        m_bytes += step.Before.BytesBeside(last) + step.After.BytesBeside(&step.Before);
        last = &step.After;
    }
}

/// The last step stays, whatever it takes.
void UndoStack::ForgetOldest() {
    CountBytes();
    while (m_bytes > m_mostBytes && m_steps.size() > 1) {
        m_steps.pop_front();
        --m_done;
        CountBytes();
    }
}

std::string UndoStack::UndoText() const {
    return CanUndo() ? "Undo " + m_steps[m_done - 1].Name : "Undo";
}

std::string UndoStack::RedoText() const {
    return CanRedo() ? "Redo " + m_steps[m_done].Name : "Redo";
}

void UndoStack::Undo(const Database& database) {
    if (!CanUndo()) {
        return;
    }
    Step& step = m_steps[m_done - 1];
    PackedTables now(ReadInputTables(database), &step.After);
    WriteInputTables(database, step.Before.Tables());
    step.After = std::move(now);
    --m_done;
}

void UndoStack::Redo(const Database& database) {
    if (!CanRedo()) {
        return;
    }
    Step& step = m_steps[m_done];
    PackedTables now(ReadInputTables(database), &step.Before);
    WriteInputTables(database, step.After.Tables());
    step.Before = std::move(now);
    ++m_done;
}

std::string CountText(std::size_t count, std::string_view what) {
    return NumberText(static_cast<std::int64_t>(count)) + " " + std::string(what) +
           (count == 1 ? "" : "s");
}

std::string StepName(std::string_view verb, std::size_t count, std::string_view what) {
    return std::string(verb) + " " + CountText(count, what);
}

}  // namespace quarnel02
