// A label that gives way: what it shows, and where the rest is told.
#include "widgets/ElidedLabel.h"

#include <gtest/gtest.h>

#include <QImage>

namespace quarnel02 {
namespace {

constexpr const char* kLong = "Circulation pump - /home/planner/lines/circulation-pump-2026.mdb";

QImage Shown(const QString& text, int width) {
    ElidedLabel label;
    label.Show(text, {});
    label.resize(width, 30);
    return label.grab().toImage();
}

TEST(ElidedLabel, ShowsBothEndsOfATextThatIsTooLong) {
    constexpr int narrow = 150;
    const QString text = QString::fromLatin1(kLong);
    const QString elided = ElidedLabel().fontMetrics().elidedText(text, Qt::ElideMiddle, narrow);
    ASSERT_TRUE(elided.startsWith(QLatin1Char('C')) && elided.endsWith(QLatin1Char('b')));
    ASSERT_LT(elided.size(), text.size());
    EXPECT_EQ(Shown(text, narrow), Shown(elided, narrow));
    EXPECT_NE(Shown(text, 2000), Shown(elided, 2000));
}

TEST(ElidedLabel, TellsTheWholeTextOrMoreInItsToolTip) {
    ElidedLabel label;
    label.Show(QString::fromLatin1(kLong), {});
    EXPECT_TRUE(label.toolTip().contains(QStringLiteral("circulation-pump-2026.mdb")));
    label.Show(QStringLiteral("pump.mdb"), QStringLiteral("/lines/<a>/pump.mdb"));
    EXPECT_TRUE(label.toolTip().contains(QStringLiteral("/lines/&lt;a&gt;/pump.mdb")));
    label.Show({}, {});
    EXPECT_TRUE(label.toolTip().isEmpty());
}

}  // namespace
}  // namespace quarnel02
