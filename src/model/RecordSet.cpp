#include "model/RecordSet.h"

#include <algorithm>
#include <utility>

#include "basic/Numbers.h"
#include "model/Connection.h"
#include "model/Schema.h"

namespace quarnel02 {

RecordSet::RecordSet(std::shared_ptr<Session> session, const std::string& sql)
    : m_session(std::move(session)), m_rows(m_session->Store->Select(sql)), m_live(Size()) {}

bool RecordSet::IsOpen() const noexcept {
    return m_session && m_session->Store;
}

void RecordSet::RequireOpen() const {
    if (!IsOpen()) {
        throw RunTimeError(ErrorKind::ObjectClosed, "The record set is closed.");
    }
}

void RecordSet::RequireUpdatable() const {
    RequireOpen();
    if (m_rows.Table.empty()) {
        throw RunTimeError(ErrorKind::ReadOnlyRecordSet, "The record set cannot be changed.");
    }
}

void RecordSet::ThrowNoCurrent() const {
    const std::string where = m_rows.Table.empty() ? "" : " in table " + m_rows.Table;
    throw RunTimeError(ErrorKind::NoCurrentRecord, "No current record" + where + ".");
}

bool RecordSet::OnRow() const {
    return m_at >= 0 && m_at < Size() && !m_rows.All[static_cast<std::size_t>(m_at)].Deleted;
}

std::size_t RecordSet::Current() const {
    RequireOpen();
    if (!OnRow()) {
        ThrowNoCurrent();
    }
    return static_cast<std::size_t>(m_at);
}

int RecordSet::RecordCount() const {
    RequireOpen();
    return static_cast<int>(m_live);
}

bool RecordSet::Eof() const {
    RequireOpen();
    return m_at >= Size();
}

bool RecordSet::Bof() const {
    RequireOpen();
    return m_at < 0 || m_rows.All.empty();
}

void RecordSet::StepFrom(std::ptrdiff_t place, int step) {
    DropChange();
    m_at = place;
    do {
        m_at += step;
    } while (m_at >= 0 && m_at < Size() && !OnRow());
}

void RecordSet::RequireRows() {
    RequireOpen();
    DropChange();
    if (m_live == 0) {
        ThrowNoCurrent();
    }
}

void RecordSet::MoveFirst() {
    RequireRows();
    StepFrom(-1, 1);
}

void RecordSet::MoveLast() {
    RequireRows();
    StepFrom(Size(), -1);
}

void RecordSet::MoveNext() {
    if (Eof()) {
        ThrowNoCurrent();
    }
    StepFrom(m_at, 1);
}

void RecordSet::MovePrevious() {
    if (Bof()) {
        ThrowNoCurrent();
    }
    StepFrom(m_at, -1);
}

void RecordSet::Move(int rows) {
    RequireOpen();
    for (; rows > 0; --rows) {
        MoveNext();
    }
    for (; rows < 0; ++rows) {
        MovePrevious();
    }
}

int RecordSet::Position(std::string_view name) const {
    RequireOpen();
    const auto& names = m_rows.Names;
    const auto field = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& each) { return SameName(each, name); });
    if (field == names.end()) {
        throw RunTimeError(ErrorKind::FieldNotFound,
                           "The record set has no field " + std::string(name) + ".");
    }
    return static_cast<int>(field - names.begin());
}

std::string RecordSet::Title(int position) const {
    const std::string& name = m_rows.Names[static_cast<std::size_t>(position)];
    return m_rows.Table.empty() ? name : m_rows.Table + "." + name;
}

const Value& RecordSet::Field(int position) const {
    const Row& row = m_rows.All[Current()];
    if (position < 0 || position >= std::ssize(row.Fields)) {
        throw RunTimeError(ErrorKind::FieldNotFound,
                           "The record set has no field number " + NumberText(position) + ".");
    }
    return row.Fields[static_cast<std::size_t>(position)];
}

