// The desktop program says which build it is without a screen.
#include "basic/Version.h"

#include <gtest/gtest.h>

#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

TEST(ProgramVersion, OfTheDesktopIsTheOneOfTheBuild) {
    const auto result =
        test::RunProgram({std::string(QUARNEL02_PROGRAMS) + "/quarnel02", "--version"},
                         {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}, {"QT_QPA_PLATFORM", ""}});
    EXPECT_EQ(result.Status, 0) << result.Err;
    EXPECT_EQ(result.Out, std::string("quarnel02 ") + Version() + "\n");
    EXPECT_EQ(result.Err, "");
}

}  // namespace
}  // namespace quarnel02
