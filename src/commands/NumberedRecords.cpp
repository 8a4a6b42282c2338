#include "commands/NumberedRecords.h"

#include <algorithm>
#include <utility>

#include "basic/Numbers.h"

namespace quarnel02 {

NumberedRecords::NumberedRecords(MainForm& form, NumberedTable table)
    : m_form(form), m_table(std::move(table)), m_database(form.OpenWorkingCopy()), m_network(form) {
    GoTo(1);
}

/// The rows, on the current one. Opening them can fail again and again: until it succeeds
/// nothing can be written to a wrong row.
RecordSet& NumberedRecords::Rows() {
    if (m_mustOpen) {
        m_records = m_database.OpenRecordSet("SELECT * FROM " + m_table.Name + ";");
        MoveToPlace();
        m_mustOpen = false;
    }
    return m_records;
}

void NumberedRecords::GoTo(int place) {
    m_place = std::min(place, Count());
    MoveToPlace();
}

void NumberedRecords::MoveToPlace() {
    if (m_place > 0) {
        m_records.MoveFirst();
        m_records.Move(m_place - 1);
    }
}

void NumberedRecords::Next() {
    Rows().MoveNext();
    if (m_records.Eof()) {
        m_records.MovePrevious();
    } else {
        ++m_place;
    }
}

void NumberedRecords::Previous() {
    Rows().MovePrevious();
    if (m_records.Bof()) {
        m_records.MoveNext();
    } else {
        --m_place;
    }
}

void NumberedRecords::Write(const std::vector<FieldValue>& values) {
    for (const FieldValue& value : values) {
        m_records.Set(value.Name, value.Content);
    }
    m_records.Update();
    m_records.MoveToLastModified();
}

void NumberedRecords::WriteDefaults(int number) {
    m_records.Set(m_table.Key, number);
    Write(m_table.Defaults);
}

void NumberedRecords::AddNew() {
    Rows().AddNew();
    WriteDefaults(Count() + 1);
    m_place = Count();
}

void NumberedRecords::Save(const std::vector<FieldValue>& values) {
    Rows().Edit();
    Write(values);
}

void NumberedRecords::Renumber() {
    m_records.MoveFirst();
    for (int number = 1; !m_records.Eof(); ++number) {
        m_records.Edit();
        Write({{m_table.Key, number}});
        m_records.MoveNext();
    }
}

void NumberedRecords::Delete(const Afterwards& afterwards) {
    const int place = m_place;
    try {
        Transaction transaction(m_database);
        if (Count() > 1) {
            m_records.Delete();
            Renumber();
        } else {
            m_records.Edit();
            WriteDefaults(1);
        }
        if (afterwards) {
            afterwards(m_database, Count());
        }
        transaction.Commit();
    } catch (...) {
        m_mustOpen = true;
        throw;
    }
    GoTo(place);
}

void NumberedRecords::SaveCount(int count) {
    RecordSet gen = m_database.OpenRecordSet("SELECT * FROM Gen;");
    if (gen.RecordCount() == 0) {
        gen.AddNew();
    } else if (gen.Text(m_table.Name) == NumberText(count)) {
        return;
    } else {
        gen.Edit();
    }
    gen.Set(m_table.Name, count);
    gen.Update();
    gen.MoveToLastModified();
}

void NumberedRecords::Close() {
    const int count = Count();
    SaveCount(count);
    m_form.SetText(m_table.CountBox, NumberText(count));
    m_network.Rebuild();
    m_records.Close();
    m_database.Close();
}

}  // namespace quarnel02
