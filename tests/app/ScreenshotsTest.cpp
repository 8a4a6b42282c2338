// Pictures of the windows, kept beside the test program, and what must hold on each of them.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>

#include "app/PictureBox.h"
#include "app/WindowTest.h"
#include "app/frmGuide.h"
#include "app/frmReport.h"
#include "app/frmSplash.h"
#include "app/frmStatus.h"

namespace quarnel02 {
namespace {

QPalette DarkPalette() {
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(150, 150, 150));
    }
    dark.setColor(QPalette::ToolTipBase, QColor(53, 53, 53));
    dark.setColor(QPalette::ToolTipText, Qt::white);
    return dark;
}

class Screenshots : public test::WindowTest {
  protected:
    Screenshots() : m_palette(QApplication::palette()) {}
    ~Screenshots() override { QApplication::setPalette(m_palette); }

    /// The pump model, solved for two shifts and 60,000 units.
    void StartSolved() {
        Start();
        Dialogs.Type(std::string(QUARNEL02_PROGRAMS) + "/examples/pump.mdb");
        Item("mnuFileOpen").trigger();
        Window->resize(1360, 860);
        Window->SelectDemand(1);
        Dialogs.Accept();
        Dialogs.Press(QMessageBox::No);
        Click("cmdContinuous_2");
        ASSERT_TRUE(Dialogs.AllGiven());
        QCoreApplication::processEvents();
    }

    static QImage Keep(QWidget& widget, const std::string& name) {
        const QString directory = QStringLiteral(QUARNEL02_SCREENSHOTS);
        QDir().mkpath(directory);
        const QImage image = widget.grab().toImage();
        const int percent = static_cast<int>(100 * widget.devicePixelRatioF());
        EXPECT_TRUE(image.save(QStringLiteral("%1/%2-%3.png")
                                   .arg(directory, QString::fromStdString(name))
                                   .arg(percent)));
        return image;
    }

    static void ExpectNothingClipped(const QWidget& window) {
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            const bool shows_text = qobject_cast<const QLabel*>(widget) != nullptr ||
                                    qobject_cast<const QAbstractButton*>(widget) != nullptr;
            if (!shows_text || !widget->isVisible() || widget->objectName() == "lblPath" ||
                widget->objectName().startsWith(QStringLiteral("qt_"))) {
                continue;
            }
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
                << widget->objectName().toStdString();
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height())
                << widget->objectName().toStdString();
        }
    }

  private:
    QPalette m_palette;
};

TEST_F(Screenshots, MainWindow) {
    StartSolved();
    ExpectNothingClipped(*Window);
    const QImage image = Keep(*Window, "main");
    EXPECT_EQ(image.size(), Window->size() * Window->devicePixelRatioF());
}

TEST_F(Screenshots, MainWindowAsSmallAsItGets) {
    StartSolved();
    Window->resize(1, 1);
    QCoreApplication::processEvents();
    ExpectNothingClipped(*Window);
    Keep(*Window, "main-small");
    EXPECT_LE(Window->width(), 800);
    EXPECT_LE(Window->height(), 700);
}

TEST_F(Screenshots, MainWindowInADarkPalette) {
    QApplication::setPalette(DarkPalette());
    StartSolved();
    Keep(*Window, "main-dark");
    EXPECT_LT(Window->palette().color(QPalette::Window).lightness(), 80);
    for (const PictureBox* box : Window->findChildren<PictureBox*>()) {
        const QImage paper = const_cast<PictureBox*>(box)->grab().toImage();
        EXPECT_EQ(paper.pixelColor(paper.width() - 3, paper.height() - 3), QColor(Qt::white))
            << box->objectName().toStdString();
    }
}

TEST_F(Screenshots, OtherWindows) {
    StartSolved();
    Dialogs.Add([](QDialog& dialog) {
        ExpectNothingClipped(dialog);
        Keep(dialog, "file");
        dialog.reject();
    });
    Item("mnuFileOpen").trigger();

    ShowReport(Window.get(), QString::fromStdString(Copy->File("RunRpt.txt").string()));
    Keep(*Window->findChild<frmReport*>(), "report");
    Item("mnuHelpGuide").trigger();
    Keep(*Window->findChild<frmGuide*>(), "guide");

    frmStatus status(Window.get());
    status.show();
    status.SetStatus(QStringLiteral("Creating Resource Tables for Task 1 To Task 12"));
    status.SetProgress(5, 12);
    ExpectNothingClipped(status);
    Keep(status, "status");

    auto* splash = new frmSplash(Window.get());
    splash->ShowOverParent();
    ExpectNothingClipped(*splash);
    Keep(*splash, "splash");
    splash->close();
}

}  // namespace
}  // namespace quarnel02
