#include "support/ScriptedForm.h"

#include <stdexcept>

namespace quarnel02::test {

namespace {

std::string NameOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return "none";
        case MessageIcon::Information:
            return "information";
        case MessageIcon::Question:
            return "question";
        case MessageIcon::Critical:
            return "critical";
    }
    return "?";
}

template <class Answer>
Answer Next(std::deque<Answer>& answers, const std::string& question) {
    if (answers.empty()) {
        throw std::logic_error("The test has no answer to: " + question);
    }
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace

void ScriptedForm::SetTitle(const std::string& title) {
    Events.push_back("title: " + title);
}

void ScriptedForm::ShowDemandSum(const std::string& text, Colour colour) {
    Events.push_back("sum: " + text + " rgb(" + std::to_string(colour.Red) + "," +
                     std::to_string(colour.Green) + "," + std::to_string(colour.Blue) + ")");
}

void ScriptedForm::SelectDemand(int line) {
    Events.push_back("select: " + std::to_string(line));
    HeadlessForm::SelectDemand(line);
}

void ScriptedForm::ShowMessage(const std::string& text, MessageIcon icon) {
    Events.push_back("message[" + NameOf(icon) + "]: " + text);
}

bool ScriptedForm::AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) {
    ProposedAnswers.push_back(proposed);
    const bool yes = Next(YesNoAnswers, question);
    Events.push_back("ask[" + NameOf(icon) + "]: " + question + (yes ? " -> yes" : " -> no"));
    return yes;
}

std::string ScriptedForm::InputBox(const std::string& prompt, const std::string& title,
                                   const std::string& proposal) {
    std::string answer = Next(InputAnswers, prompt);
    Events.push_back("input[" + title + "|" + proposal + "]: " + prompt + " -> " + answer);
    return answer;
}

void ScriptedForm::ShowStatus(const std::string& text) {
    Events.push_back("show status: " + text);
}

void ScriptedForm::SetStatus(const std::string& text) {
    Events.push_back("status: " + text);
}

void ScriptedForm::SetProgress(int done, int total) {
    Events.push_back("progress: " + std::to_string(done) + "/" + std::to_string(total));
}

void ScriptedForm::Look() {
    if (++Looks == CancelAt) {
        throw SolveCancelled();
    }
}

void ScriptedForm::HideStatus() {
    Events.emplace_back("hide status");
}

void ScriptedForm::Notice(const std::string& text) {
    Events.push_back("notice: " + text);
}

void ScriptedForm::EndProgram() {
    Events.emplace_back("end program");
    HeadlessForm::EndProgram();
}

void ScriptedForm::DoEvents() {
    Events.emplace_back("do events");
}

void ScriptedForm::SetBusy(bool busy) {
    Events.emplace_back(busy ? "busy" : "idle");
}

void ScriptedForm::StartProgram(const std::string& commandLine) {
    Events.push_back("start: " + commandLine);
}

}  // namespace quarnel02::test
