// Long texts in lines of a page.
#include "print/WrapText.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>

#include "print/PaperFonts.h"

namespace quarnel02 {
namespace {

const QString kText = QStringLiteral("Load the housing into the fixture and press the bearing");

TEST(WrapText, BreaksAtBlanksAndKeepsEveryWord) {
    const QFont font = PaperFont(PaperText::Table);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(kText) / 3.5;
    const QStringList lines = WrapText(kText, width, font);
    EXPECT_GE(lines.size(), 4);
    EXPECT_EQ(lines.join(QLatin1Char(' ')), kText);
    for (const QString& line : lines) {
        EXPECT_LE(metrics.horizontalAdvance(line), width) << line.toStdString();
    }
}

TEST(WrapText, BreaksAWordOnlyWhereItIsWiderThanTheLine) {
    const QFont font = PaperFont(PaperText::Table);
    const QFontMetricsF metrics(font);
    const QString word(60, QLatin1Char('W'));
    const double width = metrics.horizontalAdvance(word.left(25)) + 1;
    EXPECT_EQ(WrapText(QStringLiteral("a ") + word, width, font),
              (QStringList{QStringLiteral("a"), word.left(25), word.left(25), word.left(10)}));
}

TEST(WrapText, AnEmptyTextIsOneEmptyLineAndALetterAlwaysFits) {
    const QFont font = PaperFont(PaperText::Table);
    EXPECT_EQ(WrapText({}, 1000, font), QStringList{QString()});
    EXPECT_EQ(WrapText(QStringLiteral("ab"), 1, font),
              (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST(WrapColumns, IndentsWhatGoesOnAndKeepsBlanks) {
    EXPECT_EQ(WrapColumns(QStringLiteral("1  2  3  4  5  6"), 10),
              (QStringList{QStringLiteral("1  2  3  4"), QStringLiteral("      5  6")}));
    EXPECT_EQ(WrapColumns(QStringLiteral("123456789012345678"), 10),
              (QStringList{QStringLiteral("1234567890"), QStringLiteral("    123456"),
                           QStringLiteral("    78")}));
    EXPECT_EQ(WrapColumns({}, 10), QStringList{QString()});
}

}  // namespace
}  // namespace quarnel02
