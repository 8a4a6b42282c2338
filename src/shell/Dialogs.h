#pragma once

#include <cstdint>
#include <string>

#include "basic/Immovable.h"

namespace quarnel02 {

enum class MessageIcon : std::int8_t { None, Information, Question, Critical };

/// The button of a question that Enter presses.
enum class Answer : std::int8_t { Yes, No };

/// What the system says to the user and asks of him, one modal dialog at a time.
class Dialogs : Immovable {
  public:
    virtual ~Dialogs() = default;

    virtual void ShowMessage(const std::string& text, MessageIcon icon) = 0;
    virtual bool AskYesNo(const std::string& question, MessageIcon icon, Answer proposed) = 0;
    /// Whether to solve in spite of what `warning` (a sentence) says; the proposed answer is No.
    virtual bool SolveAnyway(const std::string& warning) {
        return AskYesNo(warning + " Solve anyway?", MessageIcon::Question, Answer::No);
    }
    /// The text that is entered; "" when the user cancels.
    virtual std::string InputBox(const std::string& prompt, const std::string& title,
                                 const std::string& proposal) = 0;
};

}  // namespace quarnel02
