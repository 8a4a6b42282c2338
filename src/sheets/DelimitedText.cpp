#include "sheets/DelimitedText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quarnel02 {

namespace {

constexpr char kQuote = '"';
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Walks the cells of a text with a separator.
class CellReader {
  public:
    CellReader(std::string_view text, char separator)
        : m_rest(text), m_ends({separator, '\n', '\r'}) {}

    [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }

    /// The next cell, and what stands behind it.
    CsvCell Next();
    /// Whether the cell that was read last is the last one of its row.
    [[nodiscard]] bool EndsRow() const { return m_endsRow; }

  private:
    [[nodiscard]] std::optional<std::size_t> ClosingQuote() const;
    void PassDelimiter();

    std::string_view m_rest;
    std::array<char, 3> m_ends;
    bool m_endsRow = false;
};

/// Place of the quote that closes the quoted cell at the front; nothing where the cell is not
/// wholly quoted.
std::optional<std::size_t> CellReader::ClosingQuote() const {
    for (std::size_t place = m_rest.find(kQuote, 1); place != std::string_view::npos;
         place = m_rest.find(kQuote, place + 2)) {
        if (place + 1 == m_rest.size() ||
            std::count(m_ends.begin(), m_ends.end(), m_rest[place + 1]) > 0) {
            return place;
        }
        if (m_rest[place + 1] != kQuote) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

void CellReader::PassDelimiter() {
    m_endsRow = m_rest.empty() || m_rest.front() != m_ends.front();
    const bool pair = m_rest.starts_with("\r\n");
    m_rest.remove_prefix(std::min<std::size_t>(m_rest.size(), pair ? 2 : 1));
}

std::string Unquoted(std::string_view text) {
    std::string plain;
    for (std::size_t place = 0; place < text.size(); ++place) {
        plain += text[place];
        place += text[place] == kQuote ? 1U : 0U;
    }
    return plain;
}

CsvCell CellReader::Next() {
    CsvCell cell;
    const auto closing = m_rest.starts_with(kQuote) ? ClosingQuote() : std::nullopt;
    if (closing) {
        cell = Unquoted(m_rest.substr(1, *closing - 1));
        m_rest.remove_prefix(*closing + 1);
    } else {
        const std::size_t length =
            std::min(m_rest.find_first_of({m_ends.data(), m_ends.size()}), m_rest.size());
        if (length > 0) {
            cell = std::string(m_rest.substr(0, length));
        }
        m_rest.remove_prefix(length);
    }
    PassDelimiter();
    return cell;
}

CsvRows ReadCells(std::string_view text, char separator) {
    CsvRows rows;
    CellReader reader(text, separator);
    bool row_ended = true;
    while (!reader.AtEnd() || !row_ended) {
        if (row_ended) {
            rows.emplace_back();
        }
        rows.back().push_back(reader.Next());
        row_ended = reader.EndsRow();
    }
    return rows;
}

std::string Quoted(std::string_view text) {
    std::string quoted(1, kQuote);
    for (const char c : text) {
        quoted.append(c == kQuote ? 2 : 1, c);
    }
    return quoted + kQuote;
}

std::string TabbedCell(const std::string& text) {
    const bool plain =
        !text.starts_with(kQuote) && text.find_first_of("\t\r\n") == std::string::npos;
    return plain ? text : Quoted(text);
}

std::string CsvText(const CsvCell& cell) {
    if (!cell) {
        return {};
    }
    const bool plain = !cell->empty() && cell->find_first_of(",;\t\r\n\"") == std::string::npos &&
                       cell->front() != ' ' && cell->back() != ' ' &&
                       !cell->starts_with(kByteOrderMark);
    return plain ? *cell : Quoted(*cell);
}

template <class Rows, class ToText>
std::string Joined(const Rows& rows, char separator, const ToText& toText) {
    std::string text;
    for (const auto& row : rows) {
        bool first = true;
        for (const auto& cell : row) {
            if (!std::exchange(first, false)) {
                text += separator;
            }
            text += toText(cell);
        }
        text += '\n';
    }
    return text;
}

/// The unquoted separators of the first line, in their order.
std::string SeparatorsIn(std::string_view text) {
    std::string found;
    bool quoted = false;
    for (const char c : text) {
        if (!quoted && (c == '\n' || c == '\r')) {
            break;
        }
        quoted = quoted != (c == kQuote);
        if (!quoted && (c == ',' || c == ';' || c == '\t')) {
            found += c;
        }
    }
    return found;
}

/// Of those that stand equally often, the first.
char SeparatorOf(std::string_view text) {
    constexpr std::string_view separators = ",;\t";
    const std::string found = SeparatorsIn(text);
    const auto rank = [&](char c) {
        return std::pair(std::count(found.begin(), found.end(), c),
                         -static_cast<std::ptrdiff_t>(found.find(c)));
    };
    return *std::max_element(separators.begin(), separators.end(),
                             [&](char a, char b) { return rank(a) < rank(b); });
}

}  // namespace

TextBlock ReadTabbed(std::string_view text) {
    TextBlock block;
    for (auto& row : ReadCells(text, '\t')) {
        auto& texts = block.emplace_back();
        for (CsvCell& cell : row) {
            texts.push_back(std::move(cell).value_or(""));
        }
    }
    return block;
}

std::size_t MostCellsIn(std::string_view text) {
    std::size_t cells = 0;
    char last = '\n';
    for (const char c : text) {
        const bool pair = last == '\r' && c == '\n';
        cells += c == '\t' || c == '\r' || (c == '\n' && !pair) ? 1U : 0U;
        last = c;
    }
    return cells + (last == '\n' || last == '\r' ? 0U : 1U);
}

std::string WriteTabbed(const TextBlock& block) {
    return Joined(block, '\t', TabbedCell);
}

CsvRows ReadCsv(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    return ReadCells(text, SeparatorOf(text));
}

std::string WriteCsv(const CsvRows& rows) {
    return Joined(rows, ',', CsvText);
}

}  // namespace quarnel02
