#include "stoch/BuildDemandTable.h"

#include <algorithm>

#include "basic/Numbers.h"
#include "basic/RunTimeError.h"
#include "shell/Demand.h"
#include "stoch/Curves.h"
#include "stoch/DemandChart.h"
#include "stoch/RecordFile.h"

namespace quarnel02 {

namespace {

constexpr double kPercent = 100;

void NoticeLeftOut(StochRun& run, int rows) {
    if (rows > 0) {
        run.Form.Notice((rows == 1 ? "1 demand row" : NumberText(rows) + " demand rows") +
                        " without a number left out.");
    }
}

void ReadDemandPoints(StochRun& run) {
    RecordSet demand =
        run.Form.Model.OpenRecordSet("SELECT Volume, Prob FROM Demand ORDER BY Volume;");
    int point = 0;
    int left_out = 0;
    for (; !demand.Eof(); demand.MoveNext()) {
        if (!IsDemandPoint(demand)) {
            ++left_out;
            continue;
        }
        ++point;
        if (point > kMostDemandPoints) {
            throw RunTimeError(ErrorKind::SubscriptOutOfRange,
                               "Demand has more than 10 points. Remove some of them.");
        }
        const auto index = static_cast<std::size_t>(point);
        run.Volume.at(index) = demand.Single(0);
        run.Prob.at(index) = demand.Single(1);
    }
    run.DemandPoints = point;
    NoticeLeftOut(run, left_out);
}

void SetVolumeRange(StochRun& run) {
    auto* const first = run.Volume.begin() + 1;
    auto* const last = first + run.DemandPoints;
    auto* const positive = std::find_if(first, last, [](float volume) { return volume > 0; });
    if (positive == last) {
        throw RunTimeError(ErrorKind::TypeMismatch,
                           "Demand has no volume above 0. Enter the volumes of the distribution.");
    }
    run.FirstVolume = *positive;
    run.LastVolume = CeilingSingle(3.0 * static_cast<double>(*(last - 1)));
    run.MeantVolumes.clear();
    for (const auto* volume = positive; volume != last; ++volume) {
        for (const double factor : {1.0, 1.5, 3.0}) {
            run.MeantVolumes.push_back(CeilingSingle(factor * static_cast<double>(*volume)));
        }
    }
    std::sort(run.MeantVolumes.begin(), run.MeantVolumes.end());
}

/// Expected smaller one of demand and the volume of point k:
/// E(k) = p1 v1 + ... + pk vk + vk (p(k+1) + ... + pm).
float ExpectedAtPoint(const StochRun& run, int k) {
    double production = 0;
    for (int point = 1; point <= run.DemandPoints; ++point) {
        const auto volume = run.Volume.at(static_cast<std::size_t>(std::min(point, k)));
        production += static_cast<double>(run.Prob.at(static_cast<std::size_t>(point))) / kPercent *
                      static_cast<double>(volume);
    }
    return ToSingle(production, "Expected production");
}

double SumOfPoints(const StochRun& run) {
    double sum = 0;
    for (int point = 1; point <= run.DemandPoints; ++point) {
        sum += static_cast<double>(run.Prob.at(static_cast<std::size_t>(point)));
    }
    return sum;
}

/// Of a complete distribution E(1) is v1 itself, and no later point falls short of it by what the
/// singles of the probabilities are rounded.
float ProductionAtPoint(const StochRun& run, int k) {
    const float expected = ExpectedAtPoint(run, k);
    if (!IsComplete(SumOfPoints(run))) {
        return expected;
    }
    return k == 1 ? run.Volume[1] : std::max(expected, run.Volume[1]);
}

void WriteExpectedProduction(StochRun& run) {
    RecordWriter<ExpectedProductionRecord> file(run.Files.ExpectedProduction());
    float low = ProductionAtPoint(run, 1);
    for (int k = 2; k <= run.DemandPoints; ++k) {
        const float high = ProductionAtPoint(run, k);
        file.Write({run.Volume.at(static_cast<std::size_t>(k - 1)),
                    run.Volume.at(static_cast<std::size_t>(k)), low, high});
        low = high;
    }
    file.Write({run.Volume.at(static_cast<std::size_t>(run.DemandPoints)), kNoUpperEnd, low, low});
    file.Close();
}

}  // namespace

void BuildDemandTable(StochRun& run) {
    ReadDemandPoints(run);
    SetVolumeRange(run);
    WriteExpectedProduction(run);
    DrawDemandDistribution(run);
}

}  // namespace quarnel02
