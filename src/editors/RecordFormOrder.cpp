// The sheet beside a record, and what changes the order of records.
#include <algorithm>
#include <utility>

#include "editors/DeletionQuestion.h"
#include "editors/RecordForm.h"
#include "editors/SheetPanel.h"
#include "sheets/UndoStack.h"

namespace quarnel02 {

/// The row behind the last record is that of none.
void RecordForm::FollowSheet(int row) {
    if (!m_showing) {
        RunEvent([&] { ShowRecordOf(row); });
    }
}

void RecordForm::ShowRecordOf(int row) {
    const Database shared = Form().OpenWorkingCopy();
    m_records.GoTo(row + 1);
    ShowCurrent(false);
}

void RecordForm::NoteStore(const std::string& step) {
    RunEvent([&] {
        History().Note(step);
        ShowRecordOf(m_controls.Sheet->Sheet().currentIndex().row());
    });
}

/// The selected records, by their places from 0.
Places RecordForm::Selected() const {
    Places places = m_controls.Sheet->SelectedRows();
    while (!places.empty() && static_cast<int>(places.back()) >= m_sheet.Records()) {
        places.pop_back();
    }
    return places;
}

/// Which of the selected rows the current one is.
std::size_t RecordForm::PlaceInSelection() const {
    const int first = static_cast<int>(m_controls.Sheet->SelectedRows().front());
    return static_cast<std::size_t>(
        std::max(m_controls.Sheet->Sheet().currentIndex().row() - first, 0));
}

/// Selects the records that the change was about; that at `current` of them becomes the current
/// one.
void RecordForm::Reorder(const std::string& step, const NumberedRecords::OrderChange& change,
                         std::size_t current) {
    const Places now = m_records.Reorder(change);
    History().Note(step);
    m_records.GoTo(static_cast<int>(now.at(std::min(current, now.size() - 1))) + 1);
    Show();
    m_controls.Sheet->Sheet().SelectRows(static_cast<int>(now.front()),
                                         static_cast<int>(now.back()), m_records.Place() - 1);
}

void RecordForm::ChangeSelected(const char* verb, const char* way, SelectionChange change) {
    Run([&] {
        const Places places = Selected();
        if (!places.empty()) {
            Reorder(
                StepName(verb, places.size(), NameOf(m_kind)) + way,
                [&](InputTables tables, RecordKind kind) {
                    return change(std::move(tables), kind, places);
                },
                PlaceInSelection());
        }
    });
}

void RecordForm::InsertAbove() {
    Run([&] {
        const Places rows = m_controls.Sheet->SelectedRows();
        Reorder(
            StepName("Insert", rows.size(), NameOf(m_kind)),
            [&](InputTables tables, RecordKind kind) {
                return InsertRecords(std::move(tables), kind, rows.front(), rows.size());
            },
            0);
    });
}

/// What is being typed into records that go goes with them.
void RecordForm::DeleteSelected() {
    FieldBox* box = BoxToTypeIn();
    m_controls.Sheet->Sheet().CancelEditing();
    RunEvent([&] {
        const Places places = Selected();
        if (places.empty()) {
            return;
        }
        m_records.Reorder([&](InputTables tables, RecordKind kind) {
            return DeleteRecords(std::move(tables), kind, places);
        });
        History().Note(StepName("Delete", places.size(), NameOf(m_kind)) + " with matrix rows");
        m_records.GoTo(std::min(static_cast<int>(places.front()) + 1, m_records.Count()));
        Show();
        SelectText(box);
    });
}

void RecordForm::Delete() {
    FieldBox* box = BoxToTypeIn();
    m_controls.Sheet->Sheet().CancelEditing();
    RunEvent([&] {
        DeleteAsAsked();
        SelectText(box);
    });
}

void RecordForm::DeleteAsAsked() {
    const auto place = static_cast<std::size_t>(m_records.Place() - 1);
    const DeletionAnswer answer = AskDeletion(
        this,
        {m_kind, m_records.CurrentName(), m_records.Count() == 1, m_records.EffectOfDelete()});
    std::string step =
        "Delete " + std::string(NameOf(m_kind)) + " " + std::to_string(m_records.Place());
    if (answer == DeletionAnswer::Cancel) {
        return;
    }
    if (answer == DeletionAnswer::Alone) {
        DeleteCurrent();
    } else {
        step += " with its matrix rows";
        m_records.Reorder([&](InputTables tables, RecordKind kind) {
            return DeleteRecords(std::move(tables), kind, {place});
        });
    }
    History().Note(step);
    Show();
}

}  // namespace quarnel02
