#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "files/ModelFormat.h"
#include "report/Document.h"

namespace quarnel02 {

/// How results are printed; docs/formats.md describes all of them.
enum class PrintFormat : std::int8_t { Text, Csv, Json };

/// What is asked of a design beside its line.
enum class StudyKind : std::int8_t { Volumes, Alternatives, Sensitivity, Scenarios, WhyNot };

/// A study; figures as typed.
struct StudyOrder {
    StudyKind Kind = StudyKind::Volumes;
    std::optional<std::string> From;   ///< of volumes, units per year; else 1
    std::optional<std::string> To;     ///< else twice the largest volume of the demand rows
    std::optional<std::string> Share;  ///< of sensitivity, percent; else 10
};

/// Turns a document into the bytes of a PDF file.
using PdfMaker = std::function<std::string(const Document&)>;

struct PdfOrder {
    std::filesystem::path File;
    PdfMaker Make;
};

/// One run of the batch program.
struct SolveRequest {
    std::filesystem::path Model;
    bool Stochastic = false;                  ///< design for the model's demand distribution
    std::int16_t Shifts = 1;                  ///< else for a fixed demand: shifts per day, 1 to 3;
                                              ///< of a study of volumes 0 for all three
    std::optional<std::string> Demand;        ///< units per year, as typed; else the only row's
    std::optional<std::string> StationLimit;  ///< most parallel stations, as typed; else no limit
    std::optional<StudyOrder> Study;          ///< in place of a report
    PrintFormat Format = PrintFormat::Text;
    bool OneOfSeveral = false;                          ///< results say which model they are of
    bool Progress = false;                              ///< status texts go to standard error
    std::optional<std::filesystem::path> OutDirectory;  ///< where the report is left too
    bool Pictures = false;                              ///< leave the pictures there as well
    std::optional<std::filesystem::path> KeepRunFiles;  ///< where run files are kept
    std::optional<PdfOrder> Pdf;                        ///< report of a line as a document
    std::optional<std::filesystem::path> SaveAs;        ///< where the solved model is written
    std::optional<ModelFormat> SaveFormat;              ///< in which format; else the model's own
};

struct SolveOutcome {
    std::string Report;                 ///< empty when no line was designed
    std::vector<std::string> Messages;  ///< what the system said: why there is no line, or what the
                                        ///< line in the report lacks; empty for a whole line
    std::string WhyNot;                 ///< lines that say what would have a line; empty with one
};

}  // namespace quarnel02
