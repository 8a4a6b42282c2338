#pragma once

#include "widgets/SheetView.h"

namespace quarnel02 {

/// The sheet of the matrix: of a pair's figures the first one stands out, and empty, marked and
/// impossible pairs look different (MatrixLook).
class MatrixValuesView : public SheetView {
    Q_OBJECT

  public:
    explicit MatrixValuesView(QWidget* parent = nullptr);
    [[nodiscard]] QSize sizeHint() const override;

    /// Headings and columns as wide as the model asks for, within reason.
    void FitSections();
};

}  // namespace quarnel02
