// Whatever is done to tasks, resources and matrix in whatever order, figures stay with the names
// that they were entered for, and undoing it all gives the first model back.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>

#include "sheets/RecordOrder.h"
#include "sheets/SheetModels.h"
#include "sheets/Triples.h"
#include "sheets/UndoStack.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using Names = std::vector<std::string>;

/// What the planner means, kept by names alone.
struct Meaning {
    Names Tasks;
    Names Resources;
    std::map<std::pair<std::string, std::string>, std::string> Figures;

    [[nodiscard]] std::multiset<std::string> Triples() const {
        std::multiset<std::string> triples;
        for (const auto& [pair, figures] : Figures) {
            triples.insert(pair.first + " | " + pair.second + ": | " + figures);
        }
        return triples;
    }
};

/// A planner at work on a working copy.
class Planner {
  public:
    Planner() {
        m_tables = test::EmptyMatrixModel(4, 3);
        m_meaning = {{"T1", "T2", "T3", "T4"}, {"R1", "R2", "R3"}, {}};
        // Rows that no record bears may never become anybody's.
        m_tables.Matrix = {test::PairRow(5, 1, 66, 6, 6), test::PairRow(2, 4, 77, 7, 7)};
        WriteInputTables(m_store, m_tables);
        m_first = m_tables;
    }

    void Work();
    void UndoAll();

  private:
    using Edit = void (Planner::*)(RecordKind);

    void Insert(RecordKind kind);
    void Delete(RecordKind kind);
    void Move(RecordKind kind);
    void Paste(RecordKind kind);
    void Undo(RecordKind kind);
    void Redo(RecordKind kind);

    void Store(const std::string& name, InputTables after, Meaning meaning);
    void Check() const;

    test::TestModel m_model;
    Database m_store = m_model.Open();
    UndoStack m_stack;
    InputTables m_tables;
    InputTables m_first;
    Meaning m_meaning;
    std::vector<Meaning> m_undone;
    std::vector<Meaning> m_done;
    int m_named = 100;
};

std::size_t AnyPlace(std::size_t count) {
    return *rc::gen::inRange<std::size_t>(0, count);
}

Places AnyPlaces(std::size_t count) {
    return *rc::gen::container<Places>(rc::gen::inRange<std::size_t>(0, count));
}

void Planner::Store(const std::string& name, InputTables after, Meaning meaning) {
    if (after != m_tables) {
        m_done.push_back(m_meaning);
        m_undone.clear();
    }
    test::StoreStep(m_stack, m_store, name, after);
    m_tables = std::move(after);
    m_meaning = std::move(meaning);
}

void Planner::Insert(RecordKind kind) {
    Meaning meaning = m_meaning;
    Names& names = kind == RecordKind::Tasks ? meaning.Tasks : meaning.Resources;
    const std::size_t place = AnyPlace(names.size() + 1);
    const std::string name = std::string(NameOf(kind)) + std::to_string(++m_named);
    names.insert(names.begin() + static_cast<std::ptrdiff_t>(place), name);
    InputTables after = InsertRecords(m_tables, kind, place, 1).Tables;
    const std::size_t column = kind == RecordKind::Tasks ? 1 : 2;
    Store("Insert", SetRecordCells(after, kind, place, column, {{name}}).Tables, meaning);
}

void Planner::Delete(RecordKind kind) {
    Meaning meaning = m_meaning;
    Names& names = kind == RecordKind::Tasks ? meaning.Tasks : meaning.Resources;
    if (names.size() < 2) {
        return;
    }
    const std::size_t place = AnyPlace(names.size());
    const std::string name = names[place];
    names.erase(names.begin() + static_cast<std::ptrdiff_t>(place));
    std::erase_if(meaning.Figures, [&](const auto& entry) {
        return entry.first.first == name || entry.first.second == name;
    });
    Store("Delete", DeleteRecords(m_tables, kind, {place}).Tables, meaning);
}

