// Merging the resource tables of an arc, among files that other arcs have left.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "stoch/Records.h"
#include "support/StochDesk.h"
#include "support/StochModels.h"

namespace quarnel02 {
namespace {

using test::StochDesk;

class BuildInitialTableTest : public testing::Test {
  protected:
    /// A table of one record, which tells the name that it was made under.
    static std::string Record(const std::string& name) {
        std::string bytes = "made as " + name;
        bytes.resize(ArcSegment::kSize, ' ');
        return bytes;
    }
    void Make(const std::string& name) const { WriteFile(Desk.Copy.File(name), Record(name)); }
    [[nodiscard]] bool Has(const std::string& name) const {
        return std::filesystem::exists(Desk.Copy.File(name));
    }
    void Build(int start, int end) {
        Desk.Run.StartTask = start;
        Desk.Run.EndTask = end;
        BuildInitialTable(Desk.Run);
    }

    test::ModelScript Model = [] {
        test::ModelScript model = test::StagesModel();
        model.Resources.emplace_back();
        return model;
    }();
    StochDesk Desk{Model};
};

TEST_F(BuildInitialTableTest, RenamesTheOnlyTable) {
    Make("F1T2.R3");
    Make("TempA");
    Build(1, 2);
    EXPECT_EQ(ReadFile(Desk.Copy.File("IT12")), Record("F1T2.R3"));
    EXPECT_FALSE(Has("F1T2.R3") || Has("TempA") || Has("TempC"));
}

TEST_F(BuildInitialTableTest, ReplacesTheTableOfAnArcOfTheSameName) {
    Make("IT1112");  // of the arc from 11 to 12
    Make("F1T112.R1");
    Build(1, 112);
    EXPECT_EQ(ReadFile(Desk.Copy.File("IT1112")), Record("F1T112.R1"));
}

TEST_F(BuildInitialTableTest, AnArcWithoutTablesHasNoneAndTakesNoOthers) {
    Make("IT1112");
    Make("F11T12.R1");  // of another arc
    Build(1, 112);
    EXPECT_FALSE(Has("IT1112"));
    EXPECT_TRUE(Has("F11T12.R1"));
}

TEST_F(BuildInitialTableTest, LooksOnlyForTheResourcesOfTheModel) {
    Make("F1T1.R4");
    Build(1, 1);
    EXPECT_FALSE(Has("IT11"));
}

}  // namespace
}  // namespace quarnel02
