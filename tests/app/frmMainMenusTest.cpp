// The menus and the close box.
#include <gmock/gmock.h>

#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>

#include "app/WindowTest.h"
#include "app/frmGuide.h"
#include "app/frmReport.h"
#include "basic/Files.h"
#include "files/ModelFile.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kAskToSave = "information: Do you want to save your changes first?";

class frmMainMenus : public test::WindowTest {
  protected:
    /// Answers the file dialog: types a name and presses Enter.
    void TypeFile(const std::string& name) { Dialogs.Type(name); }

    void MakeModelHere() {
        MakeModelFile(Copy->File("other.mdb"),
                      ReadFile(QUARNEL02_SCHEMA_FILE) + "UPDATE Gen SET Days = 111;");
    }

    /// Model files of these names beside the application, and a list that names them.
    void MakeRecent(const std::vector<std::string>& names) {
        std::string list;
        for (const std::string& name : names) {
            CopyWhole(Copy->File("blank.seq"), Copy->File(name));
            list += Copy->File(name).string() + "\n";
        }
        WriteFile(Copy->File("Marrowgate.cfg"), list);
    }
};

TEST_F(frmMainMenus, CarryTheUsualShortCuts) {
    Start();
    const auto keys = [&](const char* item) { return Item(item).shortcut().toString(); };
    EXPECT_EQ(keys("mnuFileNew"), "Ctrl+N");
    EXPECT_EQ(keys("mnuFileOpen"), "Ctrl+O");
    EXPECT_EQ(keys("mnuFileSave"), "Ctrl+S");
    EXPECT_EQ(keys("mnuFileSaveAs"), "Ctrl+Shift+S");
    EXPECT_EQ(keys("mnuFileExit"), "Ctrl+Q");
    EXPECT_EQ(keys("mnuFilePrint"), "Ctrl+P");
    EXPECT_EQ(keys("mnuEditUndo"), "Ctrl+Z");
    EXPECT_EQ(keys("mnuEditRedo"), "Ctrl+Shift+Z");
    EXPECT_EQ(keys("mnuViewTasks"), "Ctrl+1");
    EXPECT_EQ(keys("mnuViewResources"), "Ctrl+2");
    EXPECT_EQ(keys("mnuViewMatrix"), "Ctrl+3");
    EXPECT_EQ(keys("mnuViewStudy"), "Ctrl+T");
    EXPECT_EQ(keys("mnuViewEnlarge"), "F11");
    EXPECT_EQ(keys("mnuHelpGuide"), "F1");
}

TEST_F(frmMainMenus, KeysOpenTheStudyAndTheGuide) {
    Start();
    const auto shown = [&](const char* name) {
        const auto* window = Window->findChild<QWidget*>(QLatin1String(name));
        return window != nullptr && window->isVisible();
    };
    EXPECT_FALSE(shown("frmStudy") || shown("frmGuide"));
    PressKey(Qt::Key_T, Qt::ControlModifier);
    EXPECT_TRUE(shown("frmStudy"));
    EXPECT_FALSE(shown("frmGuide"));
    Activate();
    PressKey(Qt::Key_F1);
    EXPECT_TRUE(shown("frmGuide"));
}

TEST_F(frmMainMenus, NoMnemonicIsUsedTwice) {
    Start();
    std::vector<std::string> keys;
    const auto look = [&](const QString& text) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(text);
        if (!mnemonic.isEmpty()) {
            keys.push_back(mnemonic.toString().toStdString());
        }
    };
    for (const char* menu : {"mnuFile", "mnuView", "mnuHelp"}) {
        look(Find<QMenu>(menu).title());
    }
    const QWidget& form = *Window->centralWidget();
    for (const QLabel* label : form.findChildren<QLabel*>()) {
        look(label->text());
    }
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>()) {
        look(button->text());
    }
    EXPECT_GE(keys.size(), 16U);
    std::sort(keys.begin(), keys.end());
    const auto twice = std::adjacent_find(keys.begin(), keys.end());
    EXPECT_EQ(twice, keys.end()) << *twice;
}

TEST_F(frmMainMenus, EnterPressesEveryButtonThatHasTheFocus) {
    Start("UPDATE Gen SET Tasks = 1; INSERT INTO Demand VALUES (5000, 100);");
    Window->SelectDemand(0);
    Window->RunEvent([] {});
    int buttons = 0;
    for (QAbstractButton* button : Window->centralWidget()->findChildren<QAbstractButton*>()) {
        if (!button->objectName().startsWith("cmd") && !button->objectName().startsWith("chk")) {
            continue;
        }
        if (!button->isVisible()) {
            continue;  // help for models without tasks
        }
        ++buttons;
        ASSERT_TRUE(button->isEnabled());
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
            int pressed = 0;
            QObject counter;
            button->disconnect(SIGNAL(clicked(bool)));
            QObject::connect(button, &QAbstractButton::clicked, &counter, [&] { ++pressed; });
            button->setFocus();
            QTest::keyClick(Window->windowHandle(), enter);
            EXPECT_EQ(pressed, 1) << button->objectName().toStdString();
        }
    }
    EXPECT_EQ(buttons, 8);
}

