// The file dialog through its own controls.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "app/Answers.h"
#include "app/UserVolumes.h"
#include "app/frmFile.h"
#include "basic/Files.h"

namespace quarnel02 {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kNotValid = "none: Not a valid filename.  Please select from the list above.";
constexpr const char* kOverwrite = "information: File already exists.  Overwrite?";

/// A directory with "a.mdb", "b.mdb", "notes.txt", "LOUD.MDB", the directory "sub" with "c.mdb".
class frmFileDialog : public ::testing::Test {
  protected:
    frmFileDialog() : Dialog(Place.Path(), nullptr) {
        fs::create_directory(Place.Path() / "sub");
        for (const char* name : {"a.mdb", "b.mdb", "notes.txt", "LOUD.MDB", "sub/c.mdb"}) {
            WriteFile(Place.Path() / name, "x");
        }
    }

    void Show(bool open, const std::string& name = "", const fs::path& directory = {}) {
        Dialog.FilePath = (directory.empty() ? Place.Path() : directory).string();
        Dialog.FileName = name;
        Dialog.SetForm(open);
        Dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Dialog));
    }

    template <class Widget>
    Widget& Find(const char* name) {
        return *Dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    QLineEdit& Name() { return Find<QLineEdit>("txtFile"); }
    std::vector<std::string> Lines(const char* list) {
        std::vector<std::string> lines;
        auto& box = Find<QListWidget>(list);
        for (int i = 0; i < box.count(); ++i) {
            lines.push_back(box.item(i)->text().toStdString());
        }
        return lines;
    }
    void TypeName(const std::string& name) {
        Name().selectAll();
        QTest::keyClick(&Name(), Qt::Key_Delete);
        QTest::keyClicks(&Name(), QString::fromStdString(name));
    }
    void ClickFile(int line, bool twice = false) {
        auto& files = Find<QListWidget>("File1");
        const QPoint place = files.visualItemRect(files.item(line)).center();
        QTest::mouseClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        if (twice) {
            QTest::mouseDClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        }
    }
    void Press(const char* button) {
        QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton);
    }

    TemporaryDirectory Place;
    frmFile Dialog;
    test::Answers Boxes;
};

TEST_F(frmFileDialog, OpensWithAnEmptyNameAndTheModelFiles) {
    Show(true, "left over.mdb");
    EXPECT_EQ(Dialog.windowTitle(), "Select a file to open...");
    EXPECT_EQ(Find<QPushButton>("cmdOpen").text(), "&Open");
    EXPECT_EQ(Name().text(), "");
    EXPECT_THAT(Lines("Dir1"), ElementsAre("..", "sub"));
    EXPECT_THAT(Lines("File1"), ElementsAre("a.mdb", "b.mdb"));
    EXPECT_TRUE(Dialog.OpenMode);
}

TEST_F(frmFileDialog, SavesWithTheProposedName) {
    Show(false, "Pump");
    EXPECT_EQ(Dialog.windowTitle(), "Enter filename to save...");
    EXPECT_EQ(Find<QPushButton>("cmdOpen").text(), "&Save");
    EXPECT_EQ(Name().text(), "Pump");
    EXPECT_EQ(Name().selectedText(), "Pump");
    EXPECT_FALSE(Dialog.OpenMode);
}

TEST(UserVolumes, AreThoseThatMayHoldFilesOfUsers) {
    EXPECT_EQ(UserVolumes({"/", "/proc", "/proc/sys", "/home", "/run/user/1000",
                           "/run/media/anna/USB", "/dev/shm", "/development", "/systems",
                           "/boot/efi", "/snap/core/1", "/home", "/media/anna/Stick"}),
              QStringList({"/", "/home", "/run/media/anna/USB", "/development", "/systems",
                           "/media/anna/Stick"}));
}

/// The topmost directory above `path` on the same device.
fs::path RootOnItsDevice(fs::path path) {
    const auto device = [](const fs::path& of) {
        struct stat status {};
        EXPECT_EQ(::stat(of.c_str(), &status), 0);
        return status.st_dev;
    };
    while (path != "/" && device(path.parent_path()) == device(path)) {
        path = path.parent_path();
    }
    return path;
}

/// Shared memory is a volume of its own that is not among those of users.
TEST_F(frmFileDialog, ShowsTheDriveOfItsDirectory) {
    const fs::path memory = "/dev/shm";
    auto& drives = Find<QComboBox>("Drive1");
    for (const fs::path& directory : {Place.Path(), memory}) {
        if (!fs::is_directory(directory)) {
            continue;
        }
        Show(true, "", directory);
        EXPECT_EQ(drives.currentText().toStdString(), RootOnItsDevice(directory).string());
        EXPECT_EQ(drives.findText(drives.currentText()), drives.currentIndex());
    }
    EXPECT_GE(drives.findText("/"), 0);
}

