#include "basic/ScopeGuard.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

namespace quarnel02 {
namespace {

TEST(ScopeGuard, RunsItsActionAtTheEndOfTheScopeAndNotBefore) {
    int runs = 0;
    {
        const ScopeGuard guard([&runs] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

TEST(ScopeGuard, RunsItsActionWhenAnExceptionLeavesTheScope) {
    int runs = 0;
    EXPECT_THROW(
        {
            const ScopeGuard guard([&runs] { ++runs; });
            throw std::runtime_error("test");
        },
        std::runtime_error);
    EXPECT_EQ(runs, 1);
}

TEST(FailureGuard, SparesAScopeThatEndsWell) {
    int runs = 0;
    {
        const FailureGuard guard([&runs] { ++runs; });
    }
    EXPECT_EQ(runs, 0);
}

TEST(FailureGuard, RunsItsActionWhenAnExceptionLeavesTheScope) {
    int runs = 0;
    EXPECT_THROW(
        {
            const FailureGuard guard([&runs] { ++runs; });
            throw std::runtime_error("test");
        },
        std::runtime_error);
    EXPECT_EQ(runs, 1);
}

/// A scope that ends well while an earlier exception is being handled has not failed.
TEST(FailureGuard, SparesAScopeThatEndsWellWhileAnotherIsUnwound) {
    int runs = 0;
    const auto clean_up = [&runs] { const FailureGuard guard([&runs] { ++runs; }); };
    try {
        const ScopeGuard outer(clean_up);
        throw std::runtime_error("test");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(runs, 0);
    }
}

static_assert(!std::is_copy_constructible_v<ScopeGuard<void (*)()>>);
static_assert(!std::is_move_constructible_v<ScopeGuard<void (*)()>>);

}  // namespace
}  // namespace quarnel02
