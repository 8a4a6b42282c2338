#include "stoch/Notices.h"

#include <string>

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "stoch/CurveFile.h"
#include "stoch/Records.h"

namespace quarnel02 {

namespace {

std::string TableName(const std::filesystem::path& table) {
    return "Table " + PathText(table.filename());
}

std::string EndText(float volume) {
    return ": its cost curve ends at a volume of " + Format(static_cast<double>(volume), "#,##0") +
           ".";
}

}  // namespace

void NoticeEarlyEnd(StochRun& run, const std::filesystem::path& table,
                    std::optional<float> volume) {
    if (volume) {
        run.Form.Notice(TableName(table) + " is full at " + NumberText(kMostRecords) + " records" +
                        EndText(*volume));
    }
}

void NoticeStationsEnd(StochRun& run, const std::filesystem::path& table,
                       std::optional<float> volume) {
    if (volume) {
        run.Form.Notice(TableName(table) + " is full at " + NumberText(kMostInChoice) +
                        " parallel stations" + EndText(*volume));
    }
}

void NoticeNoTable(StochRun& run, const std::filesystem::path& table) {
    run.Form.Notice(TableName(table) + " is not made: " + NumberText(kMostInChoice) +
                    " parallel stations are not enough for a volume of " +
                    Format(static_cast<double>(run.FirstVolume), "#,##0") + ".");
}

}  // namespace quarnel02
