// Every command that writes, with memory asked for in vain at one moment after the other.

#include <gtest/gtest.h>

#include <iostream>
#include <new>
#include <string>

#include "basic/Files.h"
#include "commands/IncomingModel.h"
#include "faults/FailingCalls.h"
#include "faults/FaultDesk.h"
#include "support/Measured.h"

namespace fs = std::filesystem;

namespace quarnel02::test {
namespace {

class OutOfMemory : public testing::TestWithParam<std::size_t> {};

/// Runs the command with too little memory, and says whether it noticed.
bool RunShort(FaultDesk& desk, const WritingCommand& command, int at, bool stays) {
    bool hit = false;
    bool unsaid = false;
    std::string failure;
    {
        const FailingMemory failing(at, stays);
        try {
            failure = FailureOf([&] { command.Run(desk, 0); });
        } catch (const std::bad_alloc&) {  // not even for the words
            unsaid = true;
        }
        hit = FailingMemory::Stop();
    }
    if (!failure.empty()) {
        EXPECT_TRUE(failure.find("memory") != std::string::npos ||
                    failure.find('/') != std::string::npos)
            << failure;
    }
    return hit || unsaid;
}

void ExpectNothingLost(FaultDesk& desk, const WritingCommand& command) {
    EXPECT_NO_THROW(static_cast<void>(desk.Inputs()));
    std::string failure = FailureOf([&] { command.Run(desk, 0); });
    if (failure.find("It shows that one now") != std::string::npos) {
        failure = FailureOf([&] { command.Run(desk, 0); });
    }
    EXPECT_EQ(failure, "");
    for (const char* name : {"line.mdb", "linked.mdb", "access.mdb", "other.mdb"}) {
        EXPECT_TRUE(IsWhole(desk.UserFile(name))) << name;
    }
}

TEST_P(OutOfMemory, LosesNothing) {
    if (kIsSanitized) {
        GTEST_SKIP() << "sanitizers have a memory of their own";
    }
    const WritingCommand& command = WritingCommands().at(GetParam());
    if (std::string(command.Name) == "ExportXlsx") {
        GTEST_SKIP() << "libxlsxwriter ends the program when it gets no memory";
    }
    int cases = 0;
    for (const bool stays : {false, true}) {
        for (int at = 1; !HasFailure(); at += 1 + at / 2, ++cases) {
            SCOPED_TRACE(std::string(command.Name) + ": request " + std::to_string(at) +
                         (stays ? " and all later ones" : ""));
            const TemporaryDirectory root;
            FaultDesk desk(root.Path());
            ShowLoadedModel(desk.Form);
            if (!RunShort(desk, command, at, stays)) {
                break;
            }
            ExpectNothingLost(desk, command);
        }
    }
    EXPECT_GT(cases, 15);
    std::cout << command.Name << ": " << cases << " requests in vain\n";
}

INSTANTIATE_TEST_SUITE_P(EveryCommand, OutOfMemory,
                         testing::Range<std::size_t>(0, WritingCommands().size()),
                         [](const auto& each) { return WritingCommands()[each.param].Name; });

}  // namespace
}  // namespace quarnel02::test
