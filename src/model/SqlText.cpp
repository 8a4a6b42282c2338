#include "model/SqlText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "model/Schema.h"

namespace quarnel02 {

namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool IsWordCharacter(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// End of the quoted text that starts at `start`.
std::size_t QuotedEnd(std::string_view sql, std::size_t start) {
    const auto close = sql.find(sql[start], start + 1);
    return close == std::string_view::npos ? sql.size() : close + 1;
}

std::size_t WordEnd(std::string_view sql, std::size_t start) {
    while (start < sql.size() && IsWordCharacter(sql[start])) {
        ++start;
    }
    return start;
}

/// Reads the number at the front of `text`; returns its length.
std::size_t ReadNumber(std::string_view text, Value& value) {
    double real = 0;
    const char* const end = text.data() + text.size();
    const char* const stop = std::from_chars(text.data(), end, real).ptr;
    std::int64_t whole = 0;
    const auto [whole_stop, error] = std::from_chars(text.data(), end, whole);
    if (whole_stop == stop && error == std::errc()) {
        value = whole;
    } else {
        value = real;
    }
    return static_cast<std::size_t>(stop - text.data());
}

bool IsAggregate(std::string_view word) {
    constexpr std::array<std::string_view, 5> names = {"COUNT", "SUM", "MAX", "MIN", "AVG"};
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return SameName(name, word); });
}

}  // namespace

std::vector<std::string_view> Tokens(std::string_view sql) {
    std::vector<std::string_view> tokens;
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        if (IsBlank(c)) {
            ++at;
            continue;
        }
        std::size_t end = at + 1;
        if (c == '"' || c == '\'') {
            end = QuotedEnd(sql, at);
        } else if (IsWordCharacter(c)) {
            end = WordEnd(sql, at);
        }
        tokens.push_back(sql.substr(at, end - at));
        at = end;
    }
    if (!tokens.empty() && tokens.back() == ";") {
        tokens.pop_back();
    }
    return tokens;
}

void ParameterizeSql(std::string_view sql, SqlText& result) {
    result.Text.clear();
    result.Literals.clear();
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        std::size_t length = 1;
        if (c == '"' || c == '\'') {
            length = QuotedEnd(sql, at) - at;
        } else if (IsDigit(c) || (c == '.' && at + 1 < sql.size() && IsDigit(sql[at + 1]))) {
            at += ReadNumber(sql.substr(at), result.Literals.emplace_back());
            result.Text += '?';
            continue;
        } else if (IsWordCharacter(c)) {
            length = WordEnd(sql, at) - at;
        }
        result.Text += sql.substr(at, length);
        at += length;
    }
}

SelectShape ShapeOf(std::string_view sql) {
    const auto tokens = Tokens(sql);
    const auto from = std::find_if(tokens.begin(), tokens.end(),
                                   [](std::string_view token) { return SameName(token, "FROM"); });
    if (tokens.size() < 4 || !SameName(tokens[0], "SELECT") || SameName(tokens[1], "DISTINCT") ||
        from == tokens.end() || from + 1 == tokens.end() ||
        std::any_of(tokens.begin(), from, IsAggregate)) {
        return {};
    }
    const auto next = from + 2;
    const bool ends = next == tokens.end();
    if (!ends && !SameName(*next, "WHERE") && !SameName(*next, "ORDER")) {
        return {};
    }
    return {std::string(from[1]), ends && tokens.size() == 4 && tokens[1] == "*"};
}

std::string WithRowId(std::string_view sql) {
    const auto tokens = Tokens(sql);
    const auto select_end = static_cast<std::size_t>(tokens[0].data() - sql.data()) + 6;
    const auto end =
        static_cast<std::size_t>(tokens.back().data() - sql.data()) + tokens.back().size();
    const bool ordered = std::any_of(tokens.begin(), tokens.end(), [](std::string_view token) {
        return SameName(token, "ORDER");
    });
    return "SELECT rowid," + std::string(sql.substr(select_end, end - select_end)) +
           (ordered ? ", rowid" : " ORDER BY rowid");
}

}  // namespace quarnel02