TEST_F(frmFileDialog, BeginsInTheExamplesAndThenWhereTheUserWas) {
    fs::create_directories(Place.Path() / "examples");
    frmFile dialog(Place.Path(), Place.Path() / "examples", nullptr);
    const auto shown = [&] {
        dialog.FilePath.clear();
        dialog.SetForm(true);
        return dialog.findChild<QLabel*>("lblPath")->text().toStdString();
    };
    EXPECT_EQ(shown(), (Place.Path() / "examples").string());
    dialog.FilePath = (Place.Path() / "sub").string();
    dialog.SetForm(true);
    EXPECT_EQ(shown(), (Place.Path() / "sub").string());
}

TEST_F(frmFileDialog, BeginsWhereTheUserWasInTheLastSession) {
    fs::create_directories(Place.Path() / "examples");
    WriteFile(Place.Path() / "Marrowgate.cfg",
              "/no/such/place/x.mdb\n" + (Place.Path() / "sub" / "c.mdb").string() + "\n");
    frmFile dialog(Place.Path(), Place.Path() / "examples", nullptr);
    dialog.SetForm(true);
    EXPECT_EQ(dialog.findChild<QLabel*>("lblPath")->text().toStdString(),
              (Place.Path() / "sub").string());
}

/// The data directory of the program is below a hidden one.
TEST_F(frmFileDialog, ReachesHiddenDirectoriesAndFiles) {
    fs::create_directories(Place.Path() / ".local" / "share");
    WriteFile(Place.Path() / ".hidden.mdb", "x");
    Show(true, "", Place.Path() / ".local");
    auto& directories = Find<QListWidget>("Dir1");
    directories.setFocus();
    QTest::keyClick(&directories, Qt::Key_Return);
    EXPECT_THAT(Lines("Dir1"), ElementsAre("..", "sub", ".local"));
    EXPECT_THAT(Lines("File1"), ElementsAre("a.mdb", "b.mdb", ".hidden.mdb"));
    EXPECT_EQ(directories.currentItem()->text(), ".local");
    QTest::keyClick(&directories, Qt::Key_Return);
    EXPECT_THAT(Lines("Dir1"), ElementsAre("..", "share"));
}

TEST_F(frmFileDialog, RefusesANameThatNoFileCanHave) {
    Show(false);
    for (const std::string& name : {std::string(300, 'x'), std::string("A/B"), std::string("..")}) {
        Boxes.Seen.clear();
        TypeName(name);
        Boxes.Press(QMessageBox::Ok);
        Press("cmdOpen");
        ASSERT_EQ(Boxes.Seen.size(), 1U) << name;
        EXPECT_TRUE(Boxes.Seen[0].starts_with("critical: ")) << Boxes.Seen[0];
        EXPECT_TRUE(Dialog.isVisible());
        EXPECT_EQ(Name().text().toStdString(), name + ".mdb");
        EXPECT_EQ(Dialog.focusWidget(), &Name());
    }
    TypeName("good");
    Press("cmdOpen");
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "good.mdb");
}

TEST_F(frmFileDialog, EnterPressesTheButtonThatHasTheFocus) {
    Show(false, "new");
    auto& cancel = Find<QPushButton>("cmdCancel");
    cancel.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&cancel, Qt::Key_Return);
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.result(), QDialog::Rejected);
    EXPECT_EQ(Dialog.FileName, "");

    Show(false, "new");
    auto& save = Find<QPushButton>("cmdOpen");
    save.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&save, Qt::Key_Enter);
    EXPECT_EQ(Dialog.result(), QDialog::Accepted);
    EXPECT_EQ(Dialog.FileName, "new.mdb");
}

/// A second question would show that the key also pressed the button.
TEST_F(frmFileDialog, EnterInTheNameActsOnce) {
    Show(false, "a.mdb");
    Boxes.Press(QMessageBox::No);
    QTest::keyClick(&Name(), Qt::Key_Return);
    EXPECT_THAT(Boxes.Seen, ElementsAre(kOverwrite));
    EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(frmFileDialog, AClickTakesTheName) {
    Show(true);
    ClickFile(1);
    EXPECT_EQ(Name().text(), "b.mdb");
    EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(frmFileDialog, ADoubleClickOpens) {
    Show(true);
    ClickFile(1, true);
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "b.mdb");
    EXPECT_EQ(Dialog.FilePath, Place.Path().string());
}

TEST_F(frmFileDialog, AppendsTheExtensionOnLeavingTheName) {
    Show(true);
    TypeName("a");
    Find<QListWidget>("File1").setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Name().text(), "a.mdb");
}

