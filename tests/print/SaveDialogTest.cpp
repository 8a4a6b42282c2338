// Which kind of file is saved, and under which name.
#include "print/SaveDialog.h"

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>

#include "app/Answers.h"
#include "basic/Files.h"

namespace quarnel02 {
namespace {

class Saving : public ::testing::Test {
  protected:
    /// Chooses a kind by its place, types a name and accepts.
    void Choose(int kind, const QString& name) {
        Dialogs.Add([this, kind, name](QDialog& dialog) {
            auto& chooser = dynamic_cast<QFileDialog&>(dialog);
            Offered = chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
            const QString filter = chooser.nameFilters().at(kind);
            chooser.selectNameFilter(filter);
            emit chooser.filterSelected(filter);
            chooser.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    std::optional<SavedFile> Ask(const std::vector<SavedKind>& kinds = DrawingKinds()) {
        return AskSavedFile(nullptr, QStringLiteral("Save"), Directory(),
                            QStringLiteral("Pump - line"), kinds);
    }
    [[nodiscard]] QString Directory() const {
        return QString::fromStdString(Place.Path().string());
    }

    TemporaryDirectory Place;
    test::Answers Dialogs;
    QString Offered;
};

TEST_F(Saving, OffersANameAndAddsTheExtensionOfTheKind) {
    Choose(1, QStringLiteral("a"));
    const auto saved = Ask();
    ASSERT_TRUE(saved);
    EXPECT_EQ(Offered, "Pump - line");
    EXPECT_EQ(saved->Path, Directory() + "/a.png");
    EXPECT_EQ(saved->Kind.Extension, "png");
    EXPECT_EQ(saved->Kind.Scale, 2);
}

TEST_F(Saving, TheChosenSizeOfAnImageCounts) {
    Choose(2, QStringLiteral("a.png"));
    EXPECT_EQ(Ask()->Kind.Scale, 4);
}

TEST_F(Saving, ATypedExtensionSaysTheKind) {
    Choose(1, QStringLiteral("a.PDF"));
    const auto saved = Ask();
    EXPECT_EQ(saved->Path, Directory() + "/a.PDF");
    EXPECT_EQ(saved->Kind.Extension, "pdf");
}

TEST_F(Saving, AnExtensionThatIsNoneKeepsTheChosenKind) {
    Choose(0, QStringLiteral("a.txt"));
    EXPECT_EQ(Ask(TextKinds())->Kind.Extension, "txt");
    Choose(0, QStringLiteral("a.b"));
    EXPECT_EQ(Ask(TextKinds())->Kind.Extension, "txt");
}

TEST_F(Saving, CancelIsNoFile) {
    Dialogs.Escape();
    EXPECT_FALSE(Ask());
}

TEST(FileNameOf, LeavesOutWhatNoFileCanBeCalledBy) {
    EXPECT_EQ(FileNameOf(QStringLiteral("Pump 3/4: \"new\" - line")), "Pump 3_4_ _new_ - line");
    EXPECT_EQ(FileNameOf(QStringLiteral("..hidden ")), "hidden");
}

}  // namespace
}  // namespace quarnel02
