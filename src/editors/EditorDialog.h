#pragma once

#include <QDialog>
#include <functional>

namespace quarnel02 {

/// A modal window that edits the model. Enter presses the button that has the focus and leaves
/// the others alone; in a text box it goes where the box sends it.
class EditorDialog : public QDialog {
    Q_OBJECT

  public:
    explicit EditorDialog(QWidget* parent);

  protected:
    /// Runs what an event does. A run-time error ends it with one critical message and leaves the
    /// window open. False after an error.
    bool RunEvent(const std::function<void()>& event);

    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace quarnel02
