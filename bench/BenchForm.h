#pragma once

#include <stdexcept>
#include <string>

#include "shell/HeadlessForm.h"

namespace quarnel02::bench {

inline constexpr const char* kDemand = "60000";

/// Answers the dialogs of a solve: one demand, no station limit. A message means that the solve
/// failed.
class BenchForm : public HeadlessForm {
  public:
    using HeadlessForm::HeadlessForm;
    void ShowMessage(const std::string& text, MessageIcon /*icon*/) override {
        throw std::runtime_error(text);
    }
    bool AskYesNo(const std::string& /*question*/, MessageIcon /*icon*/,
                  Answer /*proposed*/) override {
        return false;
    }
    std::string InputBox(const std::string& /*prompt*/, const std::string& /*title*/,
                         const std::string& /*proposal*/) override {
        return kDemand;
    }
    void StartProgram(const std::string& /*commandLine*/) override {}
};

}  // namespace quarnel02::bench
