#include "model/Database.h"

#include <gtest/gtest.h>

#include "support/TestModel.h"

namespace quarnel02 {
namespace {

using test::TestModel;

TEST(Template, HoldsOneRowOfDefaults) {
    const TestModel model;
    EXPECT_EQ(model.RowsOf("SELECT * FROM GEN;", 8),
              std::vector<std::string>{"0|0|250|0.25|20|5|0|Untitled"});
}

}  // namespace
}  // namespace quarnel02
