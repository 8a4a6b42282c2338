#pragma once

#include <QWidget>
#include <memory>

#include "studies/StudyInput.h"

namespace quarnel02 {

class FieldBox;

namespace Ui {
class QuestionBar;
}

/// The boxes that say which design the study is about. A figure that cannot be is said under them;
/// the question then stays as it was.
class QuestionBar : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QuestionBar)

  public:
    explicit QuestionBar(QWidget* parent = nullptr);
    ~QuestionBar() override;

    void SetQuestion(const StudyQuestion& question);
    [[nodiscard]] const StudyQuestion& Question() const { return m_question; }

  signals:
    /// The user asks something else.
    void Changed();

  private:
    void ConnectBox(FieldBox& box) const;
    void Take();
    [[nodiscard]] StudyQuestion Typed() const;

    std::unique_ptr<Ui::QuestionBar> m_ui;
    StudyQuestion m_question;
};

}  // namespace quarnel02
