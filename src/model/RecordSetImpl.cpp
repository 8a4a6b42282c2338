#include "model/RecordSetImpl.h"

#include <algorithm>

#include "basic/Numbers.h"

namespace quarnel02 {

RecordSet::Impl::Impl(std::shared_ptr<Session> session, std::string_view sql)
    : m_session(std::move(session)), m_connection(m_session->Store) {
    m_query = &Store().Prepare(sql, m_literals);
    if (m_query->Shape.WholeTable) {
        Store().Register(this);
    } else {
        Fetch();
    }
}

RecordSet::Impl::~Impl() {
    if (m_fetched) {
        return;
    }
    if (const auto connection = m_connection.lock()) {
        connection->Unregister(this);
    }
}

Connection& RecordSet::Impl::Store() {
    if (!IsOpen()) {
        throw RunTimeError(ErrorKind::ObjectClosed, "The database of this record set is closed.");
    }
    return *m_session->Store;
}

void RecordSet::Impl::FetchNow() {
    const auto connection = m_connection.lock();
    connection->Unregister(this);
    m_fetched = true;
    m_rows = connection->Fetch(*m_query, m_literals);
    m_live = static_cast<std::ptrdiff_t>(m_rows->Count);
    if (m_atId) {
        m_at = RowOf(*m_atId);
    } else if (m_firstAdded && !m_rows->Ids.empty() && m_rows->Ids.front() == *m_firstAdded) {
        m_at = m_live;  // it was empty when it was opened
    }
}

void RecordSet::Impl::Fetch() {
    Store();
    if (!m_fetched) {
        FetchNow();
    }
}

const std::shared_ptr<Rows>& RecordSet::Impl::NoRows() {
    static const auto none = std::make_shared<Rows>();
    return none;
}

/// The rows for changing: a copy when somebody else may be reading them.
Rows& RecordSet::Impl::OwnRows() {
    if (m_rows.use_count() > 1) {
        m_rows = std::make_shared<Rows>(*m_rows);
    }
    return *m_rows;
}

int RecordSet::Impl::RecordCount() {
    Fetch();
    return static_cast<int>(m_live);
}

bool RecordSet::Impl::OnRow() const {
    const auto row = static_cast<std::size_t>(m_at);
    return m_at >= 0 && row < m_rows->Count && !(row < m_deleted.size() && m_deleted[row]);
}

bool RecordSet::Impl::Eof() {
    Fetch();
    return m_at >= static_cast<std::ptrdiff_t>(m_rows->Count);
}

bool RecordSet::Impl::Bof() {
    Fetch();
    return m_at < 0 || m_rows->Count == 0;
}

void RecordSet::Impl::ThrowNoCurrent() const {
    const std::string& table = TableName();
    throw RunTimeError(ErrorKind::NoCurrentRecord,
                       "No current record" + (table.empty() ? "" : " in table " + table) + ".");
}

void RecordSet::Impl::RequireCurrent() {
    Fetch();
    if (!OnRow()) {
        ThrowNoCurrent();
    }
}

void RecordSet::Impl::StepOver(std::ptrdiff_t step) {
    const auto end = static_cast<std::ptrdiff_t>(m_rows->Count);
    do {
        m_at += step;
    } while (m_at >= 0 && m_at < end && !OnRow());
}

void RecordSet::Impl::MoveFirst() {
    Fetch();
    DropChange();
    if (m_live == 0) {
        ThrowNoCurrent();
    }
    m_at = -1;
    StepOver(1);
}

void RecordSet::Impl::MoveLast() {
    Fetch();
    DropChange();
    if (m_live == 0) {
        ThrowNoCurrent();
    }
    m_at = static_cast<std::ptrdiff_t>(m_rows->Count);
    StepOver(-1);
}

void RecordSet::Impl::MoveNext() {
    if (Eof()) {
        ThrowNoCurrent();
    }
    DropChange();
    StepOver(1);
}

void RecordSet::Impl::MovePrevious() {
    if (Bof()) {
        ThrowNoCurrent();
    }
    DropChange();
    StepOver(-1);
}

int RecordSet::Impl::Position(std::string_view name) const {
    const auto& names = m_query->FieldNames;
    const auto field = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& each) { return SameName(each, name); });
    if (field == names.end()) {
        throw RunTimeError(ErrorKind::FieldNotFound,
                           "The record set has no field " + std::string(name) + ".");
    }
    return static_cast<int>(field - names.begin());
}

