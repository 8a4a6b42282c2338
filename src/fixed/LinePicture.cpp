#include "fixed/LinePicture.h"

#include <algorithm>
#include <string>

#include "basic/Numbers.h"

namespace quarnel02 {

namespace {

// Measures of a figure of full size, twips.
constexpr double kStep = 1000;       ///< from one figure to the next
constexpr double kIcon = 900;        ///< side of an icon
constexpr double kLabelDown = 1000;  ///< from a figure's top to its label
constexpr double kLabelRight = 330;  ///< from a figure's left edge to its label
constexpr double kRow = 1250;        ///< figure and label

// Tops of the rows as shares of the paper's height.
constexpr double kUpperRow = 0.15;
constexpr double kOnlyRow = 0.26;
constexpr double kLowerRow = 0.55;

int RowsNeeded(int stations, double scale, double width) {
    const int per_row = std::max(1, static_cast<int>(width / (kStep * scale)));
    return (stations + per_row - 1) / per_row;
}

std::string QuantityText(int quantity) {
    return "Qty: " + NumberText(quantity);
}

/// At full size a label of one digit stands at kLabelRight; longer and smaller ones keep its
/// centre.
void PrintQuantity(Picture& picture, double left, double top, double scale, int quantity) {
    const std::string label = QuantityText(quantity);
    const double centre = kLabelRight + TextWidth(QuantityText(1), Font{}) / 2;
    picture.CurrentX = left + centre * scale - TextWidth(label, picture.TextFont) / 2;
    picture.CurrentY = top + kLabelDown * scale;
    picture.Print(label);
}

/// Labels as large as fits between neighbouring figures and rows, at most 8 points.
Font LabelFont(std::span<const StationFigure> stations, const LineLayout& layout) {
    constexpr double share_of_step = 0.8;
    Font font;
    double widest = 0;
    for (const StationFigure& station : stations) {
        widest = std::max(widest, TextWidth(QuantityText(station.Quantity), font));
    }
    const double width = share_of_step * kStep * layout.Scale;
    const double height = layout.RowStep - kLabelDown * layout.Scale;
    font.Points *= std::min({1.0, width / widest, height / LineHeight(font)});
    return font;
}

bool IsResourceType(int type) {
    return type >= 0 && type <= static_cast<int>(ResourceType::Automated);
}

}  // namespace

LineLayout LayOutLine(int stations, double width, double height) {
    const int at_full_size = RowsNeeded(stations, 1, width);
    const int per_row = std::max(1, static_cast<int>(width / kStep));
    if (at_full_size <= 1) {
        return {1, per_row, 1, kOnlyRow * height, kRow};
    }
    if (at_full_size == 2 && (1 - kLowerRow) * height >= kRow) {
        return {1, (stations + 1) / 2, 2, kUpperRow * height, (kLowerRow - kUpperRow) * height};
    }
    const double room = (1 - kUpperRow) * height;
    double scale = 1;
    while (scale > 0.1 && RowsNeeded(stations, scale, width) * kRow * scale > room) {
        scale -= 0.05;
    }
    const int rows = RowsNeeded(stations, scale, width);
    return {scale, (stations + rows - 1) / rows, rows, kUpperRow * height, room / rows};
}

void DrawLine(Picture& picture, std::span<const StationFigure> stations) {
    picture.Clear();
    picture.TextFont = {};
    PictureLines lines(picture);
    LinePrinter printer(lines);
    printer.Print("Graphical Representation");
    printer.Print("------------------------------------");

    const int count = static_cast<int>(stations.size());
    const LineLayout layout = LayOutLine(count, picture.Width(), picture.Height());
    picture.TextFont = LabelFont(stations, layout);
    for (int place = 0; place < count; ++place) {
        const int row = place / layout.PerRow;
        const int in_row = std::min(layout.PerRow, count - row * layout.PerRow);
        const double step = kStep * layout.Scale;
        const double left =
            picture.Width() / 2 - in_row * step / 2 + (place % layout.PerRow) * step;
        const double top = layout.FirstTop + row * layout.RowStep;
        const auto& [type, quantity] = stations[static_cast<std::size_t>(place)];
        if (IsResourceType(type)) {
            picture.Icon(static_cast<ResourceType>(type), left + (kStep - kIcon) / 2 * layout.Scale,
                         top, kIcon * layout.Scale);
        }
        PrintQuantity(picture, left, top, layout.Scale, quantity);
    }
    picture.TextFont = {};
}

}  // namespace quarnel02
