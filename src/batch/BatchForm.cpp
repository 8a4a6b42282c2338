#include "batch/BatchForm.h"

#include <iostream>
#include <utility>

namespace quarnel02 {

BatchForm::BatchForm(std::filesystem::path applicationDirectory, BatchAnswers answers)
    : HeadlessForm(std::move(applicationDirectory)), m_answers(std::move(answers)) {}

int BatchForm::DemandCount() const {
    return m_answers.Demand ? 0 : HeadlessForm::DemandCount();
}

void BatchForm::ShowMessage(const std::string& text, MessageIcon /*icon*/) {
    m_messages.push_back(text);
}

bool BatchForm::AskYesNo(const std::string& /*question*/, MessageIcon /*icon*/,
                         Answer /*proposed*/) {
    return m_answers.StationLimit.has_value();
}

bool BatchForm::SolveAnyway(const std::string& warning) {
    std::cerr << warning << '\n';
    return true;
}

std::string BatchForm::InputBox(const std::string& /*prompt*/, const std::string& title,
                                const std::string& /*proposal*/) {
    const auto& answer = title == "Fixed Demand" ? m_answers.Demand : m_answers.StationLimit;
    return answer.value_or("");
}

void BatchForm::SetStatus(const std::string& text) {
    if (m_answers.Progress) {
        std::cerr << text << '\n';
    }
}

void BatchForm::Notice(const std::string& text) {
    std::cerr << text << '\n';
}

}  // namespace quarnel02