const std::string& RecordSet::Impl::FieldTitle(int position) const {
    return m_query->FieldTitles[static_cast<std::size_t>(position)];
}

const Value& RecordSet::Impl::Field(int position) {
    RequireCurrent();
    const std::size_t columns = m_query->FieldNames.size();
    if (position < 0 || static_cast<std::size_t>(position) >= columns) {
        throw RunTimeError(ErrorKind::FieldNotFound,
                           "The record set has no field number " + NumberText(position) + ".");
    }
    return m_rows
        ->Values[static_cast<std::size_t>(m_at) * columns + static_cast<std::size_t>(position)];
}

double RecordSet::Impl::Number(int position) {
    const Value& value = Field(position);
    if (const auto* real = std::get_if<double>(&value)) {
        return *real;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return static_cast<double>(*whole);
    }
    if (IsNull(value)) {
        throw RunTimeError(ErrorKind::InvalidUseOfNull,
                           FieldTitle(position) + " is empty. Enter a number there.");
    }
    return TextToDouble(std::get<std::string>(value), FieldTitle(position));
}

std::int16_t RecordSet::Impl::Integer(int position) {
    const double number = Number(position);
    const auto integer = static_cast<std::int16_t>(std::clamp(number, -32768.0, 32767.0));
    return static_cast<double>(integer) == number ? integer
                                                  : ToInteger(number, FieldTitle(position));
}

float RecordSet::Impl::Single(int position) {
    const double number = Number(position);
    const auto single = static_cast<float>(number);
    return static_cast<double>(single) == number ? single : ToSingle(number, FieldTitle(position));
}

std::string RecordSet::Impl::Text(int position) {
    const Value text = ConvertTo(FieldType::Text, Field(position), {});
    return IsNull(text) ? std::string() : std::get<std::string>(text);
}

void RecordSet::Impl::RequireUpdatable() {
    Store();
    if (TableName().empty()) {
        throw RunTimeError(ErrorKind::ReadOnlyRecordSet, "The record set cannot be changed.");
    }
}

void RecordSet::Impl::DropChange() {
    m_change = Change::None;
    m_fields.clear();
}

void RecordSet::Impl::Edit() {
    RequireUpdatable();
    RequireCurrent();
    DropChange();
    m_change = Change::Edit;
}

void RecordSet::Impl::AddNew() {
    RequireUpdatable();
    DropChange();
    m_change = Change::Add;
}

void RecordSet::Impl::Set(std::string_view name, const Value& value) {
    const int position = Position(name);
    if (m_change == Change::None) {
        throw RunTimeError(ErrorKind::UpdateWithoutEdit,
                           FieldTitle(position) + " was set without Edit or AddNew.");
    }
    const FieldType type = m_query->FieldTypes[static_cast<std::size_t>(position)];
    Value converted = ConvertTo(type, value, FieldTitle(position));
    const auto earlier = std::find_if(m_fields.begin(), m_fields.end(),
                                      [&](const auto& field) { return field.first == position; });
    if (earlier != m_fields.end()) {
        earlier->second = std::move(converted);
    } else {
        m_fields.emplace_back(position, std::move(converted));
    }
}

void RecordSet::Impl::Update() {
    RequireUpdatable();
    switch (m_change) {
        case Change::None:
            throw RunTimeError(ErrorKind::UpdateWithoutEdit,
                               "Table " + TableName() + ": Update without Edit or AddNew.");
        case Change::Edit:
            WriteEdit();
            break;
        case Change::Add:
            WriteNew();
            break;
    }
    DropChange();
}

