#include "commands/NumberedRecords.h"

#include <algorithm>
#include <utility>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

void Write(RecordSet& rows, const std::vector<FieldValue>& values) {
    for (const FieldValue& value : values) {
        rows.Set(value.Name, value.Content);
    }
    rows.Update();
}

}  // namespace

NumberedRecords::NumberedRecords(MainForm& form, NumberedTable table)
    : m_form(form), m_table(std::move(table)), m_network(form) {
    StayInside();
}

RecordSet NumberedRecords::Rows(const Database& database) const {
    return database.OpenRecordSet("SELECT * FROM " + m_table.Name + ";");
}

RecordSet NumberedRecords::CurrentRow(const Database& database) const {
    RecordSet rows = Rows(database);
    if (m_place > 0) {
        rows.Move(m_place - 1);
    }
    return rows;
}

int NumberedRecords::Count() const {
    return Rows(m_form.OpenWorkingCopy()).RecordCount();
}

std::string NumberedRecords::Text(int position) const {
    return CurrentRow(m_form.OpenWorkingCopy()).Text(position);
}

void NumberedRecords::Next() {
    if (m_place < Count()) {
        ++m_place;
    }
}

void NumberedRecords::Previous() {
    if (m_place > 1) {
        --m_place;
    }
}

void NumberedRecords::StayInside() {
    m_place = std::min(std::max(m_place, 1), Count());
}

void NumberedRecords::WriteDefaults(RecordSet& rows, int number) const {
    rows.Set(m_table.Key, number);
    Write(rows, m_table.Defaults);
}

void NumberedRecords::AddNew() {
    RecordSet rows = Rows(m_form.OpenWorkingCopy());
    const int number = rows.RecordCount() + 1;
    rows.AddNew();
    WriteDefaults(rows, number);
    m_place = number;
}

void NumberedRecords::Save(const std::vector<FieldValue>& values) {
    RecordSet row = CurrentRow(m_form.OpenWorkingCopy());
    row.Edit();
    Write(row, values);
}

void NumberedRecords::Renumber(RecordSet& rows) const {
    rows.MoveFirst();
    for (int number = 1; !rows.Eof(); ++number) {
        rows.Edit();
        Write(rows, {{m_table.Key, number}});
        rows.MoveNext();
    }
}

void NumberedRecords::Delete(const Afterwards& afterwards) {
    const Database database = m_form.OpenWorkingCopy();
    Transaction transaction(database);
    RecordSet rows = CurrentRow(database);
    if (rows.RecordCount() > 1) {
        rows.Delete();
        Renumber(rows);
    } else {
        rows.Edit();
        WriteDefaults(rows, 1);
    }
    const int count = rows.RecordCount();
    if (afterwards) {
        afterwards(database, count);
    }
    transaction.Commit();
    m_place = std::min(m_place, count);
}

void NumberedRecords::SaveCount(const Database& database, int count) const {
    RecordSet gen = database.OpenRecordSet("SELECT * FROM Gen;");
    if (gen.RecordCount() == 0) {
        gen.AddNew();
    } else if (gen.Text(m_table.Name) == NumberText(count)) {
        return;
    } else {
        gen.Edit();
    }
    gen.Set(m_table.Name, count);
    gen.Update();
}

void NumberedRecords::Close() {
    const int count = Count();
    SaveCount(m_form.OpenWorkingCopy(), count);
    m_form.SetText(m_table.CountBox, NumberText(count));
    m_network.Rebuild();
}

}  // namespace quarnel02
