#pragma once

#include <QLineEdit>

namespace quarnel02 {

/// A text box that selects its whole text when it gets the focus, and tells of Enter and of
/// losing the focus to another control. A menu, a message box or another window in front does
/// not take the focus in this sense.
///
/// Enter is used up here: whatever gets the focus next does not see it, and a key held down
/// counts once. The text never holds a control character, however it came in: what is pasted,
/// dropped or typed loses line breaks, tabs and no-break blanks at its ends and has one blank in
/// their place inside (OneLine). A box that is to take any character has its validator removed.
///
/// The keys of undo and redo go to the window once there is no typing left to undo here.
class FieldBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit FieldBox(QWidget* parent = nullptr);

    /// Shows by bold letters and a bar at the left edge that the text is not stored yet.
    void SetUnsaved(bool unsaved);
    [[nodiscard]] bool IsUnsaved() const { return m_unsaved; }

    /// What was typed has been stored: it is no longer this box that can undo it.
    void ForgetTyping();

  signals:
    void Entered();  ///< Enter was pressed
    void Left();

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool m_entering = false;  ///< the mouse press that brought the focus is not yet released
    bool m_unsaved = false;
};

}  // namespace quarnel02
