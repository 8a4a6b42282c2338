#include <gmock/gmock.h>

#include <QApplication>
#include <QLocale>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QLocale::setDefault(QLocale::c());
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quarnel02"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