TEST_F(frmMainMenus, SaveIsEnabledExactlyWhenSomethingChanged) {
    Start();
    QMenu& file = Find<QMenu>("mnuFile");
    file.popup({});
    EXPECT_FALSE(Item("mnuFileSave").isEnabled());
    file.close();
    EXPECT_TRUE(Item("mnuFileSave").isEnabled()) << "its keys answer that there is nothing to save";
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    file.popup({});
    EXPECT_TRUE(Item("mnuFileSave").isEnabled());
    file.close();
}

TEST_F(frmMainMenus, OpeningTheFileMenuSavesTheBoxThatWasTypedIn) {
    Start();
    Type("txtDays", "200");
    Find<QMenu>("mnuFile").popup({});
    EXPECT_TRUE(Item("mnuFileSave").isEnabled());
    Find<QMenu>("mnuFile").close();
}

TEST_F(frmMainMenus, RecentItemsNameTheFilesLiterally) {
    Start();
    MakeRecent({"line.mdb", "Nuts & Bolts.mdb"});
    OpenMenu("mnuFile");
    EXPECT_EQ(Caption("mnuFileRecent_1"), "1. ..\\line.mdb");
    EXPECT_EQ(Caption("mnuFileRecent_2"), "2. ..\\Nuts && Bolts.mdb");
    EXPECT_EQ(Caption("mnuFileRecent_3"), "3.");
    EXPECT_EQ(Caption("mnuFileRecent_4"), "4.");
    EXPECT_TRUE(Item("mnuFileRecent_2").isEnabled());
    EXPECT_FALSE(Item("mnuFileRecent_3").isEnabled());
}

TEST_F(frmMainMenus, ARecentItemOpensItsFile) {
    Start();
    MakeRecent({"line.mdb", "Nuts & Bolts.mdb"});
    OpenMenu("mnuFile");
    Item("mnuFileRecent_2").trigger();
    EXPECT_EQ(Title(), "Nuts & Bolts.mdb - Quarnel02");
    EXPECT_EQ(Window->Current().Dir, Copy->Directory().string());
    OpenMenu("mnuFile");
    EXPECT_EQ(Caption("mnuFileRecent_1"), "1. ..\\Nuts && Bolts.mdb");
}

TEST_F(frmMainMenus, OpenShowsTheModel) {
    Start();
    MakeModelHere();
    TypeFile(Copy->File("other.mdb").string());
    Item("mnuFileOpen").trigger();
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Select a file to open..."));
    EXPECT_EQ(Title(), "other.mdb - Quarnel02");
    EXPECT_EQ(Box("txtDays").text().toStdString(), "111");
}

TEST_F(frmMainMenus, NewEmptiesTheTitle) {
    Start();
    MakeRecent({"line.mdb"});
    OpenMenu("mnuFile");
    Item("mnuFileRecent_1").trigger();
    Item("mnuFileNew").trigger();
    EXPECT_EQ(Title(), "Quarnel02");
    EXPECT_EQ(Window->Current().File, "");
}

TEST_F(frmMainMenus, NewAsksToSaveWhatChanged) {
    Start();
    Type("txtDays", "200");
    Dialogs.Press(QMessageBox::No);
    Item("mnuFileNew").trigger();
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskToSave));
    EXPECT_EQ(Box("txtDays").text().toStdString(), "250");
}

