#pragma once

#include <QHeaderView>
#include <functional>

namespace quarnel02 {

/// Headings of a sheet: that of the current row or column is lit, names that are too long end in
/// "…" and come up whole as a tool tip, columns can be widened.
class SheetHeader : public QHeaderView {
    Q_OBJECT

  public:
    /// `mayAct` is asked before a click selects anything.
    SheetHeader(Qt::Orientation orientation, std::function<bool()> mayAct, QWidget* parent);

    /// Lights the heading of that section; -1 lights none.
    void Light(int section);
    [[nodiscard]] int Lit() const { return m_lit; }

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintSection(QPainter* painter, const QRect& place, int section) const override;

  private:
    void PaintFace(QPainter& painter, const QRect& place, int section) const;

    std::function<bool()> m_mayAct;
    int m_lit = -1;
};

}  // namespace quarnel02
