#include "model/Selection.h"

#include <algorithm>
#include <cctype>

#include "model/Schema.h"
#include "model/SqlText.h"

namespace quarnel02 {

namespace {

/// Reads tokens from left to right; every Take moves on only when it succeeds.
class Reader {
  public:
    explicit Reader(std::string_view sql) : m_tokens(Tokens(sql)) {}

    [[nodiscard]] bool AtEnd() const { return m_at == m_tokens.size(); }

    bool Take(std::string_view word) {
        if (AtEnd() || !SameName(m_tokens[m_at], word)) {
            return false;
        }
        ++m_at;
        return true;
    }

    bool TakeName(std::string& name) {
        if (AtEnd() || std::isalpha(static_cast<unsigned char>(m_tokens[m_at].front())) == 0) {
            return false;
        }
        name = m_tokens[m_at++];
        return true;
    }

    bool TakeLiteral(std::size_t& literal) {
        if (!Take("?")) {
            return false;
        }
        literal = m_literals++;
        return true;
    }

    bool TakeNames(std::vector<std::string>& names) {
        do {
            if (!TakeName(names.emplace_back())) {
                return false;
            }
        } while (Take(","));
        return true;
    }

    /// Conditions joined by AND, with or without brackets.
    bool TakeConditions(std::vector<Condition>& conditions) {
        do {
            if (Take("(")) {
                if (!TakeConditions(conditions) || !Take(")")) {
                    return false;
                }
            } else if (!TakeCondition(conditions)) {
                return false;
            }
        } while (Take("AND"));
        return true;
    }

  private:
    bool TakeCondition(std::vector<Condition>& conditions) {
        Condition condition{};
        if (!TakeName(condition.Column)) {
            return false;
        }
        bool complete = false;
        if (Take("=")) {
            complete = TakeLiteral(condition.LowLiteral);
            condition.HighLiteral = condition.LowLiteral;
        } else if (Take("BETWEEN")) {
            complete = TakeLiteral(condition.LowLiteral) && Take("AND") &&
                       TakeLiteral(condition.HighLiteral);
        }
        conditions.push_back(condition);
        return complete;
    }

    std::vector<std::string_view> m_tokens;
    std::size_t m_at = 0;
    std::size_t m_literals = 0;
};

}  // namespace

std::optional<Selection> ReadSelection(std::string_view sql) {
    Reader reader(sql);
    Selection selection;
    std::string table;
    const bool understood =
        reader.Take("SELECT") && (reader.Take("*") || reader.TakeNames(selection.Columns)) &&
        reader.Take("FROM") && reader.TakeName(table) &&
        (!reader.Take("WHERE") || reader.TakeConditions(selection.Conditions)) &&
        (!reader.Take("ORDER") || (reader.Take("BY") && reader.TakeNames(selection.Order))) &&
        reader.AtEnd();
    return understood ? std::optional(selection) : std::nullopt;
}

}  // namespace quarnel02
