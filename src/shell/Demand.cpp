#include "shell/Demand.h"

#include <cmath>
#include <limits>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "basic/RunTimeError.h"

namespace quarnel02 {

namespace {

constexpr Colour kComplete{0, 0, 128};
constexpr Colour kIncomplete{255, 0, 0};
constexpr double kWhole = 100;

std::string VolumeText(double volume) {
    return Format(volume, "#,###,###");
}

double VolumeOf(const RecordSet& demand) {
    return static_cast<double>(demand.Single("Volume"));
}

/// As the design takes it: 33.3 also where a file holds 33.2999992370605.
std::string ProbabilityText(const RecordSet& demand) {
    return NumberText(DecimalOfSingle(demand.Single("Prob")));
}

bool IsSingle(const Value& value) {
    constexpr auto largest = static_cast<double>(std::numeric_limits<float>::max());
    const auto* const real = std::get_if<double>(&value);
    return std::holds_alternative<std::int64_t>(value) ||
           (real != nullptr && std::fabs(*real) <= largest);
}

/// The demand rows in ascending order of volume, at the first one; throws when there is none.
RecordSet RowsByVolume(const Database& database) {
    RecordSet demand = database.OpenRecordSet("SELECT * FROM Demand ORDER BY Volume;");
    demand.MoveLast();
    demand.MoveFirst();
    return demand;
}

/// "85% (15% missing)", "110% (10% too much)".
std::string SumText(double percent) {
    if (IsComplete(percent)) {
        return PercentText(kWhole);
    }
    return PercentText(percent) + " (" + PercentText(std::fabs(kWhole - percent)) +
           (percent < kWhole ? " missing)" : " too much)");
}

std::string LeftOutText(int rows) {
    if (rows == 0) {
        return {};
    }
    return rows == 1 ? "; 1 row without a number is left out"
                     : "; " + NumberText(rows) + " rows without a number are left out";
}

void Refill(const Database& database, DemandList& list) {
    RecordSet demand = RowsByVolume(database);
    list.ClearDemand();
    int left_out = 0;
    for (; !demand.Eof(); demand.MoveNext()) {
        if (IsDemandPoint(demand)) {
            list.AddDemandLine(DemandLineText(VolumeOf(demand), ProbabilityText(demand)));
        } else {
            ++left_out;
        }
    }
    const double sum = SumOfProbabilities(database);
    list.ShowDemandSum(SumText(sum) + LeftOutText(left_out),
                       IsComplete(sum) ? kComplete : kIncomplete);
}

}  // namespace

std::string DemandLineText(double volume, const std::string& probability) {
    return VolumeText(volume) + ":  " + probability + "%";
}

bool IsDemandPoint(const RecordSet& demand) {
    return IsSingle(demand.Field("Volume")) && IsSingle(demand.Field("Prob"));
}

double SumOfProbabilities(const Database& database) {
    double sum = 0;
    RecordSet demand = database.OpenRecordSet("SELECT Volume, Prob FROM Demand ORDER BY Volume;");
    for (; !demand.Eof(); demand.MoveNext()) {
        sum += IsDemandPoint(demand) ? DecimalOfSingle(demand.Single("Prob")) : 0;
    }
    return sum;
}

bool IsComplete(double percent) {
    constexpr double half_a_hundredth = 0.005;
    return std::fabs(percent - kWhole) < half_a_hundredth;
}

std::string PercentText(double percent) {
    constexpr double hundredths = 100;
    return NumberText(std::round(percent * hundredths) / hundredths) + "%";
}

void ListDemand(const WorkingCopy& copy, DemandList& list) {
    try {
        Refill(copy.Open(), list);
    } catch (const RunTimeError&) {  // list and sum keep what they show
        return;
    }
}

RecordSet DemandRowOfLine(const Database& database, int line) {
    RecordSet demand = RowsByVolume(database);
    for (int point = 0;; demand.MoveNext()) {
        if (!IsDemandPoint(demand)) {
            continue;
        }
        if (point == line) {
            return demand;
        }
        ++point;
    }
}

void ShowDemandRow(const Database& database, int line, TextBoxes& boxes) {
    const RecordSet demand = DemandRowOfLine(database, line);
    boxes.SetText(TextBox::txtVolume, VolumeText(VolumeOf(demand)));
    boxes.SetText(TextBox::txtProb, ProbabilityText(demand) + "%");
}

}  // namespace quarnel02
