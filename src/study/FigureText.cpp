#include "study/FigureText.h"

#include <cmath>

#include "basic/NumberFormat.h"
#include "basic/Numbers.h"

namespace quarnel02 {

std::string FigureText(double value) {
    constexpr double seen = 0.001;
    if (value != 0 && std::fabs(value) < seen) {
        return NumberText(value);
    }
    std::string text = Format(value, "#,##0.####");
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text;
}

std::string CountText(double count, std::string_view singular, std::string_view plural) {
    return FigureText(count) + " " + std::string(count == 1 ? singular : plural);
}

}  // namespace quarnel02
