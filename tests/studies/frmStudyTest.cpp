// The study window: which design it is about, and when it computes.
#include <sys/stat.h>

#include <QFileDialog>
#include <QHeaderView>

#include "basic/Files.h"
#include "generate_model.h"
#include "sheets/WorkbookFile.h"
#include "studies/LineStudy.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTest.h"
#include "study/WhyNot.h"

namespace quarnel02 {
namespace {

using test::Tab;
using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class frmStudyTests : public test::StudyTest {
  protected:
    [[nodiscard]] std::string Shown(const std::string& box) const {
        return Part<QLineEdit>(box).text().toStdString();
    }
    [[nodiscard]] std::string Chosen(const std::string& box) const {
        return Part<QComboBox>(box).currentText().toStdString();
    }
    [[nodiscard]] std::string Question() const {
        return Chosen("cboDesign") + "|" + Shown("txtStudyVolume") + "|" + Chosen("cboShifts") +
               "|" + Shown("txtLimit");
    }
    void SetDays(const std::string& days) {
        Activate();
        Type("txtDays", days);
        QTest::keyClick(&Box("txtDays"), Qt::Key_Return);
    }
    void Press(const char* button) const {
        QTest::mouseClick(&Part<QPushButton>(button), Qt::LeftButton);
    }
    /// Puts a path into the toolkit's file dialog that comes next and accepts it.
    void TypePath(const std::filesystem::path& path, bool csv = false) {
        Dialogs.Add([path, csv](QDialog& dialog) {
            if (csv) {
                emit static_cast<QFileDialog&>(dialog).filterSelected(
                    QStringLiteral("CSV file (*.csv)"));
            }
            dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
                ->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
};

TEST_F(frmStudyTests, OpensBesideTheMainWindow) {
    StartPump();
    EXPECT_EQ(Item("mnuViewStudy").shortcut().toString().toStdString(), "Ctrl+T");
    Open();
    EXPECT_TRUE(Study->isWindow());
    EXPECT_FALSE(Study->isModal());
    EXPECT_EQ(Study->windowTitle().toStdString(), "Study - Untitled");
    Study->close();
    frmStudy* const first = Study;
    Open();
    EXPECT_EQ(Study, first);
    QTest::keyClick(Study, Qt::Key_Escape);
    EXPECT_FALSE(Study->isVisible());
}

TEST_F(frmStudyTests, IsCalledAfterTheFile) {
    StartPump();
    Open();
    Dialogs.Type(std::string(QUARNEL02_PROGRAMS) + "/examples/worked-example.mdb");
    Item("mnuFileOpen").trigger();
    EXPECT_EQ(Study->windowTitle().toStdString(), "Study - worked-example.mdb");
}

TEST_F(frmStudyTests, BeginsWithTheLikeliestVolume) {
    StartPump();
    Open();
    EXPECT_EQ(Question(), "a fixed demand|60,000|1|--");
}

TEST_F(frmStudyTests, TakesTheLastDesignOver) {
    StartPump();
    Open();
    Activate();
    Window->SelectDemand(2);
    Dialogs.Accept();
    Dialogs.Press(QMessageBox::Yes);
    Dialogs.Type("3");
    Click("cmdContinuous_2");
    ASSERT_TRUE(Dialogs.AllGiven());
    EXPECT_EQ(Question(), "a fixed demand|90,000|2|3");
    Activate();
    Click("cmdStoch");
    EXPECT_EQ(Chosen("cboDesign"), "the demand distribution");
    EXPECT_FALSE(Part<QLineEdit>("txtStudyVolume").isEnabled());
}

TEST_F(frmStudyTests, IsOutOfDateFromAChangeUntilItHasComputedAgain) {
    StartPump();
    Open();
    Show(Tab::Line);
    EXPECT_FALSE(IsMarked());
    const std::string before = Part<QLabel>("lblSummary").text().toStdString();
    SetDays("120");
    EXPECT_TRUE(IsMarked());
    EXPECT_FALSE(Page().IsBusy());
    EXPECT_EQ(Part<QLabel>("lblSummary").text().toStdString(), before);
    WaitUntilCurrent();
    EXPECT_FALSE(IsMarked());
    const auto now =
        StudyLine({std::make_shared<const PreparedLine>(Line()), {false, {60000, 1, {}}}});
    EXPECT_EQ(Part<QLabel>("lblSummary").text().toStdString(), SummaryOf(*now));
    EXPECT_NE(SummaryOf(*now), before);
}

TEST_F(frmStudyTests, AnEventThatChangesNothingLeavesItAlone) {
    StartPump();
    Open();
    Show(Tab::Line);
    Activate();
    Window->SelectDemand(1);
    Window->RunEvent([] {});
    EXPECT_FALSE(IsMarked());
    EXPECT_FALSE(Page().IsBusy());
}

TEST_F(frmStudyTests, IsMarkedWhileAnEditorHasStoredAnotherModel) {
    StartPump();
    Open();
    Show(Tab::Line);
    bool before = true;
    bool after = false;
    Dialogs.Add([&](QDialog& dialog) {
        before = IsMarked();
        RecordSet rows = Copy->Open().OpenRecordSet("SELECT * FROM Demand;");
        rows.Delete();
        rows.Close();
        Window->History().Note();
        after = IsMarked();
        dialog.reject();
    });
    Item("mnuViewResources").trigger();
    EXPECT_FALSE(before);
    EXPECT_TRUE(after);
}

TEST_F(frmStudyTests, AnEmptyModelHasNothingToStudy) {
    Start();
    Open();
    for (const Tab tab :
         {Tab::Line, Tab::Volumes, Tab::Alternatives, Tab::Sensitivity, Tab::Scenarios}) {
        Show(tab);
        EXPECT_THAT(Message(), StartsWith("There is nothing to study yet. Enter tasks"));
        EXPECT_FALSE(Part<QPushButton>("cmdCopy").isEnabled());
        EXPECT_FALSE(Part<QPushButton>("cmdSave").isEnabled());
        EXPECT_FALSE(IsMarked());
    }
}

TEST_F(frmStudyTests, WithoutADemandItAsksForAVolume) {
    StartPump("DELETE FROM Demand;");
    Open();
    Show(Tab::Line);
    EXPECT_EQ(Message(), "Enter an annual volume above.");
    Choose("cboDesign", 1);
    EXPECT_THAT(Message(), StartsWith("The model has no demand distribution."));
    Show(Tab::Volumes);
    EXPECT_EQ(Message(), "");
    Choose("cboDesign", 0);
    Show(Tab::Line);
    Put("txtStudyVolume", "60000");
    WaitUntilCurrent();
    EXPECT_EQ(Message(), "");
}

TEST_F(frmStudyTests, SaysWhyThereIsNoLine) {
    StartPump();
    Open();
    Put("txtStudyVolume", "900000");
    Put("txtLimit", "1");
    const PreparedLine line = Line();
    const FixedDemandRequest request{900000, 1, std::int16_t{1}};
    const std::string why = WhyNotText(ExplainNoLine(line, request), request);
    ASSERT_THAT(why, HasSubstr("There is a line with a station limit of"));
    for (const Tab tab : {Tab::Line, Tab::Alternatives, Tab::Sensitivity}) {
        Show(tab);
        EXPECT_EQ(Message(),
                  "No line does all tasks for 900,000 units a year in 1 shift, at most 1 parallel "
                  "station.\n\n" +
                      why);
    }
}

TEST_F(frmStudyTests, NamesTheRecordOfAModelThatCannotBe) {
    StartPump("UPDATE Resources SET UpTime = 0 WHERE ResourceId = 3;");
    Open();
    Show(Tab::Line);
    EXPECT_EQ(Message(), "Resource 3 (Press): uptime is 0 %; it must be above 0 and at most 100.");
}

TEST_F(frmStudyTests, RefusesFiguresThatCannotBeAndKeepsTheQuestion) {
    StartPump();
    Open();
    Show(Tab::Line);
    Put("txtStudyVolume", "many");
    EXPECT_TRUE(Part<QLabel>("lblProblem").isVisible());
    EXPECT_THAT(Part<QLabel>("lblProblem").text().toStdString(), HasSubstr("Volume"));
    EXPECT_FALSE(IsMarked());
    Put("txtStudyVolume", "-3");
    EXPECT_EQ(Part<QLabel>("lblProblem").text().toStdString(), "Volume is -3; it must be above 0.");
    Put("txtStudyVolume", "70000");
    EXPECT_FALSE(Part<QLabel>("lblProblem").isVisible());
    EXPECT_TRUE(IsMarked());
    WaitUntilCurrent();
    EXPECT_EQ(Question(), "a fixed demand|70,000|1|--");
}

TEST_F(frmStudyTests, ClosingItGivesUpWhatItComputes) {
    Start(GeneratedModelScript(50, 25, 1));
    Open();
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Volumes));
    ASSERT_TRUE(QTest::qWaitFor([this] { return Page().IsBusy(); }));
    Study->close();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Page().IsBusy(); }, 30000));
    EXPECT_TRUE(Page().IsOutOfDate());
    EXPECT_TRUE(Table("tblVolumes").Rows.empty());
    Open();
    WaitUntilCurrent();
    EXPECT_FALSE(Table("tblVolumes").Rows.empty());
}

