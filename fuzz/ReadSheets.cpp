// Reads arbitrary bytes as a workbook. An input that begins like an archive is a file; of any other
// the first letter says which part of a small workbook the rest stands for: "o" the content of an
// .ods file, others a part of an .xlsx file.

#include <zip.h>

#include <map>

#include "Models.h"
#include "Target.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "sheets/InputTables.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"
#include "sheets/ZipArchive.h"

namespace quarnel02::fuzz {

namespace {

namespace fs = std::filesystem;
using Parts = std::map<std::string, std::string>;

const std::map<char, std::string> kParts = {{'c', "[Content_Types].xml"},
                                            {'w', "xl/workbook.xml"},
                                            {'r', "xl/_rels/workbook.xml.rels"},
                                            {'t', "xl/sharedStrings.xml"},
                                            {'y', "xl/styles.xml"},
                                            {'s', "xl/worksheets/sheet1.xml"},
                                            {'k', "xl/worksheets/sheet2.xml"},
                                            {'m', "xl/worksheets/sheet4.xml"},
                                            {'d', "xl/worksheets/sheet5.xml"}};

constexpr std::string_view kOds =
    "<office:document-content><office:body><office:spreadsheet><table:table table:name=\"Tasks\">"
    "<table:table-row><table:table-cell office:value-type=\"string\"><text:p>Task</text:p>"
    "</table:table-cell><table:table-cell table:number-columns-repeated=\"2\" "
    "office:value-type=\"float\" office:value=\"12.5\"/></table:table-row></table:table>"
    "</office:spreadsheet></office:body></office:document-content>";

std::string XlsxModel() {
    const fs::path model = Scratch() / "made.seq";
    const fs::path file = Scratch() / "made.xlsx";
    WriteFile(model, SqliteModel());
    WriteXlsx(file, SheetsOf(ReadInputTables(Database::Open(model))));
    return ReadFile(file);
}

const Parts& XlsxParts() {
    static const Parts parts = [] {
        const std::string content = XlsxModel();
        const ZipArchive archive(content);
        Parts all;
        for (const auto& each : kParts) {
            all[each.second] = archive.Has(each.second) ? archive.Read(each.second) : "";
        }
        return all;
    }();
    return parts;
}

void WriteArchive(const fs::path& file, const Parts& parts) {
    zip_t* const archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    for (const auto& [name, content] : parts) {
        zip_source_t* const source = zip_source_buffer(archive, content.data(), content.size(), 0);
        const zip_int64_t place = zip_file_add(archive, name.c_str(), source, 0);
        zip_set_file_compression(archive, static_cast<zip_uint64_t>(place), ZIP_CM_STORE, 0);
    }
    zip_close(archive);
}

void WriteInput(const fs::path& file, std::string_view input) {
    const auto part = input.empty() ? kParts.end() : kParts.find(input[0]);
    if (part != kParts.end()) {
        Parts parts = XlsxParts();
        parts[part->second] = input.substr(1);
        WriteArchive(file, parts);
    } else if (input.starts_with('o')) {
        WriteArchive(file, {{"content.xml", std::string(input.substr(1))}});
    } else {
        WriteFile(file, input);
    }
}

void RequireSameBack(const InputTables& tables) {
    const fs::path file = Scratch() / "back.xlsx";
    try {
        WriteXlsx(file, SheetsOf(tables));
    } catch (const RunTimeError&) {  // a text that is too long for a cell
        return;
    }
    const ModelOfSheets back = TablesOf(ReadWorkbook(file));
    Require(back.Refused.IsEmpty() && back.Tables == tables, "an accepted model is written whole");
}

void Read(const fs::path& file) {
    const ModelOfSheets model = TablesOf(ReadWorkbook(file));
    if (model.Refused.IsEmpty()) {
        RequireSameBack(model.Tables);
    } else {
        Require(!model.Refused.Message("Refused.").empty(), "a refusal says why");
    }
}

}  // namespace

std::vector<std::string> Seeds() {
    std::vector<std::string> seeds = {XlsxModel(), "o" + std::string(kOds)};
    for (const auto& [letter, name] : kParts) {
        seeds.push_back(letter + XlsxParts().at(name));
    }
    return seeds;
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    const std::filesystem::path file = fuzz::Scratch() / "line.xlsx";
    fuzz::WriteInput(file, fuzz::TextOf(data, size));
    try {
        fuzz::Read(file);
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
