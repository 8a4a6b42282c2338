// Import and export from the File menu.
#include <gmock/gmock.h>

#include <QFileDialog>
#include <QStatusBar>

#include "app/WindowTest.h"
#include "sheets/ModelSheets.h"
#include "sheets/WorkbookFile.h"

namespace quarnel02 {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

class frmMainSheets : public test::WindowTest {
  protected:
    /// Puts a path into the toolkit's file dialog that comes next and accepts it.
    void TypePath(const std::filesystem::path& path) {
        Dialogs.Add([path](QDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(name, nullptr);
            name->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    [[nodiscard]] InputTables Now() const { return ReadInputTables(Copy->Open()); }
};

constexpr const char* kModel =
    "UPDATE Gen SET Tasks = 1, Days = 111, Product = 'Pump';"
    "INSERT INTO Tasks VALUES (1, 'Alpha'); INSERT INTO Demand VALUES (5000, 100);";

TEST_F(frmMainSheets, ExportToAWorkbookAndImportOfItAreTheSameModel) {
    Start(kModel);
    const InputTables before = Now();
    TypePath(Copy->File("pump.xlsx"));
    Item("mnuFileExportXlsx").trigger();
    EXPECT_TRUE(std::filesystem::exists(Copy->File("pump.xlsx")));
    EXPECT_THAT(Find<QStatusBar>("statusBar").currentMessage().toStdString(),
                HasSubstr("pump.xlsx"));

    Activate();
    Type("txtDays", "222");
    PressKey(Qt::Key_Tab);
    ASSERT_NE(Now(), before);
    TypePath(Copy->File("pump.xlsx"));
    Dialogs.Press(QMessageBox::Yes);
    Item("mnuFileImport").trigger();
    EXPECT_EQ(Now(), before);
    EXPECT_EQ(Box("txtDays").text().toStdString(), "111");
    EXPECT_EQ(Caption("mnuEditUndo"), "&Undo Import pump.xlsx");
    Item("mnuEditUndo").trigger();
    EXPECT_EQ(Box("txtDays").text().toStdString(), "222");
}

TEST_F(frmMainSheets, AWorkbookGetsItsExtension) {
    Start(kModel);
    TypePath(Copy->File("pump"));
    Item("mnuFileExportXlsx").trigger();
    EXPECT_TRUE(std::filesystem::exists(Copy->File("pump.xlsx")));
}

TEST_F(frmMainSheets, CsvFilesGoToADirectoryAndComeBack) {
    Start(kModel);
    const InputTables before = Now();
    std::filesystem::create_directory(Copy->File("sheets"));
    TypePath(Copy->File("sheets"));
    Item("mnuFileExportCsv").trigger();
    ASSERT_TRUE(std::filesystem::exists(Copy->File("sheets") / "Demand.csv"));
    Activate();
    Type("txtDays", "222");
    PressKey(Qt::Key_Tab);
    ASSERT_NE(Now(), before);
    TypePath(Copy->File("sheets") / "Demand.csv");
    Dialogs.Press(QMessageBox::Yes);
    Item("mnuFileImport").trigger();
    EXPECT_EQ(Now(), before);
}

TEST_F(frmMainSheets, ACancelledDialogChangesNothing) {
    Start(kModel);
    const InputTables before = Now();
    for (const char* item : {"mnuFileImport", "mnuFileExportXlsx", "mnuFileExportCsv"}) {
        Dialogs.Escape();
        Item(item).trigger();
        EXPECT_TRUE(Dialogs.AllGiven()) << item;
    }
    EXPECT_EQ(Now(), before);
    EXPECT_FALSE(std::filesystem::exists(Copy->File("Pump.xlsx")));
}

TEST_F(frmMainSheets, ADamagedWorkbookIsNamed) {
    Start(kModel);
    WriteFile(Copy->File("pump.xlsx"), "PK nothing");
    TypePath(Copy->File("pump.xlsx"));
    Dialogs.Press(QMessageBox::Ok);
    Item("mnuFileImport").trigger();
    EXPECT_THAT(Dialogs.Seen, Contains(HasSubstr("pump.xlsx")));
}

}  // namespace
}  // namespace quarnel02