double RecordSet::Number(int position) const {
    const Value& value = Field(position);
    if (const auto* real = std::get_if<double>(&value)) {
        return *real;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    if (IsNull(value)) {
        throw RunTimeError(ErrorKind::InvalidUseOfNull,
                           Title(position) + " is empty. Enter a number there.");
    }
    return TextToDouble(std::get<std::string>(value), Title(position));
}

std::int16_t RecordSet::Integer(int position) const {
    const double number = Number(position);
    const auto integer = static_cast<std::int16_t>(std::clamp(number, -32768.0, 32767.0));
    return static_cast<double>(integer) == number ? integer : ToInteger(number, Title(position));
}

float RecordSet::Single(int position) const {
    const double number = Number(position);
    const auto single = static_cast<float>(number);
    return static_cast<double>(single) == number ? single : ToSingle(number, Title(position));
}

std::string RecordSet::Text(int position) const {
    const Value text = ConvertTo(FieldType::Text, Field(position), {});
    return IsNull(text) ? std::string() : std::get<std::string>(text);
}

void RecordSet::DropChange() {
    m_change = Change::None;
    m_set.clear();
}

void RecordSet::Edit() {
    RequireUpdatable();
    (void)Current();
    DropChange();
    m_change = Change::Edit;
}

void RecordSet::AddNew() {
    RequireUpdatable();
    DropChange();
    m_change = Change::Add;
}

void RecordSet::Set(std::string_view name, const Value& value) {
    const int position = Position(name);
    const std::string title = Title(position);
    if (m_change == Change::None) {
        throw RunTimeError(ErrorKind::UpdateWithoutEdit,
                           title + " was set without Edit or AddNew.");
    }
    const FieldType type = TypeOfColumn(FindTable(m_rows.Table), name);
    m_set.insert_or_assign(position, ConvertTo(type, value, title));
}

void RecordSet::Update() {
    RequireUpdatable();
    if (m_change == Change::None) {
        throw RunTimeError(ErrorKind::UpdateWithoutEdit,
                           "Table " + m_rows.Table + ": Update without Edit or AddNew.");
    }
    m_change == Change::Edit ? WriteEdit() : WriteNew();
    DropChange();
}

std::pair<std::vector<std::string_view>, std::vector<Value>> RecordSet::Changes() const {
    std::pair<std::vector<std::string_view>, std::vector<Value>> changes;
    for (const auto& [position, value] : m_set) {
        changes.first.emplace_back(m_rows.Names[static_cast<std::size_t>(position)]);
        changes.second.push_back(value);
    }
    return changes;
}

void RecordSet::WriteEdit() {
    Row& row = m_rows.All[Current()];
    auto [columns, values] = Changes();
    values.emplace_back(row.Id);
    if (!m_set.empty() &&
        m_session->Store->Change(UpdateText(m_rows.Table, columns, "rowid"), values) == 0) {
        ThrowNoCurrent();
    }
    for (auto& [position, value] : m_set) {
        row.Fields[static_cast<std::size_t>(position)] = std::move(value);
    }
    m_lastModified = m_at;
}

void RecordSet::WriteNew() {
    Connection& store = *m_session->Store;
    const auto [columns, values] = Changes();
    store.Change(InsertText(m_rows.Table, columns), values);
    const std::string id = NumberText(store.LastInsertedId());
    const std::vector<std::string_view> names(m_rows.Names.begin(), m_rows.Names.end());
    Rows added =
        store.Select("SELECT " + Joined(names) + " FROM " + m_rows.Table + " WHERE rowid = " + id);
    const bool was_at_end = Eof();
    m_lastModified = Size();
    m_rows.All.push_back(std::move(added.All.front()));
    ++m_live;
    if (was_at_end) {
        m_at = Size();
    }
}

void RecordSet::Delete() {
    RequireUpdatable();
    Row& row = m_rows.All[Current()];
    DropChange();
    const std::vector<Value> id = {row.Id};
    m_session->Store->Change("DELETE FROM " + m_rows.Table + " WHERE rowid=?", id);
    row.Deleted = true;
    --m_live;
}

void RecordSet::MoveToLastModified() {
    RequireOpen();
    if (m_lastModified < 0) {
        ThrowNoCurrent();
    }
    DropChange();
    m_at = m_lastModified;
}

}  // namespace quarnel02
