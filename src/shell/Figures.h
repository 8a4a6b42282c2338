#pragma once

#include <string>
#include <string_view>

namespace quarnel02 {

/// A number that the planner enters, and what it may be.
struct Figure {
    std::string_view Table;
    std::string_view Field;
    std::string_view Caption;  ///< its name on screen, in lower case: "uptime"
    std::string_view Unit;     ///< written behind the number: " %"
    double Low;                ///< least value allowed
    double High;               ///< greatest value allowed; infinity for none
    bool AboveLow;             ///< `Low` itself is not allowed
    bool Whole;                ///< only whole numbers
};

/// The figure of a field, letter case aside; nullptr for a field without limits.
const Figure* FindFigure(std::string_view table, std::string_view field);

/// Why `value` cannot be: "uptime is 0 %; it must be above 0 and at most 100."; "" when it can.
/// What is not finite never can.
std::string Objection(const Figure& figure, double value);

/// The same where nothing is entered: "uptime is empty; it must be above 0 and at most 100."
std::string ObjectionToNothing(const Figure& figure);

}  // namespace quarnel02