void RecordSet::Impl::WriteEdit() {
    RequireCurrent();
    const auto row = static_cast<std::size_t>(m_at);
    const std::int64_t id = m_rows->Ids[row];
    if (!m_fields.empty()) {
        std::string sql = "UPDATE " + TableName() + " SET ";
        std::vector<Value> values;
        values.reserve(m_fields.size() + 1);
        for (const auto& [field, value] : m_fields) {
            sql += (values.empty() ? "\"" : ",\"") +
                   m_query->FieldNames[static_cast<std::size_t>(field)] + "\"=?";
            values.push_back(value);
        }
        values.emplace_back(id);
        if (Store().Change(sql + " WHERE rowid=?", values, *m_query->Table, this) == 0) {
            ThrowNoCurrent();
        }
    }
    const std::size_t columns = m_query->FieldNames.size();
    Rows& rows = OwnRows();
    for (auto& [field, value] : m_fields) {
        rows.Values[row * columns + static_cast<std::size_t>(field)] = std::move(value);
    }
    m_lastModified = id;
}

void RecordSet::Impl::WriteNew() {
    std::string names;
    std::string marks;
    std::vector<Value> values;
    values.reserve(m_fields.size());
    for (const auto& [field, value] : m_fields) {
        names += (values.empty() ? "\"" : ",\"") +
                 m_query->FieldNames[static_cast<std::size_t>(field)] + "\"";
        marks += values.empty() ? "?" : ",?";
        values.push_back(value);
    }
    const std::string sql = "INSERT INTO " + TableName() +
                            (values.empty() ? std::string(" DEFAULT VALUES")
                                            : " (" + names + ") VALUES (" + marks + ")");
    Store().Change(sql, values, *m_query->Table, this);
    m_lastModified = Store().LastInsertedId();
    if (m_fetched) {
        AppendRow(*m_lastModified);
    } else if (!m_firstAdded) {
        m_firstAdded = m_lastModified;
    }
}

void RecordSet::Impl::AppendRow(std::int64_t id) {
    std::string fields;
    for (const std::string& name : m_query->FieldNames) {
        fields += (fields.empty() ? "\"" : ",\"") + name + "\"";
    }
    std::vector<Value> literals;
    Query& query = Store().Prepare(
        "SELECT " + fields + " FROM " + TableName() + " WHERE rowid = " + NumberText(id), literals);
    const bool was_at_end = Eof();
    const auto added = Store().Fetch(query, literals);
    Rows& rows = OwnRows();
    rows.Values.insert(rows.Values.end(), added->Values.begin(), added->Values.end());
    rows.Ids.push_back(id);
    ++rows.Count;
    ++m_live;
    if (was_at_end) {
        m_at = static_cast<std::ptrdiff_t>(m_rows->Count);
    }
}

void RecordSet::Impl::Delete() {
    RequireUpdatable();
    RequireCurrent();
    DropChange();
    const auto row = static_cast<std::size_t>(m_at);
    const std::vector<Value> id = {m_rows->Ids[row]};
    Store().Change("DELETE FROM " + TableName() + " WHERE rowid=?", id, *m_query->Table, this);
    if (m_deleted.size() <= row) {
        m_deleted.resize(m_rows->Count);
    }
    m_deleted[row] = true;
    --m_live;
}

std::ptrdiff_t RecordSet::Impl::RowOf(std::int64_t id) const {
    const auto row = std::find(m_rows->Ids.rbegin(), m_rows->Ids.rend(), id);
    return row == m_rows->Ids.rend() ? -1 : m_rows->Ids.rend() - row - 1;
}

void RecordSet::Impl::MoveToLastModified() {
    Store();
    if (!m_lastModified) {
        ThrowNoCurrent();
    }
    DropChange();
    if (!m_fetched) {
        m_atId = m_lastModified;
        return;
    }
    m_at = OnRow() && m_rows->Ids[static_cast<std::size_t>(m_at)] == *m_lastModified
               ? m_at
               : RowOf(*m_lastModified);
    if (m_at < 0) {
        ThrowNoCurrent();
    }
}

}  // namespace quarnel02
