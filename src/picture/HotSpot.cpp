#include "picture/HotSpot.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "basic/NumberFormat.h"

namespace quarnel02 {

namespace {

std::string WholeText(double value) {
    return Format(value, "#,##0");
}

std::string DollarText(double value) {
    constexpr double with_cents_below = 100;
    return Format(value, std::fabs(value) < with_cents_below ? "$#,##0.00" : "$#,##0");
}

void Replace(std::string& text, std::string_view mark, const std::string& words) {
    for (auto at = text.find(mark); at != std::string::npos;
         at = text.find(mark, at + words.size())) {
        text.replace(at, mark.size(), words);
    }
}

std::string Filled(std::string text, const std::string& x, const std::string& y) {
    Replace(text, "{x}", x);
    Replace(text, "{y}", y);
    return text;
}

std::string RangeText(const std::string& from, const std::string& to) {
    return from == to ? from : from + " to " + to;
}

/// How far along the line the point nearest to (x, y) lies, 0 to 1.
double ShareAlong(const LineFigure& line, double x, double y) {
    const double dx = line.X2 - line.X1;
    const double dy = line.Y2 - line.Y1;
    const double square = dx * dx + dy * dy;
    return square > 0 ? std::clamp(((x - line.X1) * dx + (y - line.Y1) * dy) / square, 0.0, 1.0)
                      : 0;
}

}  // namespace

std::string WordsOf(const HotSpot& spot) {
    if (!spot.Ends) {
        return spot.Text;
    }
    const Reading& ends = *spot.Ends;
    return Filled(spot.Text, RangeText(WholeText(ends.XStart), WholeText(ends.XEnd)),
                  RangeText(DollarText(ends.YStart), DollarText(ends.YEnd)));
}

std::string WordsAt(const HotSpot& spot, const PictureFigure& figure, double x, double y) {
    const auto* line = std::get_if<LineFigure>(&figure);
    if (!spot.Ends || line == nullptr) {
        return WordsOf(spot);
    }
    const Reading& ends = *spot.Ends;
    const double share = ShareAlong(*line, x, y);
    return Filled(spot.Text, WholeText(ends.XStart + share * (ends.XEnd - ends.XStart)),
                  DollarText(ends.YStart + share * (ends.YEnd - ends.YStart)));
}

}  // namespace quarnel02
