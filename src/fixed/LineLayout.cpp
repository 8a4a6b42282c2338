#include "fixed/LineLayout.h"

#include <algorithm>

namespace quarnel02 {

namespace {

constexpr double kGapAcross = 330;  ///< between cards, for the flow
constexpr double kGapDown = 300;
constexpr double kSmallestIcon = 360;
constexpr double kLargestIcon = 2100;
constexpr int kTextLines = 4;  ///< of a full card
constexpr int kFlatLines = 3;

int RowsOf(int stations, int perRow) {
    return (stations + perRow - 1) / perRow;
}

/// The icon of full cards in rows of `perRow`; below 0 where not even their texts fit.
double IconIn(const Extent& area, int stations, int perRow, double text, double line) {
    const int rows = RowsOf(stations, perRow);
    const double width = (area.Right - area.Left + kGapAcross) / perRow - kGapAcross - kCardPadding;
    const double height = (area.Bottom - area.Top + kGapDown) / rows - kGapDown - kCardPadding;
    return width < text ? -1 : std::min({width, height - kTextLines * line, kLargestIcon});
}

/// The row length with the largest icons; of equal ones the longest rows.
LineLayout FullLayout(int stations, const Extent& area, double text, double line) {
    LineLayout layout;
    for (int per_row = stations; per_row >= 1; --per_row) {
        const double icon = IconIn(area, stations, per_row, text, line);
        if (icon > layout.Icon) {
            layout.Icon = icon;
            layout.PerRow = per_row;
        }
    }
    return layout;
}

LineLayout FlatLayout(int stations, const Extent& area, double card) {
    const double width = area.Right - area.Left;
    LineLayout layout;
    layout.IsFlat = true;
    layout.PerRow =
        std::clamp(static_cast<int>((width + kGapAcross) / (card + kGapAcross)), 1, stations);
    return layout;
}

/// Centred in the area, or from its upper left corner where it is too small.
void PlaceCards(LineLayout& layout, int stations, const Extent& area, double width, double height) {
    const int rows = RowsOf(stations, layout.PerRow);
    layout.PerRow = RowsOf(stations, rows);
    const double whole = rows * (height + kGapDown) - kGapDown;
    const double top = std::max(area.Top, (area.Top + area.Bottom - whole) / 2);
    for (int place = 0; place < stations; ++place) {
        const int row = place / layout.PerRow;
        const int in_row = std::min(layout.PerRow, stations - row * layout.PerRow);
        const double across = in_row * (width + kGapAcross) - kGapAcross;
        const double left = std::max(area.Left, (area.Left + area.Right - across) / 2) +
                            place % layout.PerRow * (width + kGapAcross);
        const double y = top + row * (height + kGapDown);
        layout.Cards.push_back({left, y, left + width, y + height});
        layout.Right = std::max(layout.Right, left + width);
    }
    layout.Bottom = layout.Cards.back().Bottom;
}

}  // namespace

LineLayout LayOutLine(int stations, const Extent& area, const CardTexts& texts, double line) {
    LineLayout layout = FullLayout(stations, area, texts.Full, line);
    if (layout.Icon >= kSmallestIcon) {
        PlaceCards(layout, stations, area, std::max(texts.Full, layout.Icon) + kCardPadding,
                   layout.Icon + kTextLines * line + kCardPadding);
        return layout;
    }
    const double icon = 2 * line;
    const double width = icon + texts.Flat + 2 * kCardPadding;
    layout = FlatLayout(stations, area, width);
    layout.Icon = icon;
    PlaceCards(layout, stations, area, width, kFlatLines * line + kCardPadding);
    return layout;
}

}  // namespace quarnel02
