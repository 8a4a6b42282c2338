#include <gmock/gmock.h>

#include <QApplication>
#include <QFontInfo>
#include <QLocale>

namespace {

/// The same glyphs on every machine, those of fonts-liberation.
class PinnedFonts : public ::testing::Environment {
  public:
    void SetUp() override {
        for (const char* family : {"Liberation Sans", "Liberation Mono"}) {
            const QString found = QFontInfo(QFont(QString::fromLatin1(family))).family();
            ASSERT_EQ(found.toStdString(), family) << "run scripts/setup";
        }
    }
};

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
    ::testing::AddGlobalTestEnvironment(new PinnedFonts);
    return RUN_ALL_TESTS();
}
