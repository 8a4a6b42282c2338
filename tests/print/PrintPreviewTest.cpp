// The pages before they are printed.
#include "print/PrintPreview.h"

#include <gmock/gmock.h>

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/Answers.h"
#include "basic/Files.h"
#include "print/PrintDocument.h"
#include "support/ProgramRun.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using ::testing::HasSubstr;

Document Lines(int lines) {
    Document document{"Line design: Pump", "Pump", "2026-11-21 12:00", {}};
    for (int line = 0; line < lines; ++line) {
        document.Parts.emplace_back(ParagraphPart{"Line " + std::to_string(line)});
    }
    return document;
}

TEST(ShowPrintPreview, ShowsThePagesThatWillBePrinted) {
    test::Answers dialogs;
    int pages = 0;
    QString title;
    dialogs.Add([&](QDialog& dialog) {
        title = dialog.windowTitle();
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_NE(preview, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 1; }));
        pages = preview->pageCount();
        dialog.reject();
    });
    ShowPrintPreview(nullptr, Lines(150));
    EXPECT_GE(pages, 3);
    EXPECT_EQ(title, "Print preview - Line design: Pump");
}

TEST(ShowPrintPreview, PrintsIntoAFileWithoutAPrinter) {
    const TemporaryDirectory place;
    const std::string file = (place.Path() / "printed.pdf").string();
    test::Answers dialogs;
    dialogs.Add([&](QDialog& dialog) {
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 0; }));
        QPrinter& printer = *dynamic_cast<QPrintPreviewDialog&>(dialog).printer();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file));
        preview->print();
        dialog.reject();
    });
    ShowPrintPreview(nullptr, Lines(3));
    EXPECT_THAT(test::RunProgram({"pdftotext", file, "-"}).Out, HasSubstr("Line 2"));
    EXPECT_THAT(test::RunProgram({"pdfinfo", file}).Out, HasSubstr("(A4)"));
}

/// Has the preview print into a file, once it has shown that by itself it leaves that alone.
void PrintInto(test::Answers& dialogs, const std::filesystem::path& file) {
    dialogs.Add([file](QDialog& dialog) {
        auto* preview = dialog.findChild<QPrintPreviewWidget*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return preview->pageCount() > 0; }));
        QPrinter& printer = *dynamic_cast<QPrintPreviewDialog&>(dialog).printer();
        printer.setOutputFileName(QString::fromStdString(file.string()));
        const FileKind before = KindOfFile(file);
        preview->updatePreview();
        EXPECT_EQ(KindOfFile(file), before);
        preview->print();
        EXPECT_EQ(printer.outputFileName().toStdString(), file.string());
        dialog.reject();
    });
}

TEST(ShowPrintPreview, ReplacesAnEarlierFileAsAWhole) {
    const TemporaryDirectory place;
    const std::filesystem::path file = place.Path() / "printed.pdf";
    WriteFile(file, "what stood here");
    std::ifstream earlier(file);  // whoever reads the old file still has it
    test::Answers dialogs;
    PrintInto(dialogs, file);
    ShowPrintPreview(nullptr, Lines(3));
    EXPECT_TRUE(ReadFile(file).starts_with("%PDF-"));
    std::string line;
    std::getline(earlier, line);
    EXPECT_EQ(line, "what stood here");
}

TEST(ShowPrintPreview, SaysWhichFileItCouldNotPrintInto) {
    const TemporaryDirectory place;
    const std::filesystem::path file = place.Path() / "missing" / "printed.pdf";
    test::Answers dialogs;
    PrintInto(dialogs, file);
    const std::string message = test::ExpectRunTimeError(
        ErrorKind::FileNotFound, [] { ShowPrintPreview(nullptr, Lines(3)); });
    EXPECT_THAT(message, HasSubstr("printed.pdf"));
}

TEST(PrintDocument, KeepsWithinOtherPaper) {
    const TemporaryDirectory place;
    const std::string file = (place.Path() / "printed.pdf").string();
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(file));
    printer.setPageSize(QPageSize(QPageSize::A5));
    printer.setPageOrientation(QPageLayout::Landscape);
    const int pages = PrintDocument(Lines(40), printer);
    EXPECT_GE(pages, 2);
    EXPECT_THAT(test::RunProgram({"pdfinfo", file}).Out,
                HasSubstr("Pages:           " + std::to_string(pages)));
    EXPECT_THAT(test::RunProgram({"pdftotext", file, "-"}).Out, HasSubstr("Line 39"));
}

}  // namespace
}  // namespace quarnel02
