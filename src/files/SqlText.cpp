#include "files/SqlText.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "basic/Files.h"
#include "basic/Limits.h"
#include "basic/ScopeGuard.h"
#include "files/Defences.h"
#include "files/ModelChecks.h"
#include "files/ModelImage.h"
#include "files/ReadModel.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

/// What SQL text may do: change rows, and compute what it puts into them.
int Authorize(void* /*context*/, int action, const char* /*table*/, const char* /*detail*/,
              const char* /*database*/, const char* /*trigger*/) {
    switch (action) {
        case SQLITE_INSERT:
        case SQLITE_UPDATE:
        case SQLITE_DELETE:
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_FUNCTION:
        case SQLITE_RECURSIVE:
        case SQLITE_TRANSACTION:
            return SQLITE_OK;
        default:
            return SQLITE_DENY;
    }
}

/// Runs the statements of one text in a model's tables.
class Script {
  public:
    Script(sqlite3* database, const std::string& text, std::string_view name)
        : m_database(database), m_text(text), m_name(name), m_limit(database) {
        constexpr int longest = 16 << 20;
        sqlite3_limit(database, SQLITE_LIMIT_LENGTH, longest);
        sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
        sqlite3_exec(database, "PRAGMA max_page_count = 32768", nullptr, nullptr, nullptr);
        sqlite3_set_authorizer(database, Authorize, nullptr);
    }

    void Run() {
        int statements = 0;
        while (m_at < m_text.size()) {
            statements += RunNext() ? 1 : 0;
        }
        if (statements == 0) {
            RefuseFile(m_name, "holds no SQL statement.", "Choose another file.");
        }
        if (sqlite3_get_autocommit(m_database) == 0) {
            sqlite3_exec(m_database, "COMMIT", nullptr, nullptr, nullptr);
        }
    }

  private:
    /// False for a comment or a blank.
    bool RunNext() {
        const char* const start = m_text.c_str() + m_at;
        const char* end = nullptr;
        sqlite3_stmt* statement = nullptr;
        const int failure = sqlite3_prepare_v2(m_database, start, -1, &statement, &end);
        if (failure != SQLITE_OK) {
            const int offset = sqlite3_error_offset(m_database);
            Refuse(failure, offset < 0 ? LeadingBlanks(start) : offset);
        }
        const bool is_statement = statement != nullptr;
        int result = SQLITE_DONE;
        while (is_statement && (result = sqlite3_step(statement)) == SQLITE_ROW) {
        }
        sqlite3_finalize(statement);
        if (result != SQLITE_DONE) {
            Refuse(result, LeadingBlanks(start));
        }
        m_at = end == start ? m_text.size() : static_cast<std::size_t>(end - m_text.c_str());
        return is_statement;
    }

    static int LeadingBlanks(const char* start) {
        int blanks = 0;
        while (start[blanks] == ' ' || start[blanks] == '\n' || start[blanks] == '\r') {
            ++blanks;
        }
        return blanks;
    }

    [[noreturn]] void Refuse(int failure, int offset) const {
        const auto end = m_text.begin() + static_cast<std::ptrdiff_t>(m_at) +
                         static_cast<std::ptrdiff_t>(offset);
        const auto line = 1 + std::count(m_text.begin(), end, '\n');
        RefuseFile(m_name, "cannot be run: line " + std::to_string(line) + ": " + Reason(failure),
                   "Correct it there.");
    }

    [[nodiscard]] std::string Reason(int failure) const {
        switch (failure) {
            case SQLITE_AUTH:
                return "only INSERT, UPDATE and DELETE on the tables of a model are run.";
            case SQLITE_INTERRUPT:
                return "the statements take too long.";
            case SQLITE_NOMEM:
                return "the statement asks for more memory than a model does.";
            case SQLITE_FULL:
                return "the statements make more rows than a model has.";
            default:
                return std::string(sqlite3_errmsg(m_database)) + ".";
        }
    }

    sqlite3* m_database;
    const std::string& m_text;
    std::string m_name;
    std::size_t m_at = 0;
    WorkLimit m_limit;
};

std::string ScriptIn(const fs::path& source, std::string_view name) {
    RequireOrdinaryFile(source, name);
    if (fs::file_size(source) > limits::kSqlFile) {
        RefuseFile(name, "is larger than 64 MB, which no model is.");
    }
    std::string text = ReadFile(source);
    if (text.find('\0') != std::string::npos) {
        RefuseFile(name, "is not SQL text.", "Choose another file.");
    }
    return text;
}

struct SqlLiteral {
    std::string operator()(std::monostate /*null*/) const { return "NULL"; }
    std::string operator()(std::int64_t whole) const { return std::to_string(whole); }
    std::string operator()(double real) const {
        std::array<char, 32> text{};
        const auto written = std::to_chars(text.data(), text.data() + text.size(), real);
        return {text.data(), written.ptr};
    }
    std::string operator()(const std::string& text) const {
        std::string literal = "'";
        for (const char letter : text) {
            literal += letter == '\'' ? "''" : std::string(1, letter);
        }
        return literal + "'";
    }
};

std::string UpdateOf(const TableSchema& table, const std::vector<Value>& row) {
    std::string text = "UPDATE " + std::string(table.Name) + " SET ";
    for (std::size_t i = 0; i < row.size(); ++i) {
        text += (i == 0 ? "" : ", ") + std::string(table.Columns[i].Name) + " = " +
                std::visit(SqlLiteral(), row[i]);
    }
    return text + ";\n";
}

std::string LineOf(const std::vector<Value>& row) {
    std::string text = "    (";
    for (std::size_t i = 0; i < row.size(); ++i) {
        text += (i == 0 ? "" : ", ") + std::visit(SqlLiteral(), row[i]);
    }
    return text + ")";
}

std::string TextOf(const ModelImage& image, const TableSchema& table) {
    std::string text;
    image.ReadRows(table, [&](const std::vector<Value>& row) {
        if (table.Name == "Gen") {
            text += UpdateOf(table, row);
            return;
        }
        text += text.empty() ? "\nINSERT INTO " + std::string(table.Name) + " VALUES\n" : ",\n";
        text += LineOf(row);
    });
    return text.empty() || table.Name == "Gen" ? text : text + ";\n";
}

}  // namespace

void ReadSqlText(const fs::path& source, const fs::path& workingCopy, std::string_view name) {
    const std::string text = ScriptIn(source, name);
    const MemoryLimit limit;
    ModelImage image;
    Script(image.Handle(), text, name).Run();
    sqlite3_set_authorizer(image.Handle(), nullptr, nullptr);
    sqlite3_progress_handler(image.Handle(), 0, nullptr, nullptr);
    fs::path rows = workingCopy;
    rows += ".rows";
    WritePrivate(rows, image.Content(std::string(name)));
    const ScopeGuard removal([&] {
        std::error_code ignored;
        fs::remove(rows, ignored);
    });
    ReadModel(rows, workingCopy, name);
}

std::string SqlTextOf(const fs::path& workingCopy) {
    const std::string name = PathText(workingCopy);
    RequireOrdinaryFile(workingCopy, name);
    const ModelImage image(workingCopy, name);
    image.RequireWhole(name);
    std::string text = "-- A model of Quarnel02: rows for the tables of an empty one.\n\n";
    for (const char* table : {"Gen", "Tasks", "Resources", "Matrix", "Demand"}) {
        text += TextOf(image, *FindTable(table));
    }
    return text;
}

}  // namespace quarnel02
