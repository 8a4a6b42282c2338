#pragma once

#include <QLineEdit>

namespace quarnel02 {

/// A text box that selects its whole text when it gets the focus, and tells of Enter and of
/// losing the focus to another control. A menu, a message box or another window in front does
/// not take the focus in this sense.
class FieldBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit FieldBox(QWidget* parent = nullptr);

    /// Shows by bold letters and a bar at the left edge that the text is not stored yet.
    void SetUnsaved(bool unsaved);
    [[nodiscard]] bool IsUnsaved() const { return m_unsaved; }

  signals:
    void Entered();  ///< Enter was pressed; the key is not swallowed
    void Left();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool m_entering = false;  ///< the mouse press that brought the focus is not yet released
    bool m_unsaved = false;
};

}  // namespace quarnel02
