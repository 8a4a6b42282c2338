#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <vector>

#include "studies/BackgroundWork.h"
#include "studies/ShownTable.h"
#include "studies/StudyInput.h"

class QPlainTextEdit;
class QStackedLayout;

namespace quarnel02 {

enum class PictureCommand;
class StudyPicture;
class StudyTableView;

/// A tab of the study window. It computes in the background from an input that stays as it is, and
/// shows either what came out or a text that says why there is nothing to show.
class StudyPage : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StudyPage)

  public:
    explicit StudyPage(QWidget* parent = nullptr);

    /// Another model or question; what is shown is then out of date until Compute. No input: there
    /// is nothing to study, as `why` says at once.
    void SetInput(std::optional<StudyInput> input, const std::string& why = {});
    /// Computes, in the background, unless what is shown is up to date or being computed, or the
    /// user has cancelled it.
    void Compute();
    /// What is being computed is given up.
    void GiveUp();
    /// The same on the user's word: the page says so, and computes its present input only when
    /// ComputeAgain asks for it.
    void Cancel();
    void ComputeAgain();

    /// Whether the page is to stand in the report of the model.
    void SetInReport(bool inReport) { m_inReport = inReport; }
    [[nodiscard]] bool IsInReport() const { return m_inReport; }

    [[nodiscard]] bool IsOutOfDate() const { return m_outOfDate; }
    [[nodiscard]] bool IsBusy() const { return m_work.IsRunning(); }
    /// Busy with what will be shown.
    [[nodiscard]] bool IsComputing() const { return m_computing; }
    [[nodiscard]] bool IsCancelled() const { return m_cancelled; }
    /// Of what is being computed.
    [[nodiscard]] WorkProgress Progress() const { return m_work.Progress(); }

    /// Those that are shown, the most important one first.
    [[nodiscard]] std::vector<StudyTableView*> Tables() const;
    [[nodiscard]] std::vector<StudyPicture*> Pictures() const;

    /// What is shown is about: "Design for 60,000 units a year in 1 shift."; "" for nothing yet.
    [[nodiscard]] const std::string& Subject() const { return m_subject; }
    /// The text that stands in place of tables and pictures; "" when these are shown.
    [[nodiscard]] std::string Message() const;

  signals:
    /// IsOutOfDate or IsBusy may have changed.
    void StateChanged();
    void SaveAsked(const quarnel02::ShownTable& table);
    void PictureAsked(const quarnel02::StudyPicture& picture, quarnel02::PictureCommand command);

  protected:
    /// Computes the page from its input; runs in another thread, so it takes along what the
    /// controls say. What it returns shows the outcome.
    virtual BackgroundWork::Work Work(const StudyInput& input) = 0;
    /// The tables and pictures of the page, as it lays them out.
    [[nodiscard]] virtual std::vector<StudyTableView*> AllTables() const = 0;
    [[nodiscard]] virtual std::vector<StudyPicture*> AllPictures() const { return {}; }
    /// What a study of this input is about, a sentence.
    [[nodiscard]] virtual std::string SubjectOf(const StudyInput& input) const;
    virtual void InputChanged(const StudyInput& /*input*/) {}

    /// What the form of the page is set up in.
    [[nodiscard]] QWidget* Contents() const { return m_contents; }
    void ConnectParts();
    /// Shows the page, or a text in its place.
    void ShowContents();
    void ShowText(const std::string& text);
    /// Shows the page although it may be out of date.
    void Reveal();
    /// What the controls of the page ask for is another study.
    void Recompute();

  private:
    void NoteCurrent();
    void SayInstead(const QString& text);

    QWidget* m_contents;
    QPlainTextEdit* m_text;
    QStackedLayout* m_layout;
    std::optional<StudyInput> m_input;
    bool m_outOfDate = false;
    bool m_inReport = false;
    std::string m_subject;
    bool m_computing = false;  ///< for the input as it is
    bool m_cancelled = false;  ///< by the user, for the input as it is
    BackgroundWork m_work;     ///< the last member: its thread ends first
};

}  // namespace quarnel02
