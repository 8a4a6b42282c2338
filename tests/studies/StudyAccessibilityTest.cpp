// What a screen reader and a keyboard find in the study window, and whether its texts stand out.
#include <array>
#include <tuple>

#include "app/Screenshot.h"
#include "studies/StudyTest.h"
#include "support/WindowWalk.h"

namespace quarnel02 {
namespace {

class StudyAccessibility : public test::StudyTest,
                           public ::testing::WithParamInterface<std::tuple<test::Tab, bool>> {
  protected:
    [[nodiscard]] static test::Tab TheTab() { return std::get<0>(GetParam()); }
    [[nodiscard]] static bool IsDark() { return std::get<1>(GetParam()); }

  private:
    test::PaletteKeeper m_palette;
};

TEST_P(StudyAccessibility, OfATab) {
    if (IsDark()) {
        QApplication::setPalette(test::DarkPalette());
    }
    StartPump();
    Open();
    Show(TheTab());
    if (TheTab() == test::Tab::Scenarios) {
        Part<QPushButton>("cmdNewScenario").click();
        WaitUntilCurrent();
    }
    Study->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
    constexpr int least = 10;
    EXPECT_GE(test::ExpectAccessible(*Study), least);
    EXPECT_GE(test::ExpectTextsStandOut(*Study), least);
    EXPECT_GE(test::ExpectKeyboardReachesAll(*Study), least / 2);
}

using TabInATheme = ::testing::TestParamInfo<std::tuple<test::Tab, bool>>;

std::string NameOf(const TabInATheme& each) {
    constexpr std::array names = {"Line", "Volumes", "Alternatives", "Sensitivity", "Scenarios"};
    const auto [tab, dark] = each.param;
    return std::string(names.at(static_cast<std::size_t>(tab))) + (dark ? "InTheDark" : "");
}

INSTANTIATE_TEST_SUITE_P(Tabs, StudyAccessibility,
                         ::testing::Combine(::testing::Values(test::Tab::Line, test::Tab::Volumes,
                                                              test::Tab::Alternatives,
                                                              test::Tab::Sensitivity,
                                                              test::Tab::Scenarios),
                                            ::testing::Bool()),
                         NameOf);

}  // namespace
}  // namespace quarnel02