TEST_F(frmStudyTests, StaysUsableWhileItComputes) {
    Start(GeneratedModelScript(50, 25, 1));
    Open();
    Part<QTabWidget>("tabStudy").setCurrentIndex(static_cast<int>(Tab::Volumes));
    ASSERT_TRUE(QTest::qWaitFor([this] { return Page().IsBusy(); }));
    EXPECT_TRUE(Part<QLabel>("lblBusy").isVisible());
    Show(Tab::Line);
    EXPECT_FALSE(Table("tblLine").Rows.empty());
}

TEST_F(frmStudyTests, SavesTheTablesOfATabAsAWorkbook) {
    StartPump();
    Open();
    Show(Tab::Alternatives);
    TypePath(Copy->File("study"));
    Press("cmdSave");
    const Workbook workbook = ReadWorkbook(Copy->File("study.xlsx"));
    ASSERT_EQ(workbook.size(), 2U);
    EXPECT_EQ(workbook[0].Name, "Alternatives");
    EXPECT_EQ(workbook[1].Name, "Next best resources");
    EXPECT_EQ(workbook[0].Cells.size(), Table("tblBest").Rows.size() + 1);
    EXPECT_EQ(workbook[0].Cells[2][2], Table("tblBest").Rows[1][2].Plain);
}

