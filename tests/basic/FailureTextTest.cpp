#include "basic/FailureText.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "basic/RunTimeError.h"

namespace quarnel02 {
namespace {

TEST(FailureText, SaysInWordsThatMemoryIsShort) {
    EXPECT_EQ(FailureText(std::bad_alloc()),
              "Not enough memory for this. Close other programs and try again.");
    EXPECT_EQ(FailureText(std::bad_array_new_length()), FailureText(std::bad_alloc()));
}

TEST(FailureText, PassesOtherWordsOn) {
    EXPECT_EQ(FailureText(RunTimeError(ErrorKind::FileAccess, "Cannot write a.txt.")),
              "Cannot write a.txt.");
}

}  // namespace
}  // namespace quarnel02
