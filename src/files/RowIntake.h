#pragma once

// Internal to files/: rows of a user's file on their way into our tables, checked and limited.

#include <cstdint>
#include <string>
#include <string_view>

#include "basic/RunTimeError.h"
#include "model/Schema.h"

namespace quarnel02 {

/// What was read from a file so far, so that it can be kept in memory.
class ContentLimit {
  public:
    explicit ContentLimit(std::string_view name) : m_name(name) {}

    /// Throws NotAModel for more than 64 MB in all.
    void Count(const Value& value);

  private:
    std::string m_name;
    std::size_t m_bytes = 0;
};

/// A value of a user's file as the field of ours holds it. Throws RunTimeError for one that the
/// field cannot hold, or only rounded.
Value FieldFrom(const Value& value, const ColumnSchema& column);

/// The rows of one table.
class RowIntake {
  public:
    RowIntake(std::string_view name, const TableSchema& table, ContentLimit& content)
        : m_name(name), m_table(table.Name), m_content(content) {}

    /// Throws NotAModel for more rows than a table of a model has.
    void StartRow();
    [[nodiscard]] std::int64_t Rows() const { return m_rows; }

    /// Counts and gives what `read` gives. Throws NotAModel in the name of row and table for what
    /// `read` throws.
    template <class Read>
    Value Take(Read read) {
        Value value = Named(read);
        m_content.Count(value);
        return value;
    }

  private:
    template <class Read>
    [[nodiscard]] Value Named(Read read) const {
        try {
            return read();
        } catch (const RunTimeError& error) {
            Refuse(error.what());
        }
    }
    [[noreturn]] void Refuse(const std::string& why) const;

    std::string m_name;
    std::string m_table;
    ContentLimit& m_content;
    std::int64_t m_rows = 0;
};

}  // namespace quarnel02
