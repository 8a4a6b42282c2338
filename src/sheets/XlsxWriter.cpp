#include <xlsxwriter.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <system_error>

#include "basic/Files.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "basic/ScopeGuard.h"
#include "sheets/WorkbookFile.h"
#include "sheets/XlsxText.h"

namespace fs = std::filesystem;

namespace quarnel02 {

namespace {

constexpr double kNarrowColumn = 14;
constexpr double kWideColumn = 30;
constexpr std::size_t kNameColumn = 1;

void Require(lxw_error error, const std::string& where) {
    if (error != LXW_NO_ERROR) {
        throw RunTimeError(ErrorKind::Overflow, where + " cannot be written to an .xlsx file: " +
                                                    lxw_strerror(error) + ".");
    }
}

/// A number with so many digits.
std::string Digits(double number, int digits) {
    std::array<char, 40> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), number,
                                       std::chars_format::general, digits);
    return {text.data(), written.ptr};
}

/// Whether the file, which keeps 16 digits, gives the number back; spreadsheets go no further.
bool IsKept(double number) {
    constexpr double most = 1e300;
    constexpr int kept_digits = 16;
    const std::string text = Digits(number, kept_digits);
    double read = 0;
    std::from_chars(text.data(), text.data() + text.size(), read);
    return std::abs(number) < most && read == number;
}

/// A text that reads back to the number.
std::string AllDigits(double number) {
    constexpr int all_digits = 17;
    return Digits(number, all_digits);
}

/// Writes one sheet.
class XlsxSheet {
  public:
    XlsxSheet(lxw_workbook* workbook, const Sheet& sheet)
        : m_sheet(sheet), m_target(workbook_add_worksheet(workbook, sheet.Name.c_str())) {}

    void Write(lxw_format* heading);

  private:
    lxw_error WriteCell(lxw_row_t row, lxw_col_t column, const Value& value, lxw_format* format);
    lxw_error WriteText(lxw_row_t row, lxw_col_t column, const std::string& text,
                        lxw_format* format);

    const Sheet& m_sheet;
    lxw_worksheet* m_target;
};

/// An empty text, which is something else than an empty cell, is the result of a formula.
lxw_error XlsxSheet::WriteText(lxw_row_t row, lxw_col_t column, const std::string& text,
                               lxw_format* format) {
    if (text.empty()) {
        return worksheet_write_formula_str(m_target, row, column, "=\"\"", format, "");
    }
    return worksheet_write_string(m_target, row, column, WithEscapes(text).c_str(), format);
}

lxw_error XlsxSheet::WriteCell(lxw_row_t row, lxw_col_t column, const Value& value,
                               lxw_format* format) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return worksheet_write_number(m_target, row, column, static_cast<double>(*whole), format);
    }
    if (const auto* real = std::get_if<double>(&value)) {
        return IsKept(*real) ? worksheet_write_number(m_target, row, column, *real, format)
                             : WriteText(row, column, AllDigits(*real), format);
    }
    const auto* text = std::get_if<std::string>(&value);
    return text == nullptr ? LXW_NO_ERROR : WriteText(row, column, *text, format);
}

void XlsxSheet::Write(lxw_format* heading) {
    worksheet_set_column(m_target, 0, LXW_COL_MAX - 1, kNarrowColumn, nullptr);
    worksheet_set_column(m_target, 0, kNameColumn, kWideColumn, nullptr);
    for (std::size_t row = 0; row < m_sheet.Cells.size(); ++row) {
        for (std::size_t column = 0; column < m_sheet.Cells[row].size(); ++column) {
            Require(WriteCell(static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                              m_sheet.Cells[row][column], row == 0 ? heading : nullptr),
                    CellName(m_sheet, row, column));
        }
    }
    for (const auto& [place, formula] : m_sheet.Formulas) {
        Require(worksheet_write_formula_num(m_target, static_cast<lxw_row_t>(place.first),
                                            static_cast<lxw_col_t>(place.second),
                                            formula.Text.c_str(), nullptr, formula.Result),
                CellName(m_sheet, place.first, place.second));
    }
}

void RequireSize(const Sheet& sheet) {
    for (std::size_t row = 0; row < sheet.Cells.size(); ++row) {
        if (row >= LXW_ROW_MAX || sheet.Cells[row].size() > LXW_COL_MAX) {
            throw RunTimeError(ErrorKind::Overflow,
                               "Sheet " + sheet.Name +
                                   " has more rows or columns than an .xlsx file can hold: "
                                   "1,048,576 rows and 16,384 columns.");
        }
    }
}

/// The workbook is put together among the temporary files, whatever disk its own place is on.
[[noreturn]] void ThrowNoRoom(const fs::path& path, const fs::path& temporary, int code) {
    throw RunTimeError(ErrorKind::FileAccess,
                       "Cannot write " + PathText(path) + ": it cannot be put together in " +
                           PathText(temporary) + " (" + std::generic_category().message(code) +
                           "). Free some space there, or set TMPDIR to another directory.");
}

void WriteFileOfSheets(const fs::path& file, const Workbook& sheets, const fs::path& path) {
    std::string temporary =
        PathText(file.parent_path());  // the library's own files, which go with the directory
    lxw_workbook_options options{};
    options.tmpdir = temporary.data();
    lxw_workbook* workbook = workbook_new_opt(PathText(file).c_str(), &options);
    if (workbook == nullptr) {
        throw std::bad_alloc();
    }
    bool closed = false;
    const ScopeGuard cleanup([&] {
        if (!closed) {
            workbook_close(workbook);
        }
    });
    lxw_format* heading = workbook_add_format(workbook);
    format_set_bold(heading);
    for (const Sheet& sheet : sheets) {
        RequireSize(sheet);
        XlsxSheet(workbook, sheet).Write(heading);
    }
    closed = true;
    errno = 0;
    const lxw_error failure = workbook_close(workbook);
    if (failure != LXW_NO_ERROR && errno != 0) {
        ThrowNoRoom(path, file.parent_path().parent_path(), errno);
    }
    Require(failure, "The workbook");
}

}  // namespace

void WriteXlsx(const fs::path& path, const Workbook& workbook) {
    const TemporaryDirectory directory;
    const fs::path file = directory.Path() / "workbook.xlsx";
    WriteFileOfSheets(file, workbook, path);
    CopyWhole(file, path);
}

}  // namespace quarnel02