void Planner::Move(RecordKind kind) {
    Meaning meaning = m_meaning;
    Names& names = kind == RecordKind::Tasks ? meaning.Tasks : meaning.Resources;
    const Places places = AnyPlaces(names.size());
    const bool up = *rc::gen::arbitrary<bool>();
    const Reordered moved =
        up ? MoveRecordsUp(m_tables, kind, places) : MoveRecordsDown(m_tables, kind, places);
    Names selected;
    for (const std::size_t place : std::set<std::size_t>(places.begin(), places.end())) {
        selected.push_back(names[place]);
    }
    names.clear();
    for (const InputRow& row : RowsOf(moved.Tables, kind)) {  // a description, or a short name
        names.push_back(std::get<std::string>(row[1]));
    }
    Names now;
    for (const std::size_t place : moved.Now) {
        now.push_back(names[place]);
    }
    RC_ASSERT(now == selected);
    Store("Move", moved.Tables, meaning);
}

void Planner::Paste(RecordKind /*kind*/) {
    Meaning meaning = m_meaning;
    const std::size_t row = AnyPlace(meaning.Tasks.size());
    const std::size_t column = AnyPlace(meaning.Resources.size());
    const std::size_t down = 1 + AnyPlace(meaning.Tasks.size() - row);
    const std::size_t across = 1 + AnyPlace(meaning.Resources.size() - column);
    TextBlock block(down, std::vector<std::string>(across));
    for (std::size_t y = 0; y < down; ++y) {
        for (std::size_t x = 0; x < across; ++x) {
            const std::pair pair(meaning.Tasks[row + y], meaning.Resources[column + x]);
            if (*rc::gen::inRange(0, 4) == 0) {
                meaning.Figures.erase(pair);
            } else {
                block[y][x] = std::to_string(*rc::gen::inRange(0, 99)) + ".5 | 3 | 400";
                meaning.Figures[pair] = block[y][x];
            }
        }
    }
    Store("Paste", SetMatrixCells(m_tables, ShownFigure::AllThree, row, column, block).Tables,
          meaning);
}

void Planner::Undo(RecordKind /*kind*/) {
    RC_ASSERT(m_stack.CanUndo() == !m_done.empty());
    if (m_stack.CanUndo()) {
        m_stack.Undo(m_store);
        m_undone.push_back(m_meaning);
        m_meaning = m_done.back();
        m_done.pop_back();
        m_tables = ReadInputTables(m_store);
    }
}

void Planner::Redo(RecordKind /*kind*/) {
    RC_ASSERT(m_stack.CanRedo() == !m_undone.empty());
    if (m_stack.CanRedo()) {
        m_stack.Redo(m_store);
        m_done.push_back(m_meaning);
        m_meaning = m_undone.back();
        m_undone.pop_back();
        m_tables = ReadInputTables(m_store);
    }
}

void Planner::Check() const {
    RC_ASSERT(ReadInputTables(m_store) == m_tables);
    RC_ASSERT(test::TriplesOf(m_tables) == m_meaning.Triples());
    RC_ASSERT(m_tables.Gen[0][GenColumn::Tasks] ==
              Value(static_cast<std::int64_t>(m_meaning.Tasks.size())));
    RC_ASSERT(m_tables.Gen[0][GenColumn::Resources] ==
              Value(static_cast<std::int64_t>(m_meaning.Resources.size())));
}

void Planner::Work() {
    const Edit edit =
        *rc::gen::element<Edit>(&Planner::Insert, &Planner::Delete, &Planner::Move, &Planner::Paste,
                                &Planner::Paste, &Planner::Undo, &Planner::Redo);
    (this->*edit)(*rc::gen::element(RecordKind::Tasks, RecordKind::Resources));
    Check();
}

void Planner::UndoAll() {
    while (m_stack.CanUndo()) {
        Undo(RecordKind::Tasks);
        Check();
    }
    RC_ASSERT(ReadInputTables(m_store) == m_first);
}

RC_GTEST_PROP(EditSequence, FiguresStayWithTheirNamesAndUndoGivesTheFirstModelBack, ()) {
    Planner planner;
    const int edits = *rc::gen::inRange(1, 14);
    for (int edit = 0; edit < edits; ++edit) {
        planner.Work();
    }
    planner.UndoAll();
}

}  // namespace
}  // namespace quarnel02
