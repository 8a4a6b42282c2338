#pragma once

#include <QDialog>
#include <QMessageBox>
#include <QObject>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace quarnel02::test {

/// Answers modal dialogs through their own controls, in the order given, as soon as they appear.
/// A dialog without an answer is closed, so that no test hangs. `Seen` says what appeared:
/// "critical: text", "none: text", "input[title|proposal]: prompt", "dialog: title".
class Answers : public QObject {
  public:
    using Answer = std::function<void(QDialog&)>;

    Answers();
    ~Answers() override;

    void Add(Answer answer) { m_answers.push_back(std::move(answer)); }
    /// Presses a button of a message box.
    void Press(QMessageBox::StandardButton button);
    /// Types over the proposal of an input box and presses Enter.
    void Type(const std::string& text);
    /// Presses Enter on the proposal of an input box.
    void Accept();
    /// Presses Escape.
    void Escape();

    [[nodiscard]] bool AllGiven() const { return m_answers.empty(); }
    std::vector<std::string> Seen;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Give(QDialog& dialog);

    std::deque<Answer> m_answers;
};

}  // namespace quarnel02::test
