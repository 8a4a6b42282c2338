// What leaves the study window: charts and tables, copied, saved and printed by real events.
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>

#include "basic/Files.h"
#include "studies/StudyPicture.h"
#include "studies/StudyTest.h"
#include "support/ProgramRun.h"

namespace quarnel02 {
namespace {

using test::Tab;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class StudyLeaves : public test::StudyTest {
  protected:
    void OpenAt(Tab tab) {
        StartPump();
        Open();
        Show(tab);
        Study->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(Study));
    }
    [[nodiscard]] StudyPicture& Chart(const char* name) const { return Part<StudyPicture>(name); }
    [[nodiscard]] std::string State() const { return Part<QLabel>("lblBusy").text().toStdString(); }
    [[nodiscard]] static const QMimeData& Clipboard() {
        return *QGuiApplication::clipboard()->mimeData();
    }
    [[nodiscard]] static std::string TextOfPdf(const std::filesystem::path& file) {
        return test::RunProgram({"pdftotext", "-layout", file.string(), "-"}).Out;
    }
    /// Notes what the file dialog that comes next offers, puts a path into it and accepts it.
    void TypePath(const std::filesystem::path& path, const char* filter = "") {
        Dialogs.Add([this, path, filter](QDialog& dialog) {
            auto& files = static_cast<QFileDialog&>(dialog);
            if (*filter != '\0') {
                files.selectNameFilter(QLatin1String(filter));
                emit files.filterSelected(QLatin1String(filter));
            }
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            Offered = name->text().toStdString();
            Filters = files.nameFilters().join(QLatin1Char('|')).toStdString();
            name->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }
    /// Opens the context menu of a chart and presses the mnemonic of an entry.
    static void ChooseInContextMenu(const StudyPicture& chart, Qt::Key mnemonic) {
        QTimer::singleShot(0, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            QTest::keyClick(menu, mnemonic);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20),
                                chart.viewport()->mapToGlobal(QPoint(20, 20)));
        QApplication::sendEvent(chart.viewport(), &event);
    }

    std::string Offered;
    std::string Filters;
};

TEST_F(StudyLeaves, EveryChartIsCopiedFromItsContextMenuAsImageAndDrawing) {
    OpenAt(Tab::Line);
    for (const auto& [tab, chart, word] : {std::tuple(Tab::Line, "picLoad", "Bench"),
                                           std::tuple(Tab::Volumes, "picVolumes", "units"),
                                           std::tuple(Tab::Alternatives, "picBest", "Rank"),
                                           std::tuple(Tab::Sensitivity, "picTornado", "Labour"),
                                           std::tuple(Tab::Scenarios, "picCosts", "Base")}) {
        Show(tab);
        QGuiApplication::clipboard()->clear();
        ChooseInContextMenu(Chart(chart), Qt::Key_C);
        EXPECT_FALSE(qvariant_cast<QImage>(Clipboard().imageData()).isNull()) << chart;
        EXPECT_THAT(Clipboard().data(QStringLiteral("image/svg+xml")).toStdString(),
                    HasSubstr(word));
        EXPECT_EQ(State(), "Copied: " + Chart(chart).accessibleName().toStdString());
    }
}

TEST_F(StudyLeaves, ControlCCopiesTheChartThatHasTheFocus) {
    OpenAt(Tab::Volumes);
    QGuiApplication::clipboard()->setText("before");
    Chart("picVolumes").setFocus();
    QTest::keyClick(&Chart("picVolumes"), Qt::Key_C);
    EXPECT_EQ(Clipboard().text(), "before");
    QTest::keyClick(&Chart("picVolumes"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(Clipboard().hasImage());
}

TEST_F(StudyLeaves, AChartIsSavedAsWhatItsNameSays) {
    OpenAt(Tab::Volumes);
    for (const char* name : {"chart.svg", "chart.png", "chart.pdf"}) {
        TypePath(Copy->File(name));
        ChooseInContextMenu(Chart("picVolumes"), Qt::Key_S);
        ASSERT_TRUE(std::filesystem::exists(Copy->File(name))) << name;
        EXPECT_EQ(Offered, "Untitled-Cost over volume");
        EXPECT_EQ(State(), std::string("Saved ") + name);
    }
    EXPECT_THAT(ReadFile(Copy->File("chart.svg")), StartsWith("<svg"));
    EXPECT_THAT(TextOfPdf(Copy->File("chart.pdf")), HasSubstr("Annual volume (units)"));
}

TEST_F(StudyLeaves, AnImageHasTheScaleThatIsChosen) {
    OpenAt(Tab::Volumes);
    const auto width = [&](const char* filter) {
        TypePath(Copy->File("chart"), filter);
        ChooseInContextMenu(Chart("picVolumes"), Qt::Key_S);
        const QImage image(QString::fromStdString(Copy->File("chart.png").string()));
        EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::white));
        std::filesystem::remove(Copy->File("chart.png"));
        return image.width();
    };
    const int screen = width("Image as on a screen (*.png)");
    EXPECT_GE(screen, 800);
    EXPECT_NEAR(width("Image, twice as large (*.png)"), 2 * screen, 2);
    EXPECT_NEAR(width("Image, four times as large (*.png)"), 4 * screen, 4);
}

TEST_F(StudyLeaves, TheButtonSavesTablesAndTheChart) {
    OpenAt(Tab::Sensitivity);
    TypePath(Copy->File("study.pdf"));
    QTest::mouseClick(&Part<QPushButton>("cmdSave"), Qt::LeftButton);
    EXPECT_EQ(Offered, "Untitled-Sensitivity");
    EXPECT_EQ(Filters,
              "Workbook (*.xlsx)|CSV file (*.csv)|Drawing (*.svg)|Image, twice as large (*.png)|"
              "Image, four times as large (*.png)|Image as on a screen (*.png)|"
              "PDF document (*.pdf)");
    EXPECT_THAT(TextOfPdf(Copy->File("study.pdf")), HasSubstr("Labour"));
}

TEST_F(StudyLeaves, WhatIsOutOfDateSaysSo) {
    OpenAt(Tab::Line);
    Put("txtStudyVolume", "70000");
    ASSERT_TRUE(IsMarked());
    EXPECT_EQ(State(), "Design for 60,000 units a year in 1 shift.");
    ChooseInContextMenu(Chart("picLoad"), Qt::Key_C);
    EXPECT_EQ(State(), "Copied: Station load (out of date)");
}

TEST_F(StudyLeaves, AFailureNamesTheFileAndLeavesIt) {
    OpenAt(Tab::Volumes);
    WriteFile(Copy->File("chart.svg"), "kept");
    std::filesystem::permissions(Copy->File("chart.svg"), std::filesystem::perms::owner_read);
    TypePath(Copy->File("chart.svg"));
    Dialogs.Press(QMessageBox::Yes);  // replace it
    Dialogs.Press(QMessageBox::Ok);
    ChooseInContextMenu(Chart("picVolumes"), Qt::Key_S);
    EXPECT_THAT(Dialogs.Seen, Contains(HasSubstr("chart.svg is write-protected")));
    EXPECT_EQ(ReadFile(Copy->File("chart.svg")), "kept");
    EXPECT_EQ(State(), Page().Subject());
}

TEST_F(StudyLeaves, AChartIsPrintedWithItsTitle) {
    OpenAt(Tab::Alternatives);
    Dialogs.Add([this](QDialog& dialog) {
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 0; }));
        EXPECT_EQ(preview->pageCount(), 1);
        QPrinter& printer = *dynamic_cast<QPrintPreviewDialog&>(dialog).printer();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(Copy->File("printed.pdf").string()));
        preview->print();
        dialog.reject();
    });
    ChooseInContextMenu(Chart("picBest"), Qt::Key_P);
    const std::string title = Chart("picBest").accessibleName().toStdString();
    EXPECT_THAT(Dialogs.Seen, Contains("dialog: Print preview - " + title));
    EXPECT_THAT(TextOfPdf(Copy->File("printed.pdf")), HasSubstr("Circulation pump"));
    EXPECT_THAT(TextOfPdf(Copy->File("printed.pdf")), HasSubstr("Cost of the cheapest lines"));
}

}  // namespace
}  // namespace quarnel02
