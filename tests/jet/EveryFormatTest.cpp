#include <gtest/gtest.h>

#include "basic/RunTimeError.h"
#include "jet/ReadTables.h"
#include "jet/TinyOfEverything.h"

namespace quarnel02::jet {
namespace {

/// By the version that a file's first page says.
class EveryFormatTest : public testing::TestWithParam<unsigned> {
  protected:
    [[nodiscard]] static std::string Text(std::string_view ascii) {
        return GetParam() == 0 ? std::string(ascii) : Wide(ascii);
    }
    [[nodiscard]] static std::string ReadBack(const TinyFile& file, std::string_view table) {
        Reader reader(FileContent{file.Content()}, "line.mdb");
        return TextOf(ReadWhole(reader, table).Rows);
    }
    /// A table with one Memo of that field.
    static void AddMemo(TinyFile& file, std::string field) {
        file.Add({"Notes", {{"Id"}, TinyMemo("Note")}, {{{Little(1, 4), std::move(field)}}}});
    }
};

INSTANTIATE_TEST_SUITE_P(Formats, EveryFormatTest, testing::Values(0, 1, 2, 3, 5, 6),
                         [](const auto& test) { return "Version" + std::to_string(test.param); });

std::string Quoted(const std::string& text) {
    return '"' + text + '"';
}

TEST_P(EveryFormatTest, EveryTypeAndKindOfRowIsRead) {
    const std::string nulls = "|0|Null|Null|Null|Null|Null|Null|";
    EXPECT_EQ(ReadBack(EverythingFile(GetParam()), "everything"),
              "1|-1|200|-2|123.4567|33.29999923706055|0.1|\"2004-06-05 18:00:00\"|\"Hello\"|"
              "\"short\"|-123.456|\"{33323130-3534-3736-3839-616263646566}\"|4096\n"
              "2" +
                  nulls + "Null|Null|Null|Null|Null\n" + "3" + nulls + Quoted(DigitText(255)) +
                  "|" + Quoted(DigitText(60)) + "|Null|Null|Null\n" + "4" + nulls +
                  Quoted(DigitText(10)) + "|" + Quoted(DigitText(90)) + "|Null|Null|Null\n");
}

TEST_P(EveryFormatTest, ADefinitionMayFillSeveralPages) {
    std::string expected;
    for (std::size_t i = 0; i < 70; ++i) {
        expected += (i == 0 ? "" : "|") + Quoted(DigitText(i % 9));
    }
    EXPECT_EQ(ReadBack(EverythingFile(GetParam()), "Wide"), expected + "\n");
}

TEST_P(EveryFormatTest, OnlyTheObjectsOfUsersAreListed) {
    const std::vector<DatabaseObject> expected = {{ObjectKind::Table, "Everything"},
                                                  {ObjectKind::Query, "AQuery"},
                                                  {ObjectKind::Form, "AForm"},
                                                  {ObjectKind::LinkedTable, "ALink"},
                                                  {ObjectKind::Table, "Wide"}};
    EXPECT_EQ(Reader(FileContent{EverythingFile(GetParam()).Content()}, "x").Objects(), expected);
}

TEST_P(EveryFormatTest, EveryKindOfObjectIsTold) {
    TinyFile file(GetParam());
    const std::vector<std::pair<int, ObjectKind>> kinds = {
        {4, ObjectKind::LinkedTable},  {5, ObjectKind::Query},       {6, ObjectKind::LinkedTable},
        {8, ObjectKind::Relationship}, {9, ObjectKind::Other},       {-32768, ObjectKind::Form},
        {-32766, ObjectKind::Macro},   {-32764, ObjectKind::Report}, {-32761, ObjectKind::Module},
        {-32756, ObjectKind::Page}};
    std::vector<DatabaseObject> expected;
    for (const auto& [type, kind] : kinds) {
        file.AddObject("Object" + std::to_string(type), type);
        expected.push_back({kind, "Object" + std::to_string(type)});
    }
    for (const int own : {2, 3, -32757, -32758}) {
        file.AddObject("Own", own);
    }
    file.AddObject("MSysNavPaneGroups", 8);
    file.AddObject("~sq_fLine", 5);
    file.AddObject("Hidden", 1, 2);
    EXPECT_EQ(Reader(FileContent{file.Content()}, "x").Objects(), expected);
}

TEST_P(EveryFormatTest, LongRowsOfManyTextsAreTakenApart) {
    TinyFile file(GetParam());
    TinyTable table{"Texts", {{"Id"}}, {{{Little(1, 4)}}}};
    std::string expected = "1";
    const std::size_t longest = GetParam() == 0 ? 120 : 200;  // a row fits in a page
    for (std::size_t i = 0; i < 9; ++i) {
        table.Columns.push_back(TinyText("Text" + std::to_string(i)));
        table.Rows[0].Fields.emplace_back(Text(DigitText(longest + i)));
        expected += "|" + Quoted(DigitText(longest + i));
    }
    file.Add(table);
    EXPECT_EQ(ReadBack(file, "Texts"), expected + "\n");
}

TEST_P(EveryFormatTest, APasswordIsNamed) {
    TinyFile file = EverythingFile(GetParam());
    file.SetPassword("secret");
    const std::string expected =
        "line.mdb is protected by a database password. Open it in Access for exclusive use, unset "
        "the password, and try again.";
    EXPECT_EQ(MessageOfReading(file.Content()), GetParam() <= 1 ? expected : "");
}

TEST_P(EveryFormatTest, EncryptionIsNamed) {
    TinyFile file = EverythingFile(GetParam());
    file.SetKey(0x12345678);
    EXPECT_EQ(
        MessageOfReading(file.Content()),
        "line.mdb is encrypted. Open it in Access, take its password or its encoding off, and "
        "try again.");
}

TEST_P(EveryFormatTest, ALinkOrAQueryIsNoTable) {
    const TinyFile file = EverythingFile(GetParam());
    Reader reader(FileContent{file.Content()}, "line.mdb");
    const auto message = [&](std::string_view table) -> std::string {
        try {
            ReadWhole(reader, table);
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Kind(), ErrorKind::NotAModel);
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(message("ALINK"),
              "line.mdb has no table ALINK of its own: it links to one in another file. Import it "
              "in Access.");
    EXPECT_EQ(message("AQuery"),
              "line.mdb has no table AQuery: a query stands in its place. Make it a table in "
              "Access.");
    EXPECT_EQ(message("AForm"), "line.mdb has no table AForm. Choose a file that holds a model.");
}

TEST_P(EveryFormatTest, AColumnOfOtherBytesIsNamedWhenItIsAskedFor) {
    TinyFile file(GetParam());
    file.Add({"Parts",
              {{"Id"}, {"Photo", TypeCode::Ole, 0, false}, {"Code", TypeCode::Binary, 50, false}},
              {{{Little(7, 4), "", "abc"}}}});
    Reader reader(FileContent{file.Content()}, "line.mdb");
    EXPECT_EQ(reader.Columns("Parts")[1].Type, ColumnType::Other);
    std::vector<Row> rows;
    const std::vector<std::size_t> readable = {0};
    reader.ReadRows("Parts", readable, [&](const Row& row) { rows.push_back(row); });
    EXPECT_EQ(TextOf(rows), "7\n");
    EXPECT_EQ(MessageOfReading(file.Content()),
              "line.mdb holds neither numbers nor texts in column Photo of table Parts. Change its "
              "data type in Access.");
}

TEST_P(EveryFormatTest, ChainsThatNeverEndAreDamage) {
    constexpr auto damaged =
        "line.mdb is damaged in table Notes. Repair it in Access (Compact and Repair Database), or "
        "use another copy.";
    TinyFile to_itself(GetParam());
    std::string field = to_itself.LongFieldInParts(Text(DigitText(40)), 8);
    field.replace(0, 4, Little(1000, 4));  // longer than the chain, whose end points to page 0
    AddMemo(to_itself, field);
    EXPECT_EQ(MessageOfReading(to_itself.Content()), damaged);

    TinyFile empty_links(GetParam());
    field = empty_links.LongField(std::string(4, '\0'));
    AddMemo(empty_links, Little(1000, 4) + field.substr(4));
    EXPECT_EQ(MessageOfReading(empty_links.Content()), damaged);
}

TEST_P(EveryFormatTest, ALongTextEndsWhereItSays) {
    TinyFile file(GetParam());
    const std::string field = file.LongFieldInParts(Text(DigitText(40)), 16);
    const std::size_t length = Text(DigitText(37)).size();
    AddMemo(file, Little(length, 4) + field.substr(4));
    EXPECT_EQ(ReadBack(file, "Notes"), "1|" + Quoted(DigitText(37)) + "\n");
}

TEST_P(EveryFormatTest, APointerToARowThatIsNotThereIsDamage) {
    TinyFile file(GetParam());
    std::string field = file.LongField(Text("abc"));
    field[4] = 1;  // the second row of that page
    AddMemo(file, Little(0x40000000, 4) + field.substr(4));
    EXPECT_EQ(MessageOfReading(file.Content()).substr(0, 36),
              "line.mdb is damaged in table Notes. ");
}

TEST_P(EveryFormatTest, AColumnThatWasAddedAfterARowIsNullThere) {
    TinyFile file(GetParam());
    TinyTable table{"Parts", std::vector<TinyColumn>(8, {"Number"}), {{{}}}};
    table.Rows[0].Fields.assign(8, Little(5, 4));
    table.Columns.push_back(TinyText("Added"));
    table.Columns.push_back({"AddedYesNo", TypeCode::YesNo, 1});
    file.Add(table);
    EXPECT_EQ(ReadBack(file, "Parts"), "5|5|5|5|5|5|5|5|Null|0\n");
}

TEST_P(EveryFormatTest, ATextBeyondReasonIsNamed) {
    TinyFile file(GetParam());
    AddMemo(file, Little(1024 * 1024 + 1, 12));
    EXPECT_EQ(MessageOfReading(file.Content()),
              "line.mdb holds a text of more than 1 MB. Shorten it in Access.");
}

}  // namespace
}  // namespace quarnel02::jet