TEST_F(frmStudyTests, SavesTheUpperTableAsCsv) {
    StartPump();
    Open();
    Show(Tab::Alternatives);
    TypePath(Copy->File("study"), true);
    Press("cmdSave");
    EXPECT_EQ(ReadFile(Copy->File("study.csv")), CsvOf(Table("tblBest")));
}

TEST_F(frmStudyTests, SavesThePictureOfATabAsADrawingOrAnImage) {
    StartPump();
    Open();
    Show(Tab::Volumes);
    TypePath(Copy->File("study.svg"));
    Press("cmdSave");
    const std::string drawing = ReadFile(Copy->File("study.svg"));
    EXPECT_THAT(drawing, StartsWith("<svg"));
    EXPECT_THAT(drawing, HasSubstr("Annual volume (units)"));
    TypePath(Copy->File("study.png"));
    Press("cmdSave");
    const QImage image(QString::fromStdString(Copy->File("study.png").string()));
    ASSERT_FALSE(image.isNull());
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
    const Picture& picture = Part<StudyPicture>("picVolumes").Shown();
    constexpr double least = 800;
    EXPECT_NEAR(image.width(), 2 * std::max(least, picture.Width() / kTwipsPerPixel), 2);
}

TEST_F(frmStudyTests, SavesOneTableFromItsMenu) {
    StartPump();
    Open();
    Show(Tab::Alternatives);
    TypePath(Copy->File("next.csv"));
    Part<StudyTableView>("tblDetails")
        .findChild<QAction*>(QStringLiteral("mnuSaveTable"))
        ->trigger();
    EXPECT_EQ(ReadFile(Copy->File("next.csv")), CsvOf(Table("tblDetails")));
}

