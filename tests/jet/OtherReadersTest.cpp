// What our reader and writer hold to be a file, other readers hold to be one too. Debian's mdbtools
// is installed by scripts/setup. npm's mdb-reader is found where NODE_PATH points.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "basic/Files.h"
#include "jet/RandomModel.h"
#include "jet/ReadTables.h"
#include "jet/TinyOfEverything.h"

namespace quarnel02::jet {
namespace {

namespace fs = std::filesystem;

constexpr int kNotInstalled = 3;
constexpr int kNoCommand = 127;

using Fields = std::vector<std::vector<std::string>>;

struct Output {
    int Status = 0;
    std::string Text;
};

Output OutputOf(const std::string& command) {
    Output output;
    FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::array<char, 65536> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        output.Text.append(buffer.data(), count);
    }
    output.Status = WEXITSTATUS(pclose(pipe));
    return output;
}

std::vector<std::string> Split(const std::string& text, char end) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next = std::min(text.find(end, at), text.size());
        parts.push_back(text.substr(at, next - at));
        at = next + 1;
    }
    return parts;
}

std::string Quoted(const fs::path& path) {
    return " '" + path.string() + "' ";
}

/// Another program that reads tables.
class OtherReader {
  public:
    virtual ~OtherReader() = default;
    [[nodiscard]] virtual bool IsInstalled() const = 0;
    /// Prints them: fields end with 0x1F, rows with 0x1E, tables with 0x1D.
    [[nodiscard]] virtual std::string Command(const fs::path& file,
                                              const std::vector<std::string>& tables) const = 0;
    [[nodiscard]] virtual bool Reads(const Column& column) const = 0;
    [[nodiscard]] virtual bool Agrees(const Column& column, const Value& value,
                                      const std::string& text) const = 0;

  protected:
    static bool IsNear(double one, double other, double share) {
        return std::abs(one - other) <= share * std::max(std::abs(one), std::abs(other));
    }
};

class MdbTools : public OtherReader {
  public:
    bool IsInstalled() const override {
        return OutputOf("mdb-export --version").Status != kNoCommand;
    }
    std::string Command(const fs::path& file,
                        const std::vector<std::string>& tables) const override {
        std::string command = "{ true";
        for (const std::string& table : tables) {
            command += " && mdb-export -H -Q -d '\x1f' -R '\x1f\x1e'" + Quoted(file) + table +
                       " && printf '\x1d'";
        }
        return command + "; }";
    }
    bool Reads(const Column& column) const override {
        return column.Type != ColumnType::Guid && column.Type != ColumnType::DateTime;
    }
    /// It prints real numbers rounded, and Null like an empty text.
    bool Agrees(const Column& column, const Value& value, const std::string& text) const override {
        if (const auto* held = std::get_if<std::string>(&value)) {
            return text == *held;
        }
        if (const auto* whole = std::get_if<std::int64_t>(&value)) {
            return text == std::to_string(column.Type == ColumnType::YesNo ? -*whole : *whole);
        }
        if (const auto* real = std::get_if<double>(&value)) {
            const bool single = column.Type == ColumnType::Single;
            return !text.empty() &&
                   IsNear(std::strtod(text.c_str(), nullptr), *real, single ? 1e-6 : 1e-15);
        }
        return text.empty();
    }
};

class MdbReader : public OtherReader {
  public:
    bool IsInstalled() const override {
        const int status = OutputOf(Command("", {})).Status;
        return status != kNotInstalled && status != kNoCommand;
    }
    std::string Command(const fs::path& file,
                        const std::vector<std::string>& tables) const override {
        std::string command = "node '" QUARNEL02_FIXTURES "/../jet/mdb_reader.cjs'" + Quoted(file);
        for (const std::string& table : tables) {
            command += " " + table;
        }
        return command;
    }
    /// It takes the decimal places of Access 97, which never made such a column, from elsewhere.
    bool Reads(const Column& column) const override {
        return column.Type != ColumnType::Guid && column.Type != ColumnType::DateTime &&
               column.Type != ColumnType::Decimal;
    }
    bool Agrees(const Column& column, const Value& value, const std::string& text) const override {
        if (const auto* held = std::get_if<std::string>(&value)) {
            return text == "t" + *held;
        }
        if (const auto* whole = std::get_if<std::int64_t>(&value)) {
            return text == std::to_string(column.Type == ColumnType::YesNo ? -*whole : *whole);
        }
        if (const auto* real = std::get_if<double>(&value)) {
            return std::strtod(text.c_str(), nullptr) == *real;
        }
        return text == "n";
    }
};

