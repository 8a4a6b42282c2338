// Reads arbitrary texts as a model of .csv files, six of them with form feeds between.

#include <array>
#include <filesystem>

#include "Models.h"
#include "Target.h"
#include "basic/Files.h"
#include "basic/RunTimeError.h"
#include "sheets/DelimitedText.h"
#include "sheets/InputTables.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"

namespace quarnel02::fuzz {

namespace {

namespace fs = std::filesystem;

constexpr std::array kFiles = {"General", "Tasks", "Resources", "Matrix", "Demand", "Scenarios"};

fs::path FileOf(const fs::path& directory, std::string_view sheet) {
    return directory / (std::string(sheet) + ".csv");
}

void WriteInput(const fs::path& directory, std::string_view input) {
    fs::create_directories(directory);
    for (const char* sheet : kFiles) {
        WriteFile(FileOf(directory, sheet), TakeUpTo(input, '\f'));
    }
}

/// What a file is written from is what is read from it.
void RequireSameBack(const InputTables& tables) {
    const fs::path directory = Scratch() / "back";
    fs::remove_all(directory);
    WriteCsvDirectory(directory, SheetsOf(tables));
    const ModelOfSheets back = TablesOf(ReadWorkbook(directory));
    Require(back.Refused.IsEmpty() && back.Tables == tables, "an accepted model is written whole");
}

}  // namespace

std::vector<std::string> Seeds() {
    const fs::path model = Scratch() / "made.seq";
    const fs::path directory = Scratch() / "seeds";
    WriteFile(model, SqliteModel());
    WriteCsvDirectory(directory, SheetsOf(ReadInputTables(Database::Open(model))));
    std::string all;
    for (const char* sheet : kFiles) {
        all += (all.empty() ? "" : "\f") + ReadFile(FileOf(directory, sheet));
    }
    return {all, "Days;240\n\"a \"\"b\"\"\";\"1,5\"\r\n\f\xEF\xBB\xBFTask\tDescription\n1\tx"};
}

}  // namespace quarnel02::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quarnel02;
    const std::string_view input = fuzz::TextOf(data, size);
    const CsvRows rows = ReadCsv(input);
    fuzz::Require(ReadCsv(WriteCsv(rows)) == rows, "cells that are written are read back");
    fuzz::WriteInput(fuzz::Scratch() / "line", input);
    try {
        const ModelOfSheets model = TablesOf(ReadWorkbook(fuzz::Scratch() / "line"));
        if (model.Refused.IsEmpty()) {
            fuzz::RequireSameBack(model.Tables);
        }
    } catch (const RunTimeError&) {
        return 0;
    }
    return 0;
}
