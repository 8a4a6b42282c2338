#pragma once

#include <string>
#include <vector>

#include "picture/TextMeasure.h"

namespace quarnel02 {

/// Range of an axis and the distance of its ticks.
struct AxisScale {
    double Low;
    double High;
    double Step;
};

/// A range that holds `low` to `high` in round steps, of which there are at most `most`.
AxisScale RoundScale(double low, double high, int most);

/// A volume in thousands: "12.5K".
std::string ThousandsText(double volume);

/// An amount in short: "$1.1M", "$940K", "$12".
std::string ShortDollars(double amount);

/// What an axis shows, in units of the data.
struct Axis {
    double Low = 0;
    double High = 1;
    std::string Title;
    bool InThousands = false;  ///< labels such as "20K"
    bool Money = false;        ///< labels such as "$1,200"
};

/// How a value is written at a tick of a scale.
std::string TickText(const Axis& axis, const AxisScale& scale, double value);

/// The values of all ticks.
std::vector<double> TicksOf(const AxisScale& scale);

/// Width of the widest text at a tick, twips.
double WidestTick(const Axis& axis, const AxisScale& scale, const Font& font,
                  const TextMeasure& measure);

}  // namespace quarnel02
