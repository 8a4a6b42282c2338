// What leaves the main window: pictures and the report, copied, saved and printed by real events.
#include <gmock/gmock.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QImage>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QStatusBar>

#include "app/WindowTest.h"
#include "studies/frmStudy.h"
#include "support/ModelScript.h"
#include "support/ProgramRun.h"
#include "widgets/PictureBox.h"

namespace quarnel02 {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

class frmMainLeaves : public test::WindowTest {
  protected:
    void StartSolved() {
        test::ModelScript model = test::WorkedExample();
        model.Product = "Valve";
        model.Demand = {{60000, 100}};
        Start(model.Sql());
        Activate();
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_2");
        ASSERT_TRUE(Window->LastDesign);
        Activate();
    }

    /// Notes what the file dialog that comes next offers, puts a path into it and accepts it.
    void TypePath(const std::filesystem::path& path) {
        Dialogs.Add([this, path](QDialog& dialog) {
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(name, nullptr);
            Offered = name->text().toStdString();
            name->setText(QString::fromStdString(path.string()));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    /// Opens the context menu of a control and presses the mnemonic of an entry.
    void ChooseInContextMenu(QWidget& control, Qt::Key mnemonic) {
        QTimer::singleShot(0, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            QTest::keyClick(menu, mnemonic);
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20),
                                control.mapToGlobal(QPoint(20, 20)));
        QApplication::sendEvent(&control, &event);
    }

    [[nodiscard]] PictureBox& Picture(const std::string& name) const {
        return Find<PictureBox>(name);
    }
    [[nodiscard]] std::string Status() const {
        return Find<QStatusBar>("statusBar").currentMessage().toStdString();
    }
    [[nodiscard]] static const QMimeData& Clipboard() {
        return *QApplication::clipboard()->mimeData();
    }
    [[nodiscard]] static std::string TextOfPdf(const std::filesystem::path& file) {
        return test::RunProgram({"pdftotext", "-layout", file.string(), "-"}).Out;
    }
    [[nodiscard]] std::filesystem::path User(const std::string& name) const {
        return UserDirectory.Path() / name;
    }

    TemporaryDirectory UserDirectory;
    std::string Offered;
};

TEST_F(frmMainLeaves, APictureIsCopiedFromItsContextMenuAsImageAndDrawing) {
    StartSolved();
    QApplication::clipboard()->clear();
    ChooseInContextMenu(*Picture("picGraph_2").viewport(), Qt::Key_C);
    EXPECT_FALSE(qvariant_cast<QImage>(Clipboard().imageData()).isNull());
    EXPECT_THAT(Clipboard().data(QStringLiteral("image/svg+xml")).toStdString(),
                HasSubstr("Press"));
    EXPECT_THAT(Status(), HasSubstr("Copied: Line"));
}

TEST_F(frmMainLeaves, TheSummaryIsCopiedAsTextAndWhatIsSelectedOfIt) {
    StartSolved();
    auto* text = Picture("picGraph_0").findChild<QPlainTextEdit*>();
    ChooseInContextMenu(*text, Qt::Key_C);
    EXPECT_THAT(Clipboard().text().toStdString(), HasSubstr("Solution Summary\n----"));
    EXPECT_FALSE(Clipboard().hasImage());
    QTextCursor two_lines(text->document());
    two_lines.movePosition(QTextCursor::Down, QTextCursor::KeepAnchor, 2);
    text->setTextCursor(two_lines);
    ChooseInContextMenu(*text, Qt::Key_C);
    EXPECT_EQ(Clipboard().text().toStdString(), "Solution Summary\n-------------------\n");
}

TEST_F(frmMainLeaves, ControlCCopiesThePictureThatHasTheFocus) {
    StartSolved();
    Picture("picGraph_2").setFocus();
    QApplication::clipboard()->setText("before");
    PressKey(Qt::Key_C);
    EXPECT_EQ(Clipboard().text(), "before");
    PressKey(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(Clipboard().hasImage());
}

TEST_F(frmMainLeaves, APictureIsSavedAsWhatItsNameSays) {
    StartSolved();
    for (const char* name : {"line.svg", "line.png", "line.pdf"}) {
        TypePath(User(name));
        ChooseInContextMenu(*Picture("picGraph_2").viewport(), Qt::Key_S);
        ASSERT_TRUE(std::filesystem::exists(User(name))) << name;
        EXPECT_EQ(Offered, "Valve - line");
        EXPECT_EQ(Status(), std::string("Saved ") + name);
    }
    EXPECT_THAT(ReadFile(User("line.svg")), HasSubstr("<svg"));
    EXPECT_GE(QImage(QString::fromStdString(User("line.png").string())).width(), 1600);
    EXPECT_THAT(TextOfPdf(User("line.pdf")), HasSubstr("Press"));
}

TEST_F(frmMainLeaves, TheSummaryIsSavedAsText) {
    StartSolved();
    auto* text = Picture("picGraph_0").findChild<QPlainTextEdit*>();
    TypePath(User("summary"));
    ChooseInContextMenu(*text, Qt::Key_S);
    EXPECT_THAT(ReadFile(User("summary.txt")), HasSubstr("Total Cost:      $82,113\n"));
    TypePath(User("summary.pdf"));
    ChooseInContextMenu(*text, Qt::Key_S);
    EXPECT_THAT(TextOfPdf(User("summary.pdf")), HasSubstr("$82,113"));
}

TEST_F(frmMainLeaves, TheLastDirectoryIsOfferedAgain) {
    StartSolved();
    TypePath(User("a.svg"));
    Item("mnuPictureSave").trigger();
    QString directory;
    Dialogs.Add([&](QDialog& dialog) {
        directory = dynamic_cast<QFileDialog&>(dialog).directory().path();
        dialog.reject();
    });
    Item("mnuFileReportPdf").trigger();
    EXPECT_EQ(directory.toStdString(), UserDirectory.Path().string());
}

TEST_F(frmMainLeaves, AFailureNamesFileAndCauseAndLeavesTheFile) {
    StartSolved();
    WriteFile(User("line.svg"), "kept");
    std::filesystem::permissions(User("line.svg"), std::filesystem::perms::owner_read);
    Dialogs.Add([this](QDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(User("line.svg").string()));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    Dialogs.Press(QMessageBox::Yes);  // replace it
    Dialogs.Press(QMessageBox::Ok);
    ChooseInContextMenu(*Picture("picGraph_2").viewport(), Qt::Key_S);
    EXPECT_THAT(Dialogs.Seen, Contains(HasSubstr("line.svg is write-protected")));
    EXPECT_EQ(ReadFile(User("line.svg")), "kept");
    EXPECT_THAT(Status(), Not(HasSubstr("Saved")));
}

TEST_F(frmMainLeaves, WhatIsOutOfDateSaysSoWhenItIsSaved) {
    StartSolved();
    Type("txtDays", "200");
    PressKey(Qt::Key_Tab);
    TypePath(User("line.svg"));
    ChooseInContextMenu(*Picture("picGraph_2").viewport(), Qt::Key_S);
    EXPECT_EQ(Offered, "Valve - line (out of date)");
    EXPECT_EQ(Status(), "Saved line.svg (out of date)");
    TypePath(User("report.pdf"));
    Item("mnuFileReportPdf").trigger();
    EXPECT_EQ(Offered, "Valve - report (out of date)");
    EXPECT_THAT(TextOfPdf(User("report.pdf")), HasSubstr("The results are out of date"));
}

TEST_F(frmMainLeaves, TheReportIsOneDocument) {
    StartSolved();
    TypePath(User("report"));
    Item("mnuFileReportPdf").trigger();
    EXPECT_EQ(Offered, "Valve - report");
    const std::string text = TextOfPdf(User("report.pdf"));
    for (const char* part :
         {"Line design: Valve", "2 shifts, 60,000 units a year", "not saved",
          "Working days per year", "Arc network", "Total Cost:", "Station load", "$18,333"}) {
        EXPECT_THAT(text, HasSubstr(part));
    }
    EXPECT_THAT(text, Not(HasSubstr("out of date")));
    EXPECT_EQ(Status(), "Saved report.pdf");
}

TEST_F(frmMainLeaves, ATypedValueIsInTheReportThatIsAskedForNext) {
    StartSolved();
    Type("txtDays", "222");
    TypePath(User("report.pdf"));
    Item("mnuFileReportPdf").trigger();
    EXPECT_THAT(TextOfPdf(User("report.pdf")), HasSubstr("222"));
    EXPECT_THAT(TextOfPdf(User("report.pdf")), HasSubstr("The results are out of date"));
}

TEST_F(frmMainLeaves, TickedStudiesStandInTheReport) {
    StartSolved();
    TypePath(User("without.pdf"));
    Item("mnuFileReportPdf").trigger();
    Item("mnuViewStudy").trigger();
    auto& tick =
        *Window->findChild<frmStudy*>()->findChild<QCheckBox*>(QStringLiteral("chkInReport"));
    TypePath(User("not ticked.pdf"));
    Item("mnuFileReportPdf").trigger();
    QTest::keyClick(&tick, Qt::Key_Space);
    TypePath(User("with.pdf"));
    Item("mnuFileReportPdf").trigger();
    EXPECT_THAT(TextOfPdf(User("without.pdf")), Not(HasSubstr("Study: Line")));
    EXPECT_THAT(TextOfPdf(User("not ticked.pdf")), Not(HasSubstr("Study: Line")));
    EXPECT_THAT(TextOfPdf(User("with.pdf")), HasSubstr("Study: Line"));
}

TEST_F(frmMainLeaves, TheFileMenuMeansThePictureThatHadTheFocus) {
    StartSolved();
    OpenMenu("mnuFile");
    EXPECT_EQ(Find<QMenu>("mnuFilePicture").title(), "Pi&cture: Arc network");
    Picture("picGraph_2").setFocus();
    Demand().setFocus();
    OpenMenu("mnuFile");
    EXPECT_EQ(Find<QMenu>("mnuFilePicture").title(), "Pi&cture: Line");
    Item("mnuPictureCopy").trigger();
    EXPECT_THAT(Status(), HasSubstr("Copied: Line"));
}

TEST_F(frmMainLeaves, AnEmptyNetworkCannotBeCopied) {
    Start();
    Window->picArc.Clear();
    OpenMenu("mnuFile");
    for (const char* item : {"mnuPictureCopy", "mnuPictureSave", "mnuPicturePrint"}) {
        EXPECT_FALSE(Item(item).isEnabled()) << item;
    }
}

TEST_F(frmMainLeaves, ControlPShowsThePagesOfTheReportAndPrintsThem) {
    StartSolved();
    Dialogs.Add([this](QDialog& dialog) {
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_NE(preview, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 1; }));
        QPrinter& printer = *dynamic_cast<QPrintPreviewDialog&>(dialog).printer();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(User("printed.pdf").string()));
        preview->print();
        dialog.reject();
    });
    PressKey(Qt::Key_P, Qt::ControlModifier);
    EXPECT_THAT(Dialogs.Seen, Contains("dialog: Print preview - Line design: Valve"));
    EXPECT_THAT(TextOfPdf(User("printed.pdf")), HasSubstr("Cost of the stations"));
}

TEST_F(frmMainLeaves, APictureIsPrintedWithItsTitle) {
    StartSolved();
    Dialogs.Add([this](QDialog& dialog) {
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 0; }));
        EXPECT_EQ(preview->pageCount(), 1);
        QPrinter& printer = *dynamic_cast<QPrintPreviewDialog&>(dialog).printer();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(User("printed.pdf").string()));
        preview->print();
        dialog.reject();
    });
    ChooseInContextMenu(*Picture("picGraph_2").viewport(), Qt::Key_P);
    EXPECT_THAT(TextOfPdf(User("printed.pdf")), HasSubstr("Line"));
    EXPECT_THAT(TextOfPdf(User("printed.pdf")), HasSubstr("Press"));
}

}  // namespace
}  // namespace quarnel02
