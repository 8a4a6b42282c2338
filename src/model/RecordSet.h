#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Value.h"

namespace quarnel02 {

struct Session;

struct Row {
    std::int64_t Id = 0;  ///< the row's identity in its table
    std::vector<Value> Fields;
    bool Deleted = false;
};

/// What a SELECT yields.
struct Rows {
    std::string Table;  ///< whose rows these are; empty where a row is not one row of one table
    std::vector<std::string> Names;  ///< of the fields
    std::vector<Row> All;
};

/// The rows that an SQL text selects, with a position among them.
///
/// The set holds the rows that were selected when it was opened, whatever others write or undo.
/// Changes made through it are seen by it; a row added through it stands at its end; a deleted row
/// is no longer counted, and the position stays on it, without a current row, until the next move.
/// A set of columns of a single table can be changed; joins, aggregates, groups, DISTINCT sets and
/// sets with computed or renamed columns are read-only.
///
/// After opening, the position is on the first row; of an empty set both Eof and Bof hold.
/// Fields are named without regard to letter case, or by position counted from 0.
///
/// Every call throws RunTimeError: ObjectClosed after Close or after the database was closed,
/// NoCurrentRecord where a row is needed and there is none, FieldNotFound for a name or position
/// that the set does not have, ReadOnlyRecordSet for a change to a read-only set, and whatever
/// the store reports.
class RecordSet {
  public:
    /// A closed set.
    RecordSet() = default;
    ~RecordSet() = default;
    RecordSet(RecordSet&& other) noexcept = default;
    RecordSet& operator=(RecordSet&& other) noexcept = default;
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;

    /// Closes the set; closing a closed one does nothing.
    void Close() noexcept { *this = RecordSet(); }
    [[nodiscard]] bool IsOpen() const noexcept;

    /// Full number of rows that the set holds now.
    [[nodiscard]] int RecordCount() const;
    /// Whether the position is behind the last, or in front of the first row.
    [[nodiscard]] bool Eof() const;
    [[nodiscard]] bool Bof() const;

    /// Moves drop what Edit or AddNew began. MoveFirst and MoveLast need a row; MoveNext at Eof,
    /// MovePrevious at Bof and Move beyond either end need one too. Move(0) stays.
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();
    void Move(int rows);

    /// The current row's field. Integer, Number and Single throw InvalidUseOfNull for an empty
    /// field, TypeMismatch for a text that is no number, Overflow beyond the type's range; Text
    /// of an empty field is "".
    [[nodiscard]] const Value& Field(int position) const;
    [[nodiscard]] std::int16_t Integer(int position) const;
    [[nodiscard]] double Number(int position) const;
    [[nodiscard]] float Single(int position) const;
    [[nodiscard]] std::string Text(int position) const;
    [[nodiscard]] const Value& Field(std::string_view name) const { return Field(Position(name)); }
    [[nodiscard]] std::int16_t Integer(std::string_view name) const {
        return Integer(Position(name));
    }
    [[nodiscard]] double Number(std::string_view name) const { return Number(Position(name)); }
    [[nodiscard]] float Single(std::string_view name) const { return Single(Position(name)); }
    [[nodiscard]] std::string Text(std::string_view name) const { return Text(Position(name)); }

    /// Begins a change of the current row, or a new row whose unset fields get the table's
    /// defaults.
    void Edit();
    void AddNew();
    /// Sets a field of the row being changed or added; the value is converted to the field's
    /// type (ConvertTo). Throws UpdateWithoutEdit outside Edit or AddNew.
    void Set(std::string_view name, const Value& value);
    /// Writes what was set. The position does not move: after AddNew it is where it was before.
    /// Throws UpdateWithoutEdit outside Edit or AddNew.
    void Update();
    /// Deletes the current row.
    void Delete();

    /// Makes the row that the last Update wrote the current one.
    void MoveToLastModified();

  private:
    friend class Database;
    enum class Change : std::uint8_t { None, Edit, Add };

    RecordSet(std::shared_ptr<Session> session, const std::string& sql);
    void RequireOpen() const;
    void RequireUpdatable() const;
    /// Number of the current row. Throws NoCurrentRecord.
    [[nodiscard]] std::size_t Current() const;
    [[noreturn]] void ThrowNoCurrent() const;
    [[nodiscard]] std::ptrdiff_t Size() const { return std::ssize(m_rows.All); }
    [[nodiscard]] bool OnRow() const;
    [[nodiscard]] int Position(std::string_view name) const;
    [[nodiscard]] std::string Title(int position) const;
    void DropChange();
    void RequireRows();
    void StepFrom(std::ptrdiff_t place, int step);
    void WriteEdit();
    void WriteNew();
    /// Columns and values of the fields that were set.
    [[nodiscard]] std::pair<std::vector<std::string_view>, std::vector<Value>> Changes() const;

    std::shared_ptr<Session> m_session;
    Rows m_rows;
    std::ptrdiff_t m_live = 0;           ///< rows that are not deleted
    std::ptrdiff_t m_at = 0;             ///< -1 is Bof, the number of rows is Eof
    std::ptrdiff_t m_lastModified = -1;  ///< none yet
    Change m_change = Change::None;
    std::map<int, Value> m_set;  ///< fields that Set has set
};

}  // namespace quarnel02
