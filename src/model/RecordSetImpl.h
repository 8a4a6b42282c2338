#pragma once

// Internal to model/: rows, position and pending change of one record set.

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Connection.h"
#include "model/RecordSet.h"

namespace quarnel02 {

class RecordSet::Impl final : public UnfetchedSet {
  public:
    Impl(std::shared_ptr<Session> session, std::string_view sql);
    ~Impl() override;
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    Impl(Impl&&) = delete;
    Impl& operator=(Impl&&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_session->Store != nullptr; }

    int RecordCount();
    bool Eof();
    bool Bof();
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    [[nodiscard]] int Position(std::string_view name) const;
    const Value& Field(int position);
    std::int16_t Integer(int position);
    double Number(int position);
    float Single(int position);
    std::string Text(int position);

    void Edit();
    void AddNew();
    void Set(std::string_view name, const Value& value);
    void Update();
    void Delete();
    void MoveToLastModified();

    [[nodiscard]] const TableUse* Table() const override { return m_query->Table; }
    void FetchNow() override;

  private:
    enum class Change { None, Edit, Add };

    static const std::shared_ptr<Rows>& NoRows();

    Connection& Store();
    [[nodiscard]] const std::string& TableName() const { return m_query->Shape.Table; }
    void Fetch();
    Rows& OwnRows();
    void RequireCurrent();
    void RequireUpdatable();
    [[nodiscard]] bool OnRow() const;
    void StepOver(std::ptrdiff_t step);
    [[nodiscard]] std::ptrdiff_t RowOf(std::int64_t id) const;
    void DropChange();
    void WriteEdit();
    void WriteNew();
    void AppendRow(std::int64_t id);
    [[nodiscard]] const std::string& FieldTitle(int position) const;
    [[noreturn]] void ThrowNoCurrent() const;

    std::shared_ptr<Session> m_session;
    std::weak_ptr<Connection> m_connection;  ///< outlives the session when other handles share it
    Query* m_query = nullptr;                ///< lives as long as the connection
    std::vector<Value> m_literals;

    bool m_fetched = false;
    std::shared_ptr<Rows> m_rows = NoRows();  ///< may be shared until this set changes them
    std::vector<bool> m_deleted;              ///< by row; rows behind its end are not deleted
    std::ptrdiff_t m_live = 0;
    std::ptrdiff_t m_at = 0;                   ///< row number; -1 is Bof, the number of rows is Eof
    std::optional<std::int64_t> m_atId;        ///< row to stand on once the rows are fetched
    std::optional<std::int64_t> m_firstAdded;  ///< first row added before the rows were fetched
    std::optional<std::int64_t> m_lastModified;

    Change m_change = Change::None;
    std::vector<std::pair<int, Value>> m_fields;  ///< what Set has set
};

}  // namespace quarnel02