class OtherReadersTest : public testing::TestWithParam<std::shared_ptr<const OtherReader>> {
  protected:
    void SetUp() override {
        if (!GetParam()->IsInstalled()) {
            GTEST_SKIP() << "This reader is not installed.";
        }
    }

    void ExpectAgreement(const fs::path& path) {
        SCOPED_TRACE(path.string());
        Reader reader(path, "line.mdb");
        std::vector<std::string> names;
        for (const DatabaseObject& object : reader.Objects()) {
            if (object.Kind == ObjectKind::Table) {
                names.push_back(object.Name);
            }
        }
        const Output output = OutputOf(GetParam()->Command(path, names));
        ASSERT_EQ(output.Status, 0);
        const auto tables = Split(output.Text, '\x1d');
        ASSERT_EQ(tables.size(), names.size());
        for (std::size_t i = 0; i < names.size(); ++i) {
            SCOPED_TRACE(names[i]);
            ExpectAgreement(ReadWhole(reader, names[i]), FieldsOf(tables[i]));
        }
    }

    void ExpectAgreementOn(const std::string& content) {
        const fs::path path = m_directory.Path() / "line.mdb";
        WriteFile(path, content);
        ExpectAgreement(path);
    }

  private:
    static Fields FieldsOf(const std::string& table) {
        Fields fields;
        for (const std::string& row : Split(table, '\x1e')) {
            fields.push_back(Split(row, '\x1f'));
        }
        return fields;
    }

    /// Others read a row that was moved where it stands now.
    static void Sort(ReadTable& table, Fields& fields) {
        std::stable_sort(table.Rows.begin(), table.Rows.end(), [](auto& one, auto& other) {
            return std::get<std::int64_t>(one[0]) < std::get<std::int64_t>(other[0]);
        });
        std::stable_sort(fields.begin(), fields.end(), [](auto& one, auto& other) {
            return std::stoll(one[0]) < std::stoll(other[0]);
        });
    }

    static void ExpectAgreement(ReadTable table, Fields fields) {
        ASSERT_EQ(fields.size(), table.Rows.size());
        const bool numbered = std::all_of(table.Rows.begin(), table.Rows.end(), [](auto& row) {
            return std::holds_alternative<std::int64_t>(row[0]);
        });
        if (numbered) {
            Sort(table, fields);
        }
        for (std::size_t i = 0; i < fields.size(); ++i) {
            ASSERT_EQ(fields[i].size(), table.Columns.size());
            for (std::size_t j = 0; j < fields[i].size(); ++j) {
                const Column& column = table.Columns[j];
                EXPECT_TRUE(!GetParam()->Reads(column) ||
                            GetParam()->Agrees(column, table.Rows[i][j], fields[i][j]))
                    << column.Name << ": " << TextOf({{table.Rows[i][j]}}) << fields[i][j];
            }
        }
    }

    TemporaryDirectory m_directory;
};

INSTANTIATE_TEST_SUITE_P(Tools, OtherReadersTest,
                         testing::Values(std::make_shared<const MdbTools>(),
                                         std::make_shared<const MdbReader>()),
                         [](const auto& test) {
                             return test.index == 0 ? "MdbTools" : "MdbReader";
                         });

TEST_P(OtherReadersTest, AgreeOnFixtures) {
    for (const auto& file : fs::directory_iterator(QUARNEL02_FIXTURES "/jet")) {
        if (file.path().extension() == ".mdb") {
            ExpectAgreement(file.path());
        }
    }
}

TEST_P(OtherReadersTest, AgreeOnEveryTypeOfEveryFormat) {
    for (const unsigned version : {0U, 1U, 2U}) {
        ExpectAgreementOn(EverythingFile(version).Content());
    }
}

TEST_P(OtherReadersTest, AgreeOnWrittenModels) {
    std::mt19937 random(11);
    for (const auto& [tasks, resources] : {std::pair(0, 0), {1, 1}, {5, 3}, {12, 6}}) {
        ExpectAgreementOn(Written(RandomModel(tasks, resources, random)));
    }
}

TEST_P(OtherReadersTest, AgreeOnTheLargestModel) {
    std::mt19937 random(12);
    ExpectAgreementOn(Written(RandomModel(50, 25, random)));
}

}  // namespace
}  // namespace quarnel02::jet