TEST_F(frmMainMenus, SaveOfAnUntitledModelProposesTheProduct) {
    Start();
    Type("txtDays", "200");
    std::string proposal;
    Dialogs.Add([&](QDialog& dialog) {
        proposal = dialog.findChild<QLineEdit*>("txtFile")->text().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Item("mnuFileSave").trigger();
    EXPECT_THAT(Dialogs.Seen, ElementsAre("dialog: Enter filename to save..."));
    EXPECT_EQ(proposal, "Untitled");
    EXPECT_TRUE(std::filesystem::exists(Copy->File("Untitled.mdb")));
    EXPECT_FALSE(Window->Current().Changed);
    EXPECT_EQ(Title(), "Quarnel02");
}

TEST_F(frmMainMenus, ADamagedFileBringsOneCriticalMessage) {
    Start();
    WriteFile(Copy->File("bad.mdb"), "no model");
    TypeFile(Copy->File("bad.mdb").string());
    Dialogs.Press(QMessageBox::Ok);
    Item("mnuFileOpen").trigger();
    ASSERT_EQ(Dialogs.Seen.size(), 2U);
    EXPECT_THAT(Dialogs.Seen[1], HasSubstr("critical: "));
    EXPECT_THAT(Dialogs.Seen[1], HasSubstr("bad.mdb"));
    EXPECT_EQ(Title(), "Quarnel02");
}

TEST_F(frmMainMenus, TheProductionReportIsEnabledOnceItExists) {
    Start();
    OpenMenu("mnuView");
    EXPECT_FALSE(Item("mnuViewLast").isEnabled());
    WriteFile(Copy->File("ProdRpt.txt"), "x");
    OpenMenu("mnuView");
    EXPECT_TRUE(Item("mnuViewLast").isEnabled());
    Item("mnuViewLast").trigger();
    EXPECT_THAT(Started, ElementsAre("notepad.exe|" + Copy->File("ProdRpt.txt").string()));
}

TEST_F(frmMainMenus, TheSolutionSummaryOpensOnlyIfItExists) {
    Start();
    Item("mnuViewLastCont").trigger();
    EXPECT_THAT(Started, IsEmpty());
    WriteFile(Copy->File("RunRpt.txt"), "x");
    Item("mnuViewLastCont").trigger();
    EXPECT_THAT(Started, ElementsAre("notepad.exe|" + Copy->File("RunRpt.txt").string()));
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
}

TEST_F(frmMainMenus, TheGuideOpensInsideTheProgram) {
    Start();
    Item("mnuHelpGuide").trigger();
    Item("mnuHelpGuide").trigger();
    const auto guides = Window->findChildren<frmGuide*>();
    ASSERT_EQ(guides.size(), 1);
    EXPECT_TRUE(guides[0]->isVisible());
    EXPECT_FALSE(guides[0]->isModal());
    const auto text = guides[0]->findChild<QTextEdit*>("txtGuide")->toPlainText().toStdString();
    for (const char* topic : {"Production parameters", "Demand", "Designing the line",
                              "Reading the network", "Reading the summary", "Files"}) {
        EXPECT_THAT(text, HasSubstr(topic));
    }
}

TEST_F(frmMainMenus, TheGuideShowsItsPicturesNoWiderThanItsText) {
    Start();
    Item("mnuHelpGuide").trigger();
    const auto* guide = Window->findChild<frmGuide*>()->findChild<QTextEdit*>("txtGuide");
    const QTextDocument& document = *guide->document();
    int pictures = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid()) {
                continue;
            }
            ++pictures;
            const auto picture =
                document.resource(QTextDocument::ImageResource, format.name()).value<QImage>();
            EXPECT_GT(picture.width(), 100) << format.name().toStdString();
            EXPECT_LE(picture.width() / picture.devicePixelRatio(), guide->viewport()->width());
        }
    }
    EXPECT_EQ(pictures, 3);
}

TEST_F(frmMainMenus, AboutNamesTheVersion) {
    Start();
    Dialogs.Press(QMessageBox::Ok);
    Item("mnuHelpAbout").trigger();
    ASSERT_EQ(Dialogs.Seen.size(), 1U);
    EXPECT_THAT(Dialogs.Seen[0], HasSubstr("Quarnel02 1.2.3"));
}

class Leaving : public frmMainMenus, public ::testing::WithParamInterface<bool> {
  protected:
    void Leave() {
        if (GetParam()) {
            Item("mnuFileExit").trigger();
        } else {
            Window->close();
        }
    }
};

TEST_P(Leaving, DoesNotAskWithoutChanges) {
    Start();
    Leave();
    EXPECT_THAT(Dialogs.Seen, IsEmpty());
    EXPECT_FALSE(Window->isVisible());
}

TEST_P(Leaving, AsksToSaveChanges) {
    Start();
    Type("txtDays", "200");
    PressKey(Qt::Key_Return);
    Dialogs.Press(QMessageBox::No);
    Leave();
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskToSave));
    EXPECT_FALSE(Window->isVisible());
}

TEST_P(Leaving, SavesToTheFileOnYes) {
    Start();
    MakeRecent({"line.mdb"});
    OpenMenu("mnuFile");
    Item("mnuFileRecent_1").trigger();
    Type("txtDays", "200");
    Dialogs.Press(QMessageBox::Yes);
    Leave();
    EXPECT_THAT(Dialogs.Seen, ElementsAre(kAskToSave));
    const Database saved = Database::Open(Copy->File("line.mdb"));
    EXPECT_EQ(saved.OpenRecordSet("SELECT Days FROM Gen;").Number("Days"), 200);
}

TEST_P(Leaving, StaysOnceForATextThatWasRefused) {
    Start();
    Type("txtDays", "abc");
    Dialogs.Press(QMessageBox::Ok);
    Leave();
    EXPECT_TRUE(Window->isVisible());
    Leave();
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(Dialogs.Seen.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Ways, Leaving, ::testing::Bool(),
                         [](const auto& each) { return each.param ? "ByExit" : "ByCloseBox"; });

}  // namespace
}  // namespace quarnel02
