#pragma once

#include <QLabel>

namespace quarnel02 {

/// One line of plain text that gives way where there is no room for all of it: it is cut in the
/// middle, with an ellipsis, and the tool tip shows it whole.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(QWidget* parent = nullptr);

    /// `more` is for the tool tip alone; without it that is the text.
    void Show(const QString& text, const QString& more = {});

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarnel02
