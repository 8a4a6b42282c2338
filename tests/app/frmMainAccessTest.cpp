// Access databases through the main window and its file dialog.
#include <gmock/gmock.h>

#include <QComboBox>

#include "app/WindowTest.h"
#include "basic/Files.h"
#include "files/SaveModel.h"
#include "jet/TinyModel.h"
#include "support/AccessTables.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr const char* kModel =
    "UPDATE Gen SET Days = 111, Product = 'Pump'; INSERT INTO Demand VALUES (5000, 100);";
constexpr const char* kGen = "0|0|111|0.25|20|5|0|Pump";

class frmMainAccess : public test::WindowTest {
  protected:
    frmMainAccess() { File = Place.Path() / "line.mdb"; }

    /// An Access database of the user's, with the model the window starts with.
    void Make() {
        Start(kModel);
        SaveModel(Copy->File(), File, ModelFormat::Access);
    }
    /// The same with a query of the user's.
    void MakeWithMore() {
        Make();
        jet::TinyFile file = jet::TinyFileOf(1, test::TablesIn(File));
        file.AddObject("Costs", 5);
        WriteFile(File, file.Content());
    }
    void Open() {
        Dialogs.Type(File.string());
        Item("mnuFileOpen").trigger();
    }
    void ChangeDays(const std::string& days) {
        Type("txtDays", days);
        QTest::keyClick(&Box("txtDays"), Qt::Key_Return);
        ASSERT_TRUE(IsStarred());
    }
    /// Enters name and format in the dialog that comes next, by keys alone.
    void SaveInto(const fs::path& path, Qt::Key format) {
        Dialogs.Add([path, format](QDialog& dialog) {
            auto& name = *dialog.findChild<QLineEdit*>(QStringLiteral("txtFile"));
            auto& formats = *dialog.findChild<QComboBox*>(QStringLiteral("cboFormat"));
            name.selectAll();
            QTest::keyClicks(&name, QString::fromStdString(path.string()));
            QTest::keyClick(&name, Qt::Key_Tab);
            QTest::keyClick(&formats, format);
            EXPECT_FALSE(fs::exists(path));
            QTest::keyClick(&formats, Qt::Key_Return);
        });
    }
    [[nodiscard]] std::string GenIn(const fs::path& file) const {
        jet::Reader reader(file, "line.mdb");
        return jet::TextOf(jet::ReadWhole(reader, "Gen").Rows);
    }

    TemporaryDirectory Place;
    fs::path File;
};

TEST_F(frmMainAccess, OpenEditAndSaveKeepTheFormat) {
    Make();
    Open();
    EXPECT_EQ(Title(), "line.mdb - Quarnel02");
    EXPECT_EQ(Gen(), kGen);
    ChangeDays("222");
    EXPECT_EQ(GenIn(File), "0|0|111|0.25|20|5|0|\"Pump\"\n");
    Item("mnuFileSave").trigger();
    EXPECT_FALSE(IsStarred());
    EXPECT_EQ(GenIn(File), "0|0|222|0.25|20|5|0|\"Pump\"\n");
    EXPECT_THAT(Dialogs.Seen, ElementsAre(StartsWith("dialog: ")));
}

TEST_F(frmMainAccess, SaveAsWritesTheFormatThatIsChosenByKeys) {
    Start(kModel);
    SaveInto(Place.Path() / "access.mdb", Qt::Key_A);
    Item("mnuFileSaveAs").trigger();
    EXPECT_EQ(FormatOfFile(Place.Path() / "access.mdb"), ModelFormat::Access);
    SaveInto(Place.Path() / "own.mdb", Qt::Key_Up);
    Item("mnuFileSaveAs").trigger();
    EXPECT_EQ(FormatOfFile(Place.Path() / "own.mdb"), ModelFormat::Sqlite);
    EXPECT_EQ(FormatOfFile(Place.Path() / "access.mdb"), ModelFormat::Access);
    EXPECT_TRUE(Dialogs.AllGiven());
}

TEST_F(frmMainAccess, ALockFileIsSaidAndNothingIsOpened) {
    Make();
    ChangeDays("222");
    WriteFile(Place.Path() / "line.ldb", "PLANNING");
    Dialogs.Press(QMessageBox::No);  // the changes are not saved first
    Dialogs.Type(File.string());
    Dialogs.Press(QMessageBox::Ok);
    Item("mnuFileOpen").trigger();
    EXPECT_THAT(Dialogs.Seen.back(),
                StartsWith("critical: " + File.string() + " is open in Access: the lock file "));
    EXPECT_EQ(Title(), "Quarnel02");
    EXPECT_EQ(Box("txtDays").text(), "222");
}

TEST_F(frmMainAccess, AFileWithAQueryStaysAndSaveLeadsToAnother) {
    MakeWithMore();
    const std::string content = ReadFile(File);
    Open();
    ChangeDays("222");
    Dialogs.Press(QMessageBox::Yes);
    SaveInto(Place.Path() / "other.mdb", Qt::Key_A);
    Item("mnuFileSave").trigger();
    EXPECT_TRUE(Dialogs.AllGiven());
    ASSERT_EQ(Dialogs.Seen.size(), 3U);
    EXPECT_EQ(Dialogs.Seen[1], "question: " + File.string() +
                                   " holds more than a model: query Costs. Such a file is never "
                                   "replaced. Save the model as another file?");
    EXPECT_EQ(ReadFile(File), content);
    EXPECT_EQ(GenIn(Place.Path() / "other.mdb"), "0|0|222|0.25|20|5|0|\"Pump\"\n");
    EXPECT_FALSE(IsStarred());
}

TEST_F(frmMainAccess, AFileWithAQueryStaysWhenNoOtherIsNamed) {
    MakeWithMore();
    const std::string content = ReadFile(File);
    Open();
    ChangeDays("222");
    Dialogs.Press(QMessageBox::No);
    Item("mnuFileSave").trigger();
    EXPECT_EQ(ReadFile(File), content);
    EXPECT_TRUE(IsStarred());
    EXPECT_EQ(Box("txtDays").text(), "222");
}

}  // namespace
}  // namespace quarnel02
