#include "jet/RandomModel.h"

#include <array>
#include <cmath>
#include <limits>

#include "jet/Utf16.h"

namespace quarnel02::jet {

namespace {

constexpr auto kLong = ColumnType::LongInteger;
constexpr auto kDouble = ColumnType::Double;
constexpr auto kSingle = ColumnType::Single;
constexpr auto kText = ColumnType::Text;
constexpr int kOneInSo = 12;  ///< values that are Null or at an end of their range

using Random = std::mt19937;

int Below(int end, Random& random) {
    return std::uniform_int_distribution(0, end - 1)(random);
}

Value RandomWhole(Random& random) {
    switch (Below(kOneInSo, random)) {
        case 0:
            return std::numeric_limits<std::int32_t>::min();
        case 1:
            return std::numeric_limits<std::int32_t>::max();
        default:
            return std::int64_t{Below(100000, random) - 50000};
    }
}

double RandomReal(Random& random) {
    constexpr int widest = 300;
    const double mantissa = std::uniform_real_distribution(-10.0, 10.0)(random);
    return Below(kOneInSo, random) == 0 ? std::ldexp(mantissa, Below(2 * widest, random) - widest)
                                        : mantissa * 1000;
}

Value RandomValue(const Column& column, Random& random) {
    if (Below(kOneInSo, random) == 0) {
        return {};
    }
    switch (column.Type) {
        case kLong:
            return RandomWhole(random);
        case kDouble:
            return RandomReal(random);
        case kSingle:
            return static_cast<double>(std::uniform_real_distribution(-1e30F, 1e30F)(random));
        default:
            return RandomText(static_cast<std::size_t>(column.Characters), random);
    }
}

NewTable Table(const char* name, std::vector<Column> columns, int rows, Random& random) {
    NewTable table{name, std::move(columns), {}};
    for (int i = 0; i < rows; ++i) {
        Row row;
        for (const Column& column : table.Columns) {
            row.push_back(RandomValue(column, random));
        }
        table.Rows.push_back(std::move(row));
    }
    return table;
}

}  // namespace

std::string RandomText(std::size_t mostUnits, Random& random) {
    static constexpr std::array<std::u16string_view, 5> scripts = {
        u"abcdefghijklmnopqrstuvwxyz 0123456789,.;-+", u"äöüÄÖÜß×°§éèñ", u"αβγδεΩΣϕ",
        u"組立工程中文字符Āā", u"—–€“”Łódź"};
    const auto length = static_cast<std::size_t>(Below(3, random) == 0 ? static_cast<int>(mostUnits)
                                                                       : Below(40, random));
    const bool mixed = Below(2, random) == 0;
    std::u16string text;
    while (text.size() < std::min(length, mostUnits)) {
        const auto script = scripts.at(mixed ? static_cast<std::size_t>(Below(5, random)) : 0);
        text += script[static_cast<std::size_t>(Below(static_cast<int>(script.size()), random))];
    }
    return Utf8Of(text);
}

std::vector<NewTable> RandomModel(int tasks, int resources, Random& random) {
    const int arcs = tasks * (tasks + 1) / 2;
    return {
        Table("Gen",
              {{"Resources", kLong},
               {"Tasks", kLong},
               {"Days", kDouble},
               {"ACF", kDouble},
               {"LaborCost", kDouble},
               {"TransportTime", kDouble},
               {"Penalty", kDouble},
               {"Product", kText}},
              1, random),
        Table("Tasks", {{"TaskId", kLong}, {"Description", kText}}, tasks, random),
        Table("Resources",
              {{"ResourceId", kLong},
               {"ShortName", kText},
               {"Description", kText},
               {"Type", kLong},
               {"FixedCost", kDouble},
               {"VarCost", kDouble},
               {"UpTime", kDouble},
               {"ICF", kDouble},
               {"ToolChange", kDouble},
               {"StatPerWrk", kDouble}},
              resources, random),
        Table("Matrix",
              {{"ResourceId", kLong},
               {"TaskId", kLong},
               {"TaskTime", kDouble},
               {"ToolNum", kLong},
               {"ToolCost", kDouble}},
              tasks * resources, random),
        Table("Demand", {{"Volume", kSingle}, {"Prob", kSingle}}, 10, random),
        Table("Arcs",
              {{"ArcId", kLong},
               {"TaskStart", kLong},
               {"TaskEnd", kLong},
               {"Midpoint", kDouble},
               {"Radius", kDouble},
               {"Start", kDouble},
               {"End", kDouble}},
              arcs, random),
        Table("Pathways",
              {{"PathId", kLong},
               {"ArcId", kLong},
               {"ResourceId", kLong},
               {"Feasible", kLong},
               {"Cost", kDouble},
               {"Time", kDouble},
               {"Stations", kLong},
               {"Investment", kDouble},
               {"AnnualLabor", kDouble}},
              arcs * resources, random),
        Table("BestPaths",
              {{"ThisPath", kLong}, {"PathId", kLong}, {"SubPath", kLong}, {"PathCost", kDouble}},
              tasks, random)};
}

std::string Written(const std::vector<NewTable>& tables) {
    using namespace std::chrono;
    return WriteDatabase(tables, sys_days(year{2026} / November / 21) + hours(13));
}

}  // namespace quarnel02::jet
