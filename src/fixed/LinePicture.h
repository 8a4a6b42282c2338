#pragma once

#include <span>

#include "picture/Picture.h"

namespace quarnel02 {

/// A station of the drawn line: its equipment class as Resources.Type stores it, and the number
/// of parallel units.
struct StationFigure {
    int Type;
    int Quantity;
};

/// Where the figures of a line stand on the paper.
struct LineLayout {
    double Scale;  ///< 1 for figures of full size
    int PerRow;    ///< figures in a full row
    int Rows;
    double FirstTop;  ///< top of the first row, twips
    double RowStep;   ///< distance of the rows, twips
};

/// Largest figures with which `stations` stations fit on paper of that size, twips: one row in
/// the upper middle, two rows, or more and smaller ones.
LineLayout LayOutLine(int stations, double width, double height);

/// Draws the line under the heading "Graphical Representation": an icon per station in line
/// order, rows centred, "Qty: n" under each. The picture is cleared first.
void DrawLine(Picture& picture, std::span<const StationFigure> stations);

}  // namespace quarnel02
