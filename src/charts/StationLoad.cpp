#include "charts/StationLoad.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"
#include "picture/Chart.h"
#include "picture/Inks.h"
#include "study/StationTime.h"

namespace quarnel02 {

namespace {

constexpr Colour kTask{21, 101, 192};
constexpr Colour kOtherTask{66, 165, 245};
constexpr Colour kToolChange{239, 140, 24};
constexpr Colour kTransport{155, 165, 178};
constexpr Colour kUptimeLoss{205, 211, 219};

/// A part of a bar.
struct LoadPart {
    Colour Fill;
    double Seconds;
    std::string Number;  ///< of the task; empty for the rest
    std::string Words;
};

struct LoadBar {
    std::string Name;
    double Seconds;
    std::vector<LoadPart> Parts;
};

struct LoadValues {
    std::vector<LoadBar> Bars;
    double Available;
};

std::string SecondsText(double seconds) {
    return Format(seconds, "#,##0.0") + " s";
}

std::string TaskWords(const LineModel& model, int task) {
    const std::string& description = model.Tasks()[static_cast<std::size_t>(task) - 1].Description;
    return "Task " + NumberText(task) + (description.empty() ? "" : ", " + description);
}

LoadPart PartOf(const LineModel& model, const TimePart& part) {
    switch (part.Kind) {
        case TimeKind::Task:
            return {part.Task % 2 == 0 ? kOtherTask : kTask, part.Seconds, NumberText(part.Task),
                    TaskWords(model, part.Task)};
        case TimeKind::ToolChange:
            return {kToolChange, part.Seconds, "", "Tool changes"};
        case TimeKind::Transport:
            return {kTransport, part.Seconds, "", "Transport"};
        case TimeKind::UptimeLoss:
            break;
    }
    return {kUptimeLoss, part.Seconds, "", "Uptime loss"};
}

LoadBar BarOf(const LineModel& model, const StationRow& row, int number) {
    const std::string quantity =
        row.Group.Stations > 1 ? " x" + NumberText(row.Group.Stations) : std::string();
    LoadBar bar{NumberText(number) + " " + row.Resource + quantity, row.Time, {}};
    for (const TimePart& time : TimePartsOf(model, row.Group)) {
        LoadPart part = PartOf(model, time);
        part.Words = bar.Name + ": " + part.Words + ", " + SecondsText(part.Seconds) + " of " +
                     SecondsText(row.Time);
        bar.Parts.push_back(std::move(part));
    }
    return bar;
}

ChartFrame LoadFrame(const LoadValues& values) {
    ChartFrame frame;
    frame.Title = "Station load";
    frame.X.Title = "Station";
    frame.Y = {0, values.Available, "Seconds per unit", false, false};
    for (const LoadBar& bar : values.Bars) {
        frame.Y.High = std::max(frame.Y.High, bar.Seconds);
        frame.Places.push_back(bar.Name);
        frame.BarLabels.push_back(SecondsText(bar.Seconds));
        frame.ShortBarLabels.push_back(Format(bar.Seconds, "#,##0.0"));
    }
    frame.Legend = {{"tasks", kTask, false, {}},
                    {"tool changes", kToolChange, false, {}},
                    {"transport", kTransport, false, {}},
                    {"uptime loss", kUptimeLoss, false, {}},
                    {"available " + SecondsText(values.Available), kRedInk, true, {}}};
    return frame;
}

/// The number of a task on its part, where that has room.
void NumberPart(Picture& picture, const BoxFigure& box, const LoadPart& part) {
    constexpr Colour on_dark_task{255, 255, 255};
    constexpr Colour on_light_task{0, 0, 0};
    const Font font = picture.PageFont();
    const double width = picture.WidthOf(part.Number, font);
    const double usual = picture.WidthOf("00", font);
    if (!part.Number.empty() && box.Height >= LineHeight(font) &&
        box.Width >= std::max(width, usual)) {
        picture.Text(box.X + (box.Width - width) / 2, box.Y + (box.Height - LineHeight(font)) / 2,
                     part.Number, font, part.Fill == kTask ? on_dark_task : on_light_task);
        picture.Describe(part.Words);
    }
}

void DrawLoadBar(Picture& picture, Chart& chart, const LoadBar& bar, double left, double right) {
    double from = 0;
    for (const LoadPart& part : bar.Parts) {
        if (part.Seconds <= 0) {
            continue;
        }
        chart.Bar(left, right, from, from + part.Seconds, part.Fill);
        picture.Describe(part.Words);
        const BoxFigure box = std::get<BoxFigure>(picture.Figures().back());
        picture.Add(LineFigure{box.X, box.Y, box.X + box.Width, box.Y, 1, kPaper});
        NumberPart(picture, box, part);
        from += part.Seconds;
    }
}

double TopOf(const LoadBar& bar) {
    double top = bar.Seconds;
    for (double sum = 0; const LoadPart& part : bar.Parts) {
        sum += std::max(part.Seconds, 0.0);
        top = std::max(top, sum);
    }
    return top;
}

void DrawLoads(Picture& picture, const LoadValues& values) {
    constexpr double share_of_place = 0.6;
    constexpr double widest = 1500;
    Chart chart(picture, LoadFrame(values));
    const double half = std::min(share_of_place * (chart.ToX(1) - chart.ToX(0)), widest) / 2;
    chart.Limit(values.Available, kRedInk);
    picture.Describe("Available cycle time " + SecondsText(values.Available));
    for (std::size_t place = 0; place < values.Bars.size(); ++place) {
        const double middle = chart.ToX(static_cast<double>(place) + 0.5);
        DrawLoadBar(picture, chart, values.Bars[place], middle - half, middle + half);
    }
    for (std::size_t place = 0; place < values.Bars.size(); ++place) {
        chart.LabelBar(place, TopOf(values.Bars[place]), kInk);
    }
}

}  // namespace

void DrawStationLoad(Picture& picture, const LineModel& model, const LineTable& table) {
    LoadValues values{{}, table.Basis.AvailableCycleTime};
    for (const StationRow& row : table.Rows) {
        values.Bars.push_back(BarOf(model, row, static_cast<int>(values.Bars.size()) + 1));
    }
    if (values.Bars.empty()) {
        picture.Clear();
        return;
    }
    picture.Compose([shown = std::move(values)](Picture& each) { DrawLoads(each, shown); });
}

}  // namespace quarnel02
