#include "commands/NumberedRecords.h"

#include <algorithm>
#include <utility>

#include "basic/Numbers.h"
#include "sheets/NumberedRows.h"

namespace quarnel02 {

namespace {

void Write(RecordSet& rows, const std::vector<FieldValue>& values) {
    for (const FieldValue& value : values) {
        rows.Set(value.Name, value.Content);
    }
    rows.Update();
}

std::string InLowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

/// Whether any of the names of a row holds a text in lower case.
bool IsNamed(const InputRow& row, const std::string& part) {
    return std::any_of(row.begin(), row.end(), [&](const Value& field) {
        const auto* name = std::get_if<std::string>(&field);
        return name != nullptr && InLowerCase(*name).find(part) != std::string::npos;
    });
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
    if (m_place > 0 && m_place < Count()) {
        ++m_place;
    }
}

void NumberedRecords::Previous() {
    if (m_place == 0) {
        Last();
    } else if (m_place > 1) {
        --m_place;
    }
}

void NumberedRecords::First() {
    m_place = std::min(1, Count());
}

void NumberedRecords::Last() {
    m_place = Count();
}

void NumberedRecords::GoTo(int place) {
    m_place = place >= 1 && place <= Count() ? place : 0;
}

int NumberedRecords::Find(const std::string& text) const {
    const InputTables tables = ReadInputTables(m_form.OpenWorkingCopy());
    const TableRows& rows = RowsOf(tables, m_table.Kind);
    const auto count = static_cast<int>(rows.size());
    for (int place = 1; place <= count; ++place) {
        const auto number = NumberIn(rows[static_cast<std::size_t>(place - 1)][kNumberPlace]);
        if (number && std::to_string(*number) == text) {
            return place;
        }
    }
    const std::string part = InLowerCase(text);
    for (int step = 1; step <= count && !part.empty(); ++step) {
        const int place = (m_place - 1 + step + count) % count;
        if (IsNamed(rows[static_cast<std::size_t>(place)], part)) {
            return place + 1;
        }
    }
    return 0;
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

DeletionEffect NumberedRecords::EffectOfDelete() const {
    return EffectOfDeletion(ReadInputTables(m_form.OpenWorkingCopy()), m_table.Kind,
                            static_cast<std::size_t>(m_place - 1));
}

std::string NumberedRecords::CurrentName() const {
    const InputTables tables = ReadInputTables(m_form.OpenWorkingCopy());
    return std::string(NameOf(m_table.Kind)) + " " + std::to_string(m_place) +
           NameInBrackets(RowsOf(tables, m_table.Kind).at(static_cast<std::size_t>(m_place - 1)),
                          m_table.Kind);
}

Places NumberedRecords::Reorder(const OrderChange& change) {
    const Database database = m_form.OpenWorkingCopy();
    Reordered changed = change(ReadInputTables(database), m_table.Kind);
    WriteInputTables(database, changed.Tables);
    const auto count = static_cast<int>(RowsOf(changed.Tables, m_table.Kind).size());
    m_place =
        changed.Now.empty() ? std::min(m_place, count) : static_cast<int>(changed.Now.front()) + 1;
    return std::move(changed.Now);
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
