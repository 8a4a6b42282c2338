#include "fixed/LinePicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "support/FigureText.h"

namespace quarnel02 {
namespace {

using test::FiguresOf;

constexpr double kWidth = 7200;
constexpr double kHeight = 4200;
constexpr double kTolerance = 1e-6;

std::vector<StationFigure> Line(int count, int quantity) {
    std::vector<StationFigure> stations;
    for (int i = 0; i < count; ++i) {
        stations.push_back({i % 4, quantity});
    }
    return stations;
}

Picture Drawn(const std::vector<StationFigure>& stations) {
    Picture picture(kWidth, kHeight);
    DrawLine(picture, stations);
    return picture;
}

std::vector<TextFigure> Labels(const Picture& picture) {
    auto texts = FiguresOf<TextFigure>(picture);
    texts.erase(texts.begin(), texts.begin() + 2);
    return texts;
}

Extent Box(const IconFigure& icon) {
    return {icon.X, icon.Y, icon.X + icon.Size, icon.Y + icon.Size};
}

Extent Box(const TextFigure& text) {
    return {text.X, text.Y, text.X + TextWidth(text.Text, text.Face),
            text.Y + LineHeight(text.Face)};
}

std::vector<Extent> Boxes(const Picture& picture) {
    std::vector<Extent> boxes;
    for (const auto& icon : FiguresOf<IconFigure>(picture)) {
        boxes.push_back(Box(icon));
    }
    for (const auto& text : FiguresOf<TextFigure>(picture)) {
        boxes.push_back(Box(text));
    }
    return boxes;
}

bool Overlap(const Extent& a, const Extent& b) {
    return a.Left < b.Right - kTolerance && b.Left < a.Right - kTolerance &&
           a.Top < b.Bottom - kTolerance && b.Top < a.Bottom - kTolerance;
}

bool OnPaper(const Extent& box) {
    return box.Left >= -kTolerance && box.Top >= -kTolerance && box.Right <= kWidth + kTolerance &&
           box.Bottom <= kHeight + kTolerance;
}

std::string Text(const Extent& box) {
    return test::PairText(box.Left, box.Top) + "-" + test::PairText(box.Right, box.Bottom);
}

void ExpectTidy(const Picture& picture) {
    const auto boxes = Boxes(picture);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_TRUE(OnPaper(boxes[i])) << Text(boxes[i]);
        for (std::size_t j = i + 1; j < boxes.size(); ++j) {
            EXPECT_FALSE(Overlap(boxes[i], boxes[j])) << Text(boxes[i]) << " on " << Text(boxes[j]);
        }
    }
}

/// Icons of each row, by their top.
std::map<double, std::vector<IconFigure>> RowsOf(const Picture& picture) {
    std::map<double, std::vector<IconFigure>> rows;
    for (const auto& icon : FiguresOf<IconFigure>(picture)) {
        rows[icon.Y].push_back(icon);
    }
    return rows;
}

void ExpectCentredRows(const Picture& picture) {
    for (const auto& [top, icons] : RowsOf(picture)) {
        const double right = icons.back().X + icons.back().Size;
        EXPECT_NEAR(icons.front().X + right, kWidth, 1e-6) << "row at " << top;
    }
}

/// Every label stands under its icon and is centred to a few pixels.
void ExpectLabelsUnderIcons(const Picture& picture, int quantity) {
    const auto icons = FiguresOf<IconFigure>(picture);
    const auto labels = Labels(picture);
    ASSERT_EQ(labels.size(), icons.size());
    for (std::size_t i = 0; i < icons.size(); ++i) {
        EXPECT_EQ(labels[i].Text, "Qty: " + std::to_string(quantity));
        EXPECT_GE(labels[i].Y, icons[i].Y + icons[i].Size);
        const Extent label = Box(labels[i]);
        const double off = (label.Left + label.Right) / 2 - (icons[i].X + icons[i].Size / 2);
        EXPECT_LE(std::fabs(off), 100) << labels[i].Text << " of figure " << i;
    }
}

class LineOf : public testing::TestWithParam<int> {};

TEST_P(LineOf, FitsThePaperWithoutOverlaps) {
    for (const int quantity : {1, 9, 10, 99, 100}) {
        SCOPED_TRACE("quantity " + std::to_string(quantity));
        const Picture picture = Drawn(Line(GetParam(), quantity));
        EXPECT_EQ(FiguresOf<IconFigure>(picture).size(), static_cast<std::size_t>(GetParam()));
        ExpectTidy(picture);
    }
}

TEST_P(LineOf, CentresItsRows) {
    ExpectCentredRows(Drawn(Line(GetParam(), 1)));
}

TEST_P(LineOf, LabelsEveryFigure) {
    ExpectLabelsUnderIcons(Drawn(Line(GetParam(), 1)), 1);
    ExpectLabelsUnderIcons(Drawn(Line(GetParam(), 12)), 12);
}

TEST_P(LineOf, StandsInLineOrder) {
    const auto icons = FiguresOf<IconFigure>(Drawn(Line(GetParam(), 1)));
    for (std::size_t i = 0; i < icons.size(); ++i) {
        EXPECT_EQ(static_cast<int>(icons[i].Type), static_cast<int>(i % 4));
        if (i > 0) {
            EXPECT_TRUE(icons[i].Y > icons[i - 1].Y || icons[i].X > icons[i - 1].X);
        }
    }
}

TEST_P(LineOf, BeginsAtTheHeightOfItsRows) {
    const auto rows = RowsOf(Drawn(Line(GetParam(), 1)));
    const double first = rows.begin()->first;
    EXPECT_NEAR(first, (rows.size() == 1 ? 0.26 : 0.15) * kHeight, 1e-9);
    if (rows.size() == 2) {
        EXPECT_NEAR(rows.rbegin()->first, 0.55 * kHeight, 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(Stations, LineOf, testing::Range(1, 31));
INSTANTIATE_TEST_SUITE_P(ManyStations, LineOf, testing::Values(45, 60));

TEST(DrawLine, KeepsFiguresAtFullSizeInUpToTwoRows) {
    // 7 steps of 1000 fit into 7200.
    for (const int stations : {1, 7, 8, 14}) {
        const LineLayout layout = LayOutLine(stations, kWidth, kHeight);
        EXPECT_EQ(layout.Scale, 1) << stations;
        EXPECT_EQ(layout.Rows, stations <= 7 ? 1 : 2) << stations;
    }
    EXPECT_LT(LayOutLine(15, kWidth, kHeight).Scale, 1);
}

TEST(DrawLine, PlacesOneStationAroundTheMiddle) {
    // Cell of 1000 round 3600, icon of 900 in it, top 0.26 x 4200; label 330 and 1000 further.
    EXPECT_EQ(
        test::FigureTexts(Drawn({{2, 3}})),
        (std::vector<std::string>{"text (60, 60) [Graphical Representation]",
                                  "text (60, 260) [------------------------------------]",
                                  "icon 2 (3150, 1092) size 900", "text (3430, 2092) [Qty: 3]"}));
}

TEST(DrawLine, DrawsTheHeadingAloneForNoStation) {
    EXPECT_EQ(Drawn({}).Figures().size(), 2U);
}

TEST(DrawLine, LabelsAStationOfUnknownTypeWithoutIcon) {
    const Picture picture = Drawn({{7, 2}, {-1, 3}, {1, 4}});
    EXPECT_EQ(FiguresOf<IconFigure>(picture).size(), 1U);
    const auto labels = Labels(picture);
    ASSERT_EQ(labels.size(), 3U);
    EXPECT_EQ(labels[0].Text, "Qty: 2");
    EXPECT_EQ(labels[1].Text, "Qty: 3");
    EXPECT_EQ(labels[2].Text, "Qty: 4");
}

TEST(DrawLine, ClearsWhatThePictureHeld) {
    Picture picture(kWidth, kHeight);
    const std::vector<StationFigure> line = Line(3, 1);
    DrawLine(picture, line);
    const auto first = picture.Figures();
    picture.CurrentY = 700;
    DrawLine(picture, line);
    EXPECT_EQ(picture.Figures(), first);
}

}  // namespace
}  // namespace quarnel02
