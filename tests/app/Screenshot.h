#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPalette>
#include <string>

#include "widgets/ElidedLabel.h"

namespace quarnel02::test {

inline QPalette DarkPalette() {
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

/// Gives the application its palette back.
class PaletteKeeper {
  public:
    PaletteKeeper() : m_palette(QApplication::palette()) {}
    ~PaletteKeeper() { QApplication::setPalette(m_palette); }
    PaletteKeeper(const PaletteKeeper&) = delete;
    PaletteKeeper& operator=(const PaletteKeeper&) = delete;
    PaletteKeeper(PaletteKeeper&&) = delete;
    PaletteKeeper& operator=(PaletteKeeper&&) = delete;

  private:
    QPalette m_palette;
};

/// Keeps a picture of the window beside the test program, named with its scale in percent.
inline QImage KeepScreenshot(QWidget& widget, const std::string& name) {
    const QString directory = QStringLiteral(QUARNEL02_SCREENSHOTS);
    QDir().mkpath(directory);
    const QImage image = widget.grab().toImage();
    const int percent = static_cast<int>(100 * widget.devicePixelRatioF());
    EXPECT_TRUE(image.save(
        QStringLiteral("%1/%2-%3.png").arg(directory, QString::fromStdString(name)).arg(percent)));
    return image;
}

/// Labels and buttons show their whole text, but for those that elide it by themselves; `elided`
/// names one more that may not.
inline void ExpectNothingClipped(const QWidget& window, const char* elided) {
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const bool shows_text = qobject_cast<const QLabel*>(widget) != nullptr ||
                                qobject_cast<const QAbstractButton*>(widget) != nullptr;
        const bool elides = dynamic_cast<const ElidedLabel*>(widget) != nullptr;
        if (!shows_text || elides || !widget->isVisible() || widget->objectName() == elided ||
            widget->objectName().startsWith(QStringLiteral("qt_"))) {
            continue;
        }
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
            << widget->objectName().toStdString();
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height())
            << widget->objectName().toStdString();
    }
}

}  // namespace quarnel02::test
