#include <gmock/gmock.h>

#include <QApplication>
#include <QFontInfo>
#include <QLocale>
#include <algorithm>
#include <array>
#include <iostream>

namespace {

/// Whether the tests get the fonts that they bring.
bool HasFonts() {
    constexpr std::array families = {"Liberation Sans", "Liberation Mono"};
    return std::all_of(families.begin(), families.end(), [](const char* name) {
        const QString family = QString::fromLatin1(name);
        return QFontInfo(QFont(family)).family() == family;
    });
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("FONTCONFIG_FILE", QUARNEL02_FONTS);
    QLocale::setDefault(QLocale::c());
    const QApplication application(argc, argv);
    constexpr int points = 9;
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), points));
    QCoreApplication::setApplicationName(QStringLiteral("quarnel02"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    ::testing::InitGoogleMock(&argc, argv);
    if (!::testing::GTEST_FLAG(list_tests) && !HasFonts()) {
        std::cerr << "fonts-liberation is missing; run scripts/setup\n";
        return 1;
    }
    return RUN_ALL_TESTS();
}
