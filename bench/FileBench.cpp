#include "FileBench.h"

#include <iomanip>
#include <iostream>

#include "Times.h"
#include "basic/Files.h"
#include "files/ModelFile.h"
#include "files/ReadModel.h"
#include "files/SaveModel.h"

namespace fs = std::filesystem;

namespace quarnel02::bench {

namespace {

/// Figures with all their digits in every table.
constexpr const char* kRows = R"(
UPDATE Gen SET Resources = 25, Tasks = 50;
CREATE TEMP TABLE N AS WITH RECURSIVE N (I) AS
    (SELECT 1 UNION ALL SELECT I + 1 FROM N WHERE I < 31875) SELECT I FROM N;
INSERT INTO Tasks SELECT I, 'Task with a description ' || I FROM N WHERE I <= 50;
INSERT INTO Resources SELECT I, 'Res ' || I, 'Resource with a description', I % 4, I * 1000.1,
    I * 0.37, 96.5, 1.1, 3.3, 1.0 FROM N WHERE I <= 25;
INSERT INTO Matrix SELECT 1 + (I - 1) % 25, 1 + (I - 1) / 25, I * 0.013, I % 30, I * 7.77
    FROM N WHERE I <= 1250;
INSERT INTO Arcs SELECT I, 1 + I % 50, 2 + I % 50, I * 33.3, I * 11.1, I * 0.001, I * 0.002
    FROM N WHERE I <= 1275;
INSERT INTO Pathways SELECT I, 1 + (I - 1) / 25, 1 + (I - 1) % 25, 1 + I % 4, I * 3.1415926,
    I * 0.0271, 1 + I % 3, I * 2.7182818, I * 1.4142136 FROM N;
INSERT INTO BestPaths SELECT I + 1, I, I, I * 1.7320508 FROM N WHERE I <= 50;
DROP TABLE N;
)";

}  // namespace

void TimeModelFiles(const fs::path& directory, int runs) {
    const fs::path copy = directory / "working.seq";
    MakeModelFile(copy, ReadFile(QUARNEL02_SCHEMA_FILE) + kRows);
    std::cout << "\nA 50x25 model with 31,875 pathways\n"
                 "Format    Written/ms  Read/ms        KB\n";
    for (const ModelFormat format : {ModelFormat::Sqlite, ModelFormat::Access}) {
        const fs::path file = directory / "line.mdb";
        fs::remove(file);
        const double written =
            MedianOf(runs, [&] { return MillisecondsOf([&] { SaveModel(copy, file, format); }); });
        const double read = MedianOf(runs, [&] {
            return MillisecondsOf([&] { ReadModel(file, directory / "read.seq", "line.mdb"); });
        });
        constexpr double kilobyte = 1024;
        std::cout << std::left << std::setw(8)
                  << (format == ModelFormat::Access ? "Access" : "SQLite") << std::right
                  << std::fixed << std::setprecision(1) << std::setw(12) << written << std::setw(9)
                  << read << std::setw(10) << static_cast<double>(fs::file_size(file)) / kilobyte
                  << '\n';
    }
}

}  // namespace quarnel02::bench
