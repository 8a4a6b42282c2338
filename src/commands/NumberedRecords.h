#pragma once

#include <functional>
#include <string>
#include <vector>

#include "commands/NetworkUpkeep.h"
#include "sheets/RecordOrder.h"
#include "shell/MainForm.h"

namespace quarnel02 {

struct FieldValue {
    std::string Name;
    Value Content;
};

/// A table whose rows are numbered 1, 2, 3... and counted in Gen.
struct NumberedTable {
    std::string Name;  ///< of the table, and of the field of Gen that counts its rows
    std::string Key;   ///< field with the row's number
    TextBox CountBox;  ///< box of the main form that shows the count
    std::vector<FieldValue> Defaults;  ///< of a new or reset row, its number aside
    RecordKind Kind;
};

/// The rows of a numbered table as an editor walks and changes them, one at a time. There is a
/// current row unless the table is empty or the walk has gone behind its end; Text, Save and Delete
/// need one. Throws what the store reports; the rows, and the current one, are then what they were
/// before.
class NumberedRecords {
  public:
    /// Something that belongs to a deletion: given the database and the number of rows left.
    using Afterwards = std::function<void(const Database& database, int count)>;

    /// On the first row of the working copy.
    NumberedRecords(MainForm& form, NumberedTable table);

    [[nodiscard]] const std::string& TableName() const { return m_table.Name; }
    [[nodiscard]] int Count() const;
    /// Place of the current row, from 1; 0 without one.
    [[nodiscard]] int Place() const { return m_place; }
    /// The current row's field as text, by position from 0; "" when it is empty.
    [[nodiscard]] std::string Text(int position) const;

    /// Moves; the last and the first row stay where they are. From behind the end Previous goes to
    /// the last row.
    void Next();
    void Previous();
    void First();
    void Last();
    /// Makes the row at that place, from 1, the current one; any other place is that behind the
    /// end.
    void GoTo(int place);
    /// The place of the row with that number or else, from the current row on and around, of the
    /// next one whose name holds the text, letter case aside; 0 when there is none.
    [[nodiscard]] int Find(const std::string& text) const;
    /// To be called when the table has become another behind the walk: there is a current row again
    /// unless the table is empty.
    void StayInside();

    /// Appends a row with the defaults, numbered count + 1, and makes it the current one.
    void AddNew();
    /// Writes fields of the current row.
    void Save(const std::vector<FieldValue>& values);
    /// Deletes the current row and numbers the others anew in their order; the row that takes its
    /// place becomes the current one. An only row is reset to the defaults and number 1 instead.
    void Delete(const Afterwards& afterwards = {});

    /// What Delete would do to the matrix.
    [[nodiscard]] DeletionEffect EffectOfDelete() const;
    /// "task 5", "task 5 (Mount impeller)": the current row by its place.
    [[nodiscard]] std::string CurrentName() const;

    /// A change of the order of tasks or resources.
    using OrderChange = std::function<Reordered(InputTables tables, RecordKind kind)>;
    /// Stores the tables after the change in one transaction. Where the rows that it was about
    /// stand now, from 0; the first of them becomes the current row.
    Places Reorder(const OrderChange& change);

    /// Writes the count to Gen, shows it in the main form, and has arcs and pathways rebuilt when
    /// anything has changed since the beginning. When it throws it can be called again.
    void Close();
    /// Whether Close found anything changed.
    [[nodiscard]] bool Changed() const { return m_network.Changed(); }

  private:
    [[nodiscard]] RecordSet Rows(const Database& database) const;
    [[nodiscard]] RecordSet CurrentRow(const Database& database) const;
    void WriteDefaults(RecordSet& rows, int number) const;
    void Renumber(RecordSet& rows) const;
    void SaveCount(const Database& database, int count) const;

    MainForm& m_form;
    NumberedTable m_table;
    NetworkUpkeep m_network;
    int m_place = 0;
};

}  // namespace quarnel02
