#pragma once

#include <QList>

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

  private:
    void NoteWidths();
    void Widen(int first, int last);

    QList<int> m_fitted;  ///< widths of the columns as they were fitted last
};

}  // namespace quarnel02
