// Files of which a byte is wrong, or the end is missing, give all rows or a message.

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

#include "basic/RunTimeError.h"
#include "jet/RandomModel.h"
#include "jet/ReadTables.h"
#include "jet/TinyOfEverything.h"

namespace quarnel02::jet {
namespace {

/// Rows of all tables; nothing for a message, which is one to show.
std::optional<std::size_t> RowsRead(std::string content) {
    try {
        Reader reader(FileContent{std::move(content)}, "line.mdb");
        std::size_t rows = 0;
        for (const DatabaseObject& object : reader.Objects()) {
            rows +=
                object.Kind == ObjectKind::Table ? ReadWhole(reader, object.Name).Rows.size() : 0;
        }
        return rows;
    } catch (const RunTimeError& error) {
        const std::string message = error.what();
        EXPECT_EQ(error.Kind(), ErrorKind::NotAModel);
        EXPECT_TRUE(message.starts_with("line.mdb ") && message.ends_with('.')) << message;
        return {};
    }
}

/// Flips the bytes for which `chosen` holds, one at a time, and returns how many flips gave a
/// message. No flip takes single rows away: only an entry of the catalogue may, with its table.
template <class Chosen>
std::size_t FlipsNoticed(std::string content, std::size_t rowsOfTable, Chosen chosen) {
    std::size_t noticed = 0;
    const std::size_t all = RowsRead(content).value();
    for (char& byte : content) {
        const char right = byte;
        if (!chosen(right)) {
            continue;
        }
        byte = static_cast<char>(~right);
        const auto rows = RowsRead(content);
        noticed += rows ? 0U : 1U;
        EXPECT_TRUE(!rows || (all - *rows) % rowsOfTable == 0)
            << *rows << " rows with a flip at " << &byte - content.data();
        byte = right;
    }
    return noticed;
}

std::string SmallModel() {
    const NewTable table{"Tasks",
                         {{"TaskId", ColumnType::LongInteger}, {"Description", ColumnType::Text}},
                         {{std::int64_t{1}, "Insert"}, {std::int64_t{2}, "Füge"}}};
    return Written({table});
}

TEST(DamageTest, EveryByteFlippedOnce) {
    constexpr std::size_t rows = 4;
    for (const unsigned version : {0U, 1U}) {
        const std::string content = SmallEverythingFile(version).Content();
        EXPECT_EQ(RowsRead(content), rows);
        EXPECT_GT(FlipsNoticed(content, rows, [](char /*byte*/) { return true; }), 200U);
    }
}

TEST(DamageTest, EveryByteOfAWrittenFileThatIsNotZeroFlippedOnce) {
    EXPECT_GT(FlipsNoticed(SmallModel(), 2, [](char byte) { return byte != '\0'; }), 150U);
}

TEST(DamageTest, TruncatedAtEveryLength) {
    for (const unsigned version : {0U, 1U}) {
        const std::string content = SmallEverythingFile(version).Content();
        for (std::size_t length = 0; length < content.size(); ++length) {
            EXPECT_FALSE(RowsRead(content.substr(0, length))) << length;
        }
    }
}

TEST(DamageTest, AWrittenFileTruncatedAnywhere) {
    constexpr std::size_t step = 61;
    const std::string content = SmallModel();
    for (std::size_t length = 0; length < content.size(); length += step) {
        EXPECT_FALSE(RowsRead(content.substr(0, length))) << length;
    }
}

}  // namespace
}  // namespace quarnel02::jet
