#pragma once

#include <gtest/gtest.h>

#include <string>

#include "basic/RunTimeError.h"

namespace quarnel02::test {

/// Runs `action`, expects a run-time error of that kind whose message is one line, and returns
/// the message.
template <class Action>
std::string ExpectRunTimeError(ErrorKind kind, const Action& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        const std::string message = error.what();
        EXPECT_EQ(error.Kind(), kind) << message;
        EXPECT_EQ(message.find('\n'), std::string::npos) << message;
        return message;
    }
    ADD_FAILURE() << "no run-time error was thrown";
    return {};
}

}  // namespace quarnel02::test
