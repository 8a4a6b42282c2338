// How a report is opened, and the viewer that is always there.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QFontInfo>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QWidget>

#include "app/ReportLauncher.h"
#include "app/frmReport.h"
#include "basic/Files.h"
#include "support/RunTimeErrors.h"

namespace quarnel02 {
namespace {

using ::testing::ElementsAre;

class Launching : public ::testing::Test {
  protected:
    std::vector<std::string> Launch(bool programStarts, bool editorOpens,
                                    const std::string& report = "/my files/RunRpt.txt") {
        std::vector<std::string> tried;
        const ReportLauncher launcher(ReportLauncher::Ways{
            [&](const QString& program, const QString& file) {
                tried.push_back("start " + program.toStdString() + "|" + file.toStdString());
                return programStarts;
            },
            [&](const QString& file) {
                tried.push_back("edit " + file.toStdString());
                return editorOpens;
            },
            [&](const QString& file) { tried.push_back("view " + file.toStdString()); }});
        launcher.Start("notepad.exe " + report);
        return tried;
    }
};

TEST_F(Launching, StartsTheProgram) {
    EXPECT_THAT(Launch(true, true), ElementsAre("start notepad.exe|/my files/RunRpt.txt"));
}

TEST_F(Launching, OpensTheEditorWithoutTheProgram) {
    EXPECT_THAT(Launch(false, true),
                ElementsAre("start notepad.exe|/my files/RunRpt.txt", "edit /my files/RunRpt.txt"));
}

TEST_F(Launching, ViewsTheFileWithoutAnEditor) {
    EXPECT_THAT(Launch(false, false),
                ElementsAre("start notepad.exe|/my files/RunRpt.txt", "edit /my files/RunRpt.txt",
                            "view /my files/RunRpt.txt"));
}

TEST_F(Launching, RefusesAPipeOrADirectoryInPlaceOfTheReport) {
    const TemporaryDirectory place;
    const std::string pipe = PathText(place.Path() / "RunRpt.txt");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& file : {pipe, PathText(place.Path())}) {
        const std::string message =
            test::ExpectRunTimeError(ErrorKind::FileAccess, [&] { Launch(true, true, file); });
        EXPECT_TRUE(message.starts_with(file + " is no report")) << message;
    }
}

class Viewing : public ::testing::Test {
  protected:
    void Write(const std::string& name, const std::string& text) {
        WriteFile(Place.Path() / name, text);
    }
    void View(const std::string& name) {
        ShowReport(&Parent, QString::fromStdString((Place.Path() / name).string()));
    }
    [[nodiscard]] QList<frmReport*> Viewers() const { return Parent.findChildren<frmReport*>(); }
    [[nodiscard]] static QPlainTextEdit& TextOf(const frmReport& viewer) {
        return *viewer.findChild<QPlainTextEdit*>();
    }

    TemporaryDirectory Place;
    QWidget Parent;
};

TEST_F(Viewing, ShowsTheFileInFixedPitch) {
    Write("RunRpt.txt", "Solution\n 1    2\n");
    View("RunRpt.txt");
    ASSERT_EQ(Viewers().size(), 1);
    const frmReport& viewer = *Viewers()[0];
    EXPECT_EQ(viewer.windowTitle(), "RunRpt.txt");
    EXPECT_FALSE(viewer.isModal());
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_EQ(TextOf(viewer).toPlainText(), "Solution\n 1    2\n");
    EXPECT_TRUE(TextOf(viewer).isReadOnly());
    EXPECT_TRUE(QFontInfo(TextOf(viewer).font()).fixedPitch());
}

TEST_F(Viewing, ShowsARewrittenFileInTheSameWindow) {
    Write("RunRpt.txt", "first");
    View("RunRpt.txt");
    Write("RunRpt.txt", "second");
    View("RunRpt.txt");
    ASSERT_EQ(Viewers().size(), 1);
    EXPECT_EQ(TextOf(*Viewers()[0]).toPlainText(), "second");
}

TEST_F(Viewing, ShowsTwoFilesSideBySide) {
    Write("RunRpt.txt", "one");
    Write("ProdRpt.txt", "two");
    View("RunRpt.txt");
    View("ProdRpt.txt");
    EXPECT_EQ(Viewers().size(), 2);
}

TEST_F(Viewing, SaysWhenTheFileCannotBeRead) {
    View("missing.txt");
    EXPECT_TRUE(TextOf(*Viewers()[0]).toPlainText().contains("missing.txt cannot be read"));
}

TEST_F(Viewing, ClosesByItsButton) {
    Write("RunRpt.txt", "one");
    View("RunRpt.txt");
    QTest::mouseClick(Viewers()[0]->findChild<QPushButton*>("cmdClose"), Qt::LeftButton);
    EXPECT_FALSE(Viewers()[0]->isVisible());
}

}  // namespace
}  // namespace quarnel02
