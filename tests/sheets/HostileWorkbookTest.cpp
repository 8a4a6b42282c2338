// Workbooks that unpack, or unfold, into far more than they are.

#include <gtest/gtest.h>
#include <zip.h>

#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include "basic/Files.h"
#include "sheets/WorkbookFile.h"
#include "support/Measured.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;

using test::ExpectModest;
using test::Measured;
using Parts = std::map<std::string, std::string>;

std::string Repeated(const std::string& text, std::size_t bytes) {
    std::string all;
    all.reserve(bytes + text.size());
    while (all.size() < bytes) {
        all += text;
    }
    return all;
}

class HostileWorkbook : public testing::Test {
  protected:
    void Pack(const Parts& parts) const {
        zip_t* const archive = zip_open(File.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        ASSERT_NE(archive, nullptr);
        for (const auto& [name, content] : parts) {
            zip_source_t* const source =
                zip_source_buffer(archive, content.data(), content.size(), 0);
            ASSERT_GE(zip_file_add(archive, name.c_str(), source, ZIP_FL_OVERWRITE), 0);
        }
        ASSERT_EQ(zip_close(archive), 0);
    }
    void PackOds(const std::string& rows) const {
        Pack({{"content.xml", "<d><body><spreadsheet><table name=\"Tasks\">" + rows +
                                  "</table></spreadsheet></body></d>"}});
    }
    void PackXlsx(const std::string& texts, const std::string& rows) const {
        const std::string head = "<Relationships><Relationship Id=\"1\" Target=\"";
        Pack({{"[Content_Types].xml", "<Types/>"},
              {"_rels/.rels", head + "b.xml\" Type=\"/officeDocument\"/></Relationships>"},
              {"_rels/b.xml.rels",
               head + "s.xml\" Type=\"/worksheet\"/><Relationship Id=\"2\" Target=\"t.xml\" "
                      "Type=\"/sharedStrings\"/></Relationships>"},
              {"b.xml", "<w><sheets><sheet name=\"Tasks\" r:id=\"1\"/></sheets></w>"},
              {"t.xml", "<sst>" + texts + "</sst>"},
              {"s.xml", "<w><sheetData>" + rows + "</sheetData></w>"}});
    }
    void ExpectRefusedSoon(const std::string& words) const {
        const Measured run = test::MeasuredRun([&] { static_cast<void>(ReadWorkbook(File)); });
        ExpectModest(run);
        EXPECT_NE(run.Message.find(words), std::string::npos) << run.Message;
        EXPECT_NE(run.Message.find(PathText(File)), std::string::npos) << run.Message;
    }

    TemporaryDirectory Folder;
    fs::path File = Folder.Path() / "line.xlsx";
};

constexpr const char* kTooLarge = "it is larger than that of any model";

TEST_F(HostileWorkbook, OfMoreElementsThanMemoryIsMeantToHold) {
    PackOds(Repeated("<a/>", 60'000'000));
    EXPECT_LT(fs::file_size(File), 100'000U);
    ExpectRefusedSoon(kTooLarge);
    PackXlsx("", Repeated("<row><c r=''/>x</row>", 60'000'000));
    ExpectRefusedSoon(kTooLarge);
    PackXlsx(Repeated("<si/>", 60'000'000), "");
    ExpectRefusedSoon(kTooLarge);
}

TEST_F(HostileWorkbook, OfATextThatStandsInEveryCell) {
    PackXlsx("<si><t>" + std::string(1'000'000, 'x') + "</t></si>",
             "<row>" + Repeated("<c t=\"s\"><v>0</v></c>", 100'000) + "</row>");
    ExpectRefusedSoon(kTooLarge);
    PackOds("<table-row><table-cell value-type=\"string\" number-columns-repeated=\"9999\"><p>" +
            std::string(500'000, 'x') + "</p></table-cell></table-row>");
    ExpectRefusedSoon(kTooLarge);
}

TEST_F(HostileWorkbook, OfBlanksThatUnfold) {
    PackOds("<table-row><table-cell value-type=\"string\"><p>" +
            Repeated("<s c=\"32768\"/>", 10'000'000) + "</p></table-cell></table-row>");
    ExpectRefusedSoon("it has a text that is larger than that of any model");
}

TEST_F(HostileWorkbook, OfElementsInEachOtherWithoutEnd) {
    const std::size_t bytes = 6'000'000;
    PackOds("<table-row><table-cell value-type=\"string\"><p>" + Repeated("<b>", bytes) +
            Repeated("</b>", bytes / 3 * 4) + "</p></table-cell></table-row>");
    ExpectRefusedSoon("it has a text that is larger than that of any model");
    PackOds(Repeated("<table-row-group>", bytes) + Repeated("</table-row-group>", bytes / 17 * 18));
    const Measured run = test::MeasuredRun([&] { static_cast<void>(ReadWorkbook(File)); });
    ExpectModest(run);
}

TEST_F(HostileWorkbook, OfCsvFilesWithNothingButSeparators) {
    for (const auto& [text, bytes] : std::initializer_list<std::pair<const char*, std::size_t>>{
             {",", 60'000'000}, {";", 2'000'000}, {"\n", 2'000'000}, {"\"\"\t", 4'000'000}}) {
        WriteFile(Folder.Path() / "Tasks.csv", Repeated(text, bytes));
        const Measured run =
            test::MeasuredRun([&] { static_cast<void>(ReadWorkbook(Folder.Path())); });
        ExpectModest(run);
        EXPECT_EQ(run.Message, PathText(Folder.Path() / "Tasks.csv") +
                                   " is too large for a workbook of a model.");
    }
}

TEST_F(HostileWorkbook, OfCsvFilesThatAreLargeTogether) {
    for (const char* sheet : {"General", "Tasks", "Resources", "Matrix", "Demand"}) {
        WriteFile(Folder.Path() / (std::string(sheet) + ".csv"), std::string(60'000'000, 'x'));
    }
    const Measured run = test::MeasuredRun([&] { static_cast<void>(ReadWorkbook(Folder.Path())); });
    ExpectModest(run);
    EXPECT_EQ(run.Message,
              PathText(Folder.Path() / "Tasks.csv") + " is too large for a workbook of a model.");
}

}  // namespace
}  // namespace quarnel02
