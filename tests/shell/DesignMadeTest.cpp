#include "shell/DesignMade.h"

#include <gtest/gtest.h>

#include "model/InputDigest.h"
#include "support/TestModel.h"

namespace quarnel02 {
namespace {

TEST(NewDesign, HasTheFiguresItWasMadeFrom) {
    const test::TestModel model;
    const auto before = std::chrono::system_clock::now();
    const DesignMade design = NewDesign(model.Open(), "2 shifts, 60,000 units a year", "Pump");
    EXPECT_EQ(design.Caption, "2 shifts, 60,000 units a year");
    EXPECT_EQ(design.Product, "Pump");
    EXPECT_GE(design.When, before);
    EXPECT_EQ(design.Inputs, InputDigest(model.Open()));
    RecordSet gen = model.Open().OpenRecordSet("SELECT * FROM Gen;");
    gen.Edit();
    gen.Set("Days", "200");
    gen.Update();
    EXPECT_NE(design.Inputs, InputDigest(model.Open()));
}

}  // namespace
}  // namespace quarnel02