TEST_F(frmStudyTests, SaysWhyAFileCannotBeWritten) {
    StartPump();
    Open();
    Show(Tab::Line);
    ASSERT_EQ(mkfifo(Copy->File("pipe.csv").c_str(), S_IRUSR | S_IWUSR), 0);
    TypePath(Copy->File("pipe.csv"));
    Dialogs.Press(QMessageBox::Yes);  // replace it
    Press("cmdSave");
    EXPECT_THAT(Dialogs.Seen,
                testing::Contains(testing::AllOf(StartsWith("critical: "), HasSubstr("pipe.csv"))));
}

TEST_F(frmStudyTests, ControlAndPageKeysGoRoundTheTabs) {
    StartPump();
    Open();
    const auto& tabs = Part<QTabWidget>("tabStudy");
    Part<QWidget>("txtStudyVolume").setFocus();
    const int count = tabs.count();
    for (int step = 1; step <= count; ++step) {
        QTest::keyClick(Study->focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(tabs.currentIndex(), step % count);
    }
    QTest::keyClick(Study->focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(tabs.currentIndex(), count - 1);
}

/// How far the text of a cell or a heading ends from its right border.
double PaperToTheRight(QWidget& shown, const QRect& cell) {
    constexpr int border = 3;
    const QImage image = shown.grab(cell).toImage();
    for (int free = border; free < image.width(); ++free) {
        for (int y = border; y < image.height() - border; ++y) {
            if (image.pixel(image.width() - 1 - free, y) !=
                image.pixel(image.width() - border, y)) {
                return free / image.devicePixelRatio();
            }
        }
    }
    return image.width();
}

TEST_F(frmStudyTests, FiguresStandApartFromTheTextsBesideThem) {
    StartPump();
    Open();
    Show(Tab::Line);
    auto& table = Part<StudyTableView>("tblLine");
    const int quantity = 2;
    ASSERT_EQ(table.model()->headerData(quantity, Qt::Horizontal).toString(), "Quantity");
    const int apart = table.fontMetrics().averageCharWidth();
    const QRect cell = table.visualRect(table.model()->index(1, quantity));
    EXPECT_GE(PaperToTheRight(*table.viewport(), cell), apart);
    EXPECT_LT(PaperToTheRight(*table.viewport(), cell), cell.width());
    QHeaderView& head = *table.horizontalHeader();
    const QRect heading(head.sectionViewportPosition(quantity), 0, head.sectionSize(quantity) - 2,
                        head.height());
    EXPECT_GE(PaperToTheRight(*head.viewport(), heading), apart - 2);
    EXPECT_LT(PaperToTheRight(*head.viewport(), heading), heading.width());
    EXPECT_EQ(Column("tblLine", "Quantity")[1], "1");
}

TEST_F(frmStudyTests, CopiesBlocksAndTables) {
    StartPump();
    Open();
    Show(Tab::Line);
    auto& table = Part<StudyTableView>("tblLine");
    table.setFocus();
    table.clearSelection();
    table.selectionModel()->select(
        QItemSelection(table.model()->index(0, 9), table.model()->index(1, 10)),
        QItemSelectionModel::ClearAndSelect);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    const auto first = PlainTexts(table.Table().Rows[0]);
    const auto second = PlainTexts(table.Table().Rows[1]);
    EXPECT_EQ(Clipboard(),
              first[9] + "\t" + first[10] + "\n" + second[9] + "\t" + second[10] + "\n");
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Clipboard(), WriteTabbed(BlockOf(table.Table())));
    Show(Tab::Alternatives);
    Press("cmdCopy");
    EXPECT_EQ(Clipboard(), WriteTabbed(BlockOf(Table("tblBest"))) + "\n" +
                               WriteTabbed(BlockOf(Table("tblDetails"))));
}

}  // namespace
}  // namespace quarnel02
