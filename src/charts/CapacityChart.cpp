#include "charts/CapacityChart.h"

#include <algorithm>
#include <utility>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "picture/Chart.h"
#include "picture/Inks.h"

namespace quarnel02 {

namespace {

struct CapacityValues {
    std::vector<Reading> Segments;
    std::vector<CapacityMark> Marks;
    double Cheapest = 0;
    double Dearest = 0;
};

CapacityValues ValuesOf(const CostCurve& curve, std::vector<CapacityMark> marks) {
    CapacityValues values{{}, std::move(marks), 0, 0};
    values.Cheapest = static_cast<double>(curve.Segments().front().CostStart);
    for (const CurveSegment& each : curve.Segments()) {
        const Reading ends{static_cast<double>(each.Start), static_cast<double>(each.End),
                           static_cast<double>(each.CostStart), static_cast<double>(each.CostEnd)};
        values.Segments.push_back(ends);
        values.Cheapest = std::min({values.Cheapest, ends.YStart, ends.YEnd});
        values.Dearest = std::max({values.Dearest, ends.YStart, ends.YEnd});
    }
    return values;
}

/// Room for all marks and little more: the penalties of low capacities would take the rest.
Axis ExpectedCostAxis(const CapacityValues& values) {
    constexpr double foot_from = 0.5;
    constexpr double least_room = 1.2;
    constexpr double room = 1.25;
    double highest = least_room * values.Cheapest;
    for (const CapacityMark& mark : values.Marks) {
        highest = std::max(highest, values.Cheapest + room * (mark.Cost - values.Cheapest));
    }
    Axis axis{0, std::min(highest, values.Dearest), "Expected dollars per year", false, true};
    if (values.Cheapest > foot_from * axis.High) {
        axis.Low = std::max(0.0, values.Cheapest - (axis.High - values.Cheapest) / 4);
    }
    return axis;
}

/// The part of a segment that is not above the plot; the reading follows what is drawn.
Reading Below(Reading ends, double highest) {
    const auto volume_there = [whole = ends, highest] {
        return whole.XStart +
               (highest - whole.YStart) / (whole.YEnd - whole.YStart) * (whole.XEnd - whole.XStart);
    };
    if (ends.YStart > highest) {
        ends.XStart = volume_there();
        ends.YStart = highest;
    } else if (ends.YEnd > highest) {
        ends.XEnd = volume_there();
        ends.YEnd = highest;
    }
    return ends;
}

void DrawMarks(Picture& picture, Chart& chart, const std::vector<CapacityMark>& marks) {
    for (const CapacityMark& mark : marks) {
        chart.Ring(mark.Capacity, mark.Cost, kRedInk);
        picture.Describe(mark.Words);
    }
    for (std::size_t place = 0; place < marks.size(); ++place) {
        const std::string rank = NumberText(static_cast<int>(place) + 1);
        const bool cheapest = place == 0;
        chart.Label(marks[place].Capacity, marks[place].Cost,
                    cheapest ? rank + ": " + Format(marks[place].Cost, "$#,##0") : rank, kRedInk,
                    cheapest);
    }
}

void DrawValues(Picture& picture, const CapacityValues& values) {
    ChartFrame frame;
    frame.Title = "Expected cost over capacity";
    frame.X = {values.Segments.front().XStart, values.Segments.back().XEnd,
               "Capacity in three shifts (units/year)", true, false};
    frame.Y = ExpectedCostAxis(values);
    Chart chart(picture, std::move(frame));
    for (const Reading& ends : values.Segments) {
        if (std::min(ends.YStart, ends.YEnd) <= chart.Highest()) {
            const Reading shown = Below(ends, chart.Highest());
            chart.Line(shown.XStart, shown.YStart, shown.XEnd, shown.YEnd, kBlueInk, 2);
            picture.Describe("Capacity {x}: {y} expected a year", shown);
        }
    }
    DrawMarks(picture, chart, values.Marks);
}

}  // namespace

void DrawCapacities(Picture& picture, const CostCurve& expectedCosts,
                    std::vector<CapacityMark> marks) {
    if (expectedCosts.IsEmpty()) {
        picture.Clear();
        return;
    }
    picture.Compose([values = ValuesOf(expectedCosts, std::move(marks))](Picture& each) {
        DrawValues(each, values);
    });
}

}  // namespace quarnel02
