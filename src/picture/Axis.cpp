#include "picture/Axis.h"

#include <algorithm>
#include <cmath>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"

namespace quarnel02 {

AxisScale RoundScale(double low, double high, int most) {
    const double span = high > low ? high - low : std::max(std::fabs(high), 1.0);
    const double power = std::pow(10, std::floor(std::log10(span / most)));
    double step = power;
    for (const double factor : {1.0, 2.0, 2.5, 5.0, 10.0, 20.0}) {
        step = factor * power;
        if (std::ceil(high / step) - std::floor(low / step) <= most) {
            break;
        }
    }
    const double first = std::floor(low / step) * step;
    return {first, std::max(std::ceil(high / step) * step, first + step), step};
}

std::string ThousandsText(double volume) {
    const double thousands = volume / 1000;
    const bool whole = std::fabs(thousands - std::round(thousands)) < 0.0005;
    return (whole ? Format(thousands, "###0") : NumberText(std::round(thousands * 1000) / 1000)) +
           "K";
}

std::string ShortDollars(double amount) {
    constexpr double million = 1e6;
    constexpr double thousand = 1e3;
    if (amount >= million) {
        return "$" + NumberText(std::round(amount / million * 10) / 10) + "M";
    }
    return amount >= thousand ? Format(amount / thousand, "$#,##0") + "K"
                              : Format(amount, "$#,##0");
}

std::string TickText(const Axis& axis, const AxisScale& scale, double value) {
    if (axis.InThousands) {
        return ThousandsText(value);
    }
    if (axis.Money) {
        return Format(value, scale.Step < 1 ? "$#,##0.00" : "$#,##0");
    }
    return NumberText(std::round(value * 1e6) / 1e6);
}

std::vector<double> TicksOf(const AxisScale& scale) {
    const auto steps = static_cast<int>(std::lround((scale.High - scale.Low) / scale.Step));
    std::vector<double> ticks;
    for (int tick = 0; tick <= steps; ++tick) {
        ticks.push_back(scale.Low + tick * scale.Step);
    }
    return ticks;
}

double WidestTick(const Axis& axis, const AxisScale& scale, const Font& font,
                  const TextMeasure& measure) {
    double widest = 0;
    for (const double tick : TicksOf(scale)) {
        widest = std::max(widest, measure.Width(TickText(axis, scale, tick), font));
    }
    return widest;
}

}  // namespace quarnel02
