// What a screen reader and a keyboard find in the editors, and whether their texts stand out.
#include "app/Screenshot.h"
#include "editors/MatrixValuesTest.h"
#include "support/WindowWalk.h"

namespace quarnel02 {
namespace {

class EditorAccessibility : public test::MatrixValuesTest,
                            public ::testing::WithParamInterface<bool> {
  protected:
    EditorAccessibility() {
        if (GetParam()) {
            QApplication::setPalette(test::DarkPalette());
        }
    }
    void ExpectGood(int controls) const {
        EXPECT_GE(test::ExpectAccessible(*Form), controls);
        EXPECT_GE(test::ExpectTextsStandOut(*Form), controls);
        EXPECT_GE(test::ExpectKeyboardReachesAll(*Form), controls / 3);
    }

  private:
    test::PaletteKeeper m_palette;
};

TEST_P(EditorAccessibility, Tasks) {
    Start(test::kGrid);
    EditTasks([this] {
        ExpectGood(12);
        Form->reject();
    });
}

TEST_P(EditorAccessibility, TasksOfAnEmptyModel) {
    Start();
    EditTasks([this] {
        ExpectGood(8);
        Form->reject();
    });
}

TEST_P(EditorAccessibility, Resources) {
    Start(test::kGrid);
    EditResources([this] {
        ExpectGood(30);
        Form->reject();
    });
}

TEST_P(EditorAccessibility, Marks) {
    Start(test::kGrid);
    EditMatrix([this] {
        ExpectGood(6);
        Form->reject();
    });
}

TEST_P(EditorAccessibility, Values) {
    Start(test::kGrid);
    EditValues([this] {
        ExpectGood(8);
        Form->reject();
    });
}

TEST_P(EditorAccessibility, APair) {
    Start(test::kGrid);
    EditMatrix([this] {
        OnDialog([this] {
            ExpectGood(9);
            Form->reject();
        });
        Click(1, 1, Qt::RightButton);
        Form->reject();
    });
}

INSTANTIATE_TEST_SUITE_P(Themes, EditorAccessibility, ::testing::Bool(),
                         [](const auto& each) { return each.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace quarnel02
