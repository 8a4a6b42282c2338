#include "stoch/Notices.h"

#include <string>

#include "basic/Files.h"
#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "stoch/CurveFile.h"

namespace quarnel02 {

void NoticeEarlyEnd(StochRun& run, const std::filesystem::path& table,
                    std::optional<float> volume) {
    if (!volume) {
        return;
    }
    run.Form.Notice("Table " + PathText(table.filename()) + " is full at " +
                    NumberText(kMostRecords) + " records: its cost curve ends at a volume of " +
                    Format(static_cast<double>(*volume), "#,##0") + ".");
}

}  // namespace quarnel02