TEST_F(frmFileDialog, EnterInTheNameOpensWithTheExtension) {
    Show(true);
    TypeName("a");
    QTest::keyClick(&Name(), Qt::Key_Return);
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "a.mdb");
    EXPECT_EQ(Dialog.result(), QDialog::Accepted);
}

TEST_F(frmFileDialog, TakesNoNoticeOfAnExtensionInCapitals) {
    Show(false, "LOUD.MDB");
    Press("cmdOpen");
    EXPECT_EQ(Dialog.FileName, "LOUD.MDB.mdb");
    EXPECT_THAT(Boxes.Seen, IsEmpty());
}

TEST_F(frmFileDialog, RefusesToOpenWhatDoesNotExist) {
    Show(true);
    ClickFile(0);
    TypeName("nothing");
    Boxes.Press(QMessageBox::Ok);
    Press("cmdOpen");
    EXPECT_THAT(Boxes.Seen, ElementsAre(kNotValid));
    EXPECT_TRUE(Dialog.isVisible());
    EXPECT_EQ(Name().text(), "a.mdb");
}

TEST_F(frmFileDialog, RefusesToOpenNothing) {
    Show(true);
    Boxes.Press(QMessageBox::Ok);
    Press("cmdOpen");
    EXPECT_THAT(Boxes.Seen, ElementsAre(kNotValid));
    EXPECT_EQ(Name().text(), "");
    EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(frmFileDialog, RefusesToOpenADirectory) {
    fs::create_directory(Place.Path() / "folder.mdb");
    Show(true);
    TypeName("folder.mdb");
    Boxes.Press(QMessageBox::Ok);
    Press("cmdOpen");
    EXPECT_THAT(Boxes.Seen, ElementsAre(kNotValid));
}

TEST_F(frmFileDialog, AsksBeforeOverwriting) {
    Show(false, "a.mdb");
    Boxes.Press(QMessageBox::No);
    Press("cmdOpen");
    EXPECT_THAT(Boxes.Seen, ElementsAre(kOverwrite));
    EXPECT_TRUE(Dialog.isVisible());
    Boxes.Press(QMessageBox::Yes);
    Press("cmdOpen");
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "a.mdb");
}

TEST_F(frmFileDialog, SavesANewNameWithoutAsking) {
    Show(false, "new");
    Press("cmdOpen");
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "new.mdb");
    EXPECT_EQ(Dialog.FilePath, Place.Path().string());
}

TEST_F(frmFileDialog, DoesNotSaveUnderNoName) {
    Show(false, "");
    Press("cmdOpen");
    EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(frmFileDialog, CancelEmptiesNameAndPath) {
    Show(true);
    ClickFile(0);
    Press("cmdCancel");
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "");
    EXPECT_EQ(Dialog.FilePath, "");
}

TEST_F(frmFileDialog, EscapeIsCancel) {
    Show(false, "a");
    QTest::keyClick(&Dialog, Qt::Key_Escape);
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "");
    EXPECT_EQ(Dialog.FilePath, "");
}

TEST_F(frmFileDialog, EnterGoesIntoADirectoryAndBack) {
    Show(true);
    auto& directories = Find<QListWidget>("Dir1");
    directories.setFocus();
    directories.setCurrentRow(1);
    QTest::keyClick(&directories, Qt::Key_Return);
    EXPECT_THAT(Lines("File1"), ElementsAre("c.mdb"));
    EXPECT_TRUE(Dialog.isVisible());
    EXPECT_EQ(directories.currentItem()->text(), "..");
    QTest::keyClick(&directories, Qt::Key_Return);
    EXPECT_THAT(Lines("File1"), ElementsAre("a.mdb", "b.mdb"));
    EXPECT_EQ(directories.currentItem()->text(), "sub");
}

