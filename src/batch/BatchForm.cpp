#include "batch/BatchForm.h"

#include <iostream>
#include <utility>

namespace quarnel02 {

BatchForm::BatchForm(std::filesystem::path applicationDirectory, bool progress)
    : HeadlessForm(std::move(applicationDirectory)), m_progress(progress) {}

void BatchForm::ShowMessage(const std::string& text, MessageIcon /*icon*/) {
    m_messages.push_back(text);
}

bool BatchForm::SolveAnyway(const std::string& warning) {
    std::cerr << warning << '\n';
    return true;
}

void BatchForm::SetStatus(const std::string& text) {
    if (m_progress) {
        std::cerr << text << '\n';
    }
}

void BatchForm::Notice(const std::string& text) {
    std::cerr << text << '\n';
}

}  // namespace quarnel02
