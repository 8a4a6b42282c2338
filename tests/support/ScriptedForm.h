#pragma once

#include <deque>
#include <string>
#include <vector>

#include "shell/HeadlessForm.h"

namespace quarnel02::test {

/// A main form for tests. Answers to dialogs are given beforehand and taken in order; everything
/// the form is asked, told or made to start is recorded in `Events` as it happens.
///
/// Events read: "message[critical]: text", "ask[none]: question -> yes",
/// "input[title|proposal]: prompt -> answer", "start: command line", "select: 2", "do events",
/// "busy", "idle", "title: text", "sum: 100% rgb(0,0,128)", "show status: text", "status: text",
/// "progress: 1/6", "hide status", "notice: text", "end program".
class ScriptedForm : public HeadlessForm {
  public:
    using HeadlessForm::HeadlessForm;

    std::deque<bool> YesNoAnswers;
    std::deque<std::string> InputAnswers;
    std::vector<std::string> Events;
    std::vector<Answer> ProposedAnswers;  ///< of the Yes/No questions, in order
    int Looks = 0;                        ///< how often a solve has looked at the status window
    int CancelAt = 0;                     ///< the look that cancels the solve, from 1; 0 is none

    void SetTitle(const std::string& title) override;
    void SelectDemand(int line) override;
    void ShowDemandSum(const std::string& text, Colour colour) override;
    void ShowMessage(const std::string& text, MessageIcon icon) override;
    /// Throws std::logic_error when no answer is left; so does InputBox.
    bool AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) override;
    std::string InputBox(const std::string& prompt, const std::string& title,
                         const std::string& proposal) override;
    void ShowStatus(const std::string& text) override;
    void SetStatus(const std::string& text) override;
    void SetProgress(int done, int total) override;
    void Look() override;
    void HideStatus() override;
    void Notice(const std::string& text) override;
    void EndProgram() override;
    void DoEvents() override;
    void SetBusy(bool busy) override;
    void StartProgram(const std::string& commandLine) override;
};

}  // namespace quarnel02::test