TEST_F(frmFileDialog, OpensFromTheDirectoryEntered) {
    Show(true);
    auto& directories = Find<QListWidget>("Dir1");
    const QPoint place = directories.visualItemRect(directories.item(1)).center();
    QTest::mouseClick(directories.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(directories.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    ClickFile(0, true);
    EXPECT_EQ(Dialog.FilePath, (Place.Path() / "sub").string());
    EXPECT_EQ(Dialog.FileName, "c.mdb");
}

TEST_F(frmFileDialog, SplitsATypedPath) {
    Show(true);
    TypeName((Place.Path() / "sub" / "c").string());
    Press("cmdOpen");
    EXPECT_EQ(Dialog.FilePath, (Place.Path() / "sub").string());
    EXPECT_EQ(Dialog.FileName, "c.mdb");
}

TEST_F(frmFileDialog, AnUnreadableDriveBringsAMessageAndTheListGoesBack) {
    Show(true);
    auto& drives = Find<QComboBox>("Drive1");
    const QString before = drives.currentText();
    drives.addItem(QStringLiteral("/no/such/volume"));
    drives.setFocus();
    Boxes.Press(QMessageBox::Ok);
    QTest::keyClick(&drives, Qt::Key_End);
    EXPECT_THAT(Boxes.Seen, ElementsAre("critical: Drive is currently unavailable."));
    EXPECT_EQ(drives.currentText(), before);
    EXPECT_THAT(Lines("File1"), ElementsAre("a.mdb", "b.mdb"));
}

TEST_F(frmFileDialog, ChangingTheDriveShowsItsFiles) {
    Show(true);
    auto& drives = Find<QComboBox>("Drive1");
    drives.addItem(QString::fromStdString((Place.Path() / "sub").string()));
    drives.setFocus();
    QTest::keyClick(&drives, Qt::Key_End);
    EXPECT_THAT(Lines("File1"), ElementsAre("c.mdb"));
}

TEST_F(frmFileDialog, NamesMayHoldUmlautsBlanksAndCommas) {
    const std::string name =
        "Gr\xC3\xB6\xC3\x9F"
        "e, neu.mdb";
    WriteFile(Place.Path() / "sub" / name, "x");
    Show(true, "", Place.Path() / "sub");
    ClickFile(1, true);
    EXPECT_EQ(Dialog.FileName, name);
}

TEST_F(frmFileDialog, OffersTheFormatForSavingOnly) {
    Show(false, "Pump");
    auto& formats = Find<QComboBox>("cboFormat");
    EXPECT_TRUE(formats.isVisible());
    EXPECT_TRUE(Find<QLabel>("label_cboFormat").isVisible());
    EXPECT_EQ(formats.count(), 2);
    EXPECT_EQ(formats.itemText(0), "Model (*.mdb)");
    EXPECT_EQ(formats.itemText(1), "Access database (*.mdb)");
    EXPECT_GT(formats.y(), Name().geometry().bottom());
    EXPECT_LT(formats.geometry().bottom(), Find<QPushButton>("cmdOpen").y());
    EXPECT_EQ(formats.x(), Name().x());
    Dialog.close();
    Show(true);
    EXPECT_FALSE(formats.isVisible());
    EXPECT_FALSE(Find<QLabel>("label_cboFormat").isVisible());
}

TEST_F(frmFileDialog, BeginsWithTheFormatThatTheFileHas) {
    Dialog.Format = ModelFormat::Access;
    Show(false, "Pump");
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentIndex(), 1);
    Press("cmdOpen");
    EXPECT_EQ(Dialog.Format, ModelFormat::Access);
    Dialog.Format = ModelFormat::Sqlite;
    Show(false, "Pump");
    EXPECT_EQ(Find<QComboBox>("cboFormat").currentIndex(), 0);
}

TEST_F(frmFileDialog, TheFormatIsChosenByKeys) {
    Show(false, "new");
    auto& formats = Find<QComboBox>("cboFormat");
    QTest::keyClick(&Name(), Qt::Key_Tab);
    ASSERT_EQ(Dialog.focusWidget(), &formats);
    QTest::keyClick(&formats, Qt::Key_A);
    EXPECT_EQ(formats.currentText(), "Access database (*.mdb)");
    EXPECT_EQ(Dialog.Format, ModelFormat::Sqlite);
    EXPECT_TRUE(Dialog.isVisible());
    QTest::keyClick(&formats, Qt::Key_Up);
    EXPECT_EQ(formats.currentText(), "Model (*.mdb)");
    QTest::keyClick(&formats, Qt::Key_Down);
    QTest::keyClick(&formats, Qt::Key_Return);
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.Format, ModelFormat::Access);
    EXPECT_EQ(Dialog.FileName, "new.mdb");
}

TEST_F(frmFileDialog, ItsLabelLeadsToTheFormat) {
    Show(false, "new");
    QTest::keyClick(&Dialog, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(Dialog.focusWidget(), &Find<QComboBox>("cboFormat"));
    EXPECT_TRUE(Dialog.isVisible());
}

TEST_F(frmFileDialog, OpensFilesOfLaterVersionsOfAccessButSavesNone) {
    WriteFile(Place.Path() / "new.accdb", "x");
    Show(false);
    EXPECT_THAT(Lines("File1"), ElementsAre("a.mdb", "b.mdb"));
    TypeName("new.accdb");
    Press("cmdOpen");
    EXPECT_EQ(Dialog.FileName, "new.accdb.mdb");
    Show(true);
    EXPECT_THAT(Lines("File1"), ElementsAre("a.mdb", "b.mdb", "new.accdb"));
    TypeName("new.accdb");
    QTest::keyClick(&Name(), Qt::Key_Return);
    EXPECT_FALSE(Dialog.isVisible());
    EXPECT_EQ(Dialog.FileName, "new.accdb");
}

}  // namespace
}  // namespace quarnel02
