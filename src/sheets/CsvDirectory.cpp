#include "sheets/CsvDirectory.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "basic/Files.h"
#include "basic/Limits.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "sheets/DelimitedText.h"
#include "sheets/SheetFile.h"
#include "sheets/WorkbookFile.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr std::array kSheets = {"General", "Tasks", "Resources", "Matrix", "Demand", "Scenarios"};

/// The shortest decimal that reads back to the number.
std::string ExactText(double number) {
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), written.ptr};
}

bool ReadsBack(const std::string& text, double number) {
    double read = 0;
    const char* const end = text.data() + text.size();
    return std::from_chars(text.data(), end, read).ptr == end && read == number;
}

CsvCell TextOf(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return NumberText(*whole);
    }
    if (const auto* real = std::get_if<double>(&value)) {
        const std::string text = NumberText(*real);
        return ReadsBack(text, *real) ? text : ExactText(*real);
    }
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? std::nullopt : CsvCell(*text);
}

/// A text that a number would be written as is that number; it would come back the same as a text.
Value ValueOf(const CsvCell& cell) {
    if (!cell) {
        return {};
    }
    double number = 0;
    const char* const end = cell->data() + cell->size();
    const auto read = std::from_chars(cell->data(), end, number);
    const bool plain = read.ec == std::errc() && read.ptr == end && NumberText(number) == *cell;
    return plain ? Value(number) : Value(*cell);
}

/// Reads the files of one workbook, which may not get larger than that of any model.
class CsvSheets {
  public:
    Sheet Read(const fs::path& file, const std::string& name) {
        const std::string text = ReadSheetFile(file);
        Count(text, file);
        Sheet sheet{name, {}, {}};
        for (const auto& cells : ReadCsv(text)) {
            InputRow& row = sheet.Cells.emplace_back();
            std::transform(cells.begin(), cells.end(), std::back_inserter(row), ValueOf);
        }
        return sheet;
    }

  private:
    /// Before there are cells, each of which takes more than the letter that ends it.
    void Count(const std::string& text, const fs::path& file) {
        constexpr std::string_view ends = ",;\t\n\r";
        m_bytes += text.size();
        m_cells += static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [&](char c) {
            return ends.find(c) != std::string_view::npos;
        }));
        if (m_bytes > limits::kSheetFile || m_cells > limits::kCells) {
            RefuseLargeSheet(file);
        }
    }

    std::size_t m_bytes = 0;
    std::size_t m_cells = 0;
};

std::string CsvOf(const Sheet& sheet) {
    CsvRows rows;
    for (const InputRow& cells : sheet.Cells) {
        auto& row = rows.emplace_back();
        for (const Value& cell : cells) {
            row.push_back(TextOf(cell));
        }
        if (row.empty()) {
            row.emplace_back();
        }
    }
    return WriteCsv(rows);
}

/// A file of an earlier model would be read as part of this one.
void RemoveStaleSheets(const fs::path& directory, const Workbook& workbook) {
    for (const std::string name : kSheets) {
        const fs::path file = directory / (name + ".csv");
        std::error_code failure;
        if (FindSheet(workbook, name) == nullptr && KindOfFile(file) == FileKind::Ordinary &&
            !fs::remove(file, failure)) {
            throw RunTimeError(ErrorKind::FileAccess,
                               PathText(file) + " is of an earlier model and cannot be removed: " +
                                   failure.message() + ".");
        }
    }
}

}  // namespace

Workbook ReadCsvDirectory(const fs::path& directory) {
    Workbook workbook;
    CsvSheets sheets;
    for (const std::string name : kSheets) {
        const fs::path file = directory / (name + ".csv");
        if (KindOfFile(file) != FileKind::Missing) {
            workbook.push_back(sheets.Read(file, name));
        }
    }
    if (workbook.empty()) {
        throw RunTimeError(ErrorKind::NotAModel,
                           "The directory " + PathText(directory) +
                               " holds no sheets of a model: it needs the files General.csv, "
                               "Tasks.csv, Resources.csv, Matrix.csv and Demand.csv.");
    }
    return workbook;
}

void WriteCsvDirectory(const fs::path& directory, const Workbook& workbook) {
    std::error_code failure;
    fs::create_directories(directory, failure);
    if (KindOfFile(directory) != FileKind::Directory) {
        throw RunTimeError(
            ErrorKind::FileAccess,
            "The directory " + PathText(directory) + " cannot be made: " + failure.message() + ".");
    }
    for (const Sheet& sheet : workbook) {
        WriteWhole(directory / (sheet.Name + ".csv"), CsvOf(sheet));
    }
    RemoveStaleSheets(directory, workbook);
}

}  // namespace quarnel02
