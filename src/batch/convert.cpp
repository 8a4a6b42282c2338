// quarnel02-convert: turns a model from one kind of file into another.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

#include "basic/FailureText.h"
#include "basic/Version.h"
#include "batch/ConvertFile.h"
#include "batch/Interruption.h"

namespace {

constexpr int kConvertFailed = 1;

constexpr const char* kConvertFooter =
    "Kinds of files, by their extension:\n"
    "  .mdb    model file: a SQLite database, or one of Access\n"
    "  .xlsx   workbook; .ods is read but not written\n"
    "  .sql    INSERT, UPDATE and DELETE statements for the tables of an empty model\n"
    "  a name without extension, or a directory: a .csv file for each sheet\n"
    "Model files keep results; the others hold what is entered.\n"
    "\n"
    "Example: hand a model to somebody who uses Access:\n"
    "  quarnel02-convert pump.mdb pump-access.mdb --format access\n"
    "\n"
    "Exit status: 0 converted; 1 error (one line on standard error), and TO is as it was;\n"
    "128 + N ended by signal N.";

constexpr const char* kSqlite = "sqlite";
constexpr const char* kAccess = "access";

/// Options as the command line gives them.
struct Options {
    std::string From;
    std::string To;
    std::string Format;
};

void DescribeConvert(CLI::App& app, Options& options) {
    app.footer(kConvertFooter);
    app.set_version_flag("--version", std::string("quarnel02-convert ") + quarnel02::Version());
    app.add_option("FROM", options.From, "File or directory to read; it is never changed")
        ->required()
        ->type_name("FILE");
    app.add_option("TO", options.To, "File or directory to write; it is replaced")
        ->required()
        ->type_name("FILE");
    app.add_option("--format", options.Format,
                   "Format of a model file TO: sqlite (this program's own) or access (Access 2000 "
                   "to 2003); without it, what TO was, else sqlite")
        ->check(CLI::IsMember({kSqlite, kAccess}))
        ->type_name("F");
}

quarnel02::ConvertRequest ToRequest(const Options& options) {
    quarnel02::ConvertRequest request{options.From, options.To, {}};
    if (!options.Format.empty()) {
        request.Format = options.Format == kAccess ? quarnel02::ModelFormat::Access
                                                   : quarnel02::ModelFormat::Sqlite;
    }
    return request;
}

std::string ConvertUnlessInterrupted(const quarnel02::ConvertRequest& request) {
    const quarnel02::EndOnSignals ending;
    return quarnel02::ConvertFile(request);
}

int RunConvert(int argc, char* argv[]) {
    CLI::App app("Turns a model from one kind of file into another.", "quarnel02-convert");
    Options options;
    DescribeConvert(app, options);
    CLI11_PARSE(app, argc, argv);
    try {
        const std::string note = ConvertUnlessInterrupted(ToRequest(options));
        if (!note.empty()) {
            std::cerr << "quarnel02-convert: " << note << '\n';
        }
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "quarnel02-convert: " << quarnel02::FailureText(error) << '\n';
        return kConvertFailed;
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    try {
        return RunConvert(argc, argv);
    } catch (const std::exception& error) {
        std::fputs(error.what(), stderr);
        return kConvertFailed;
    }
}
