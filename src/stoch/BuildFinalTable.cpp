#include "stoch/BuildFinalTable.h"

#include "stoch/MergeCurves.h"
#include "stoch/Notices.h"
#include "stoch/Records.h"

namespace quarnel02 {

double ComparedCost(double cost) {
    constexpr double stands_for_zero = 10000;
    return cost == 0 ? stands_for_zero : cost;
}

void BuildFinalTable(StochRun& run, int counter) {
    const auto merged = run.Files.Candidate(1);
    const auto output = run.Files.Path("Final");
    const auto table = run.Files.Final(run.EndTask);
    for (int number = 2; number < counter; ++number) {
        const auto candidate = run.Files.Candidate(number);
        NoticeEarlyEnd(run, table,
                       MergeCurves<DesignSegment>(merged, candidate, output, ComparedCost));
        RenameRunFile(output, merged);
        DeleteRunFile(candidate);
    }
    RenameRunFile(merged, table);
}

}  // namespace quarnel02
