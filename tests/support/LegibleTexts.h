#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "picture/LabelPlaces.h"
#include "support/FigureText.h"

namespace quarnel02::test {

/// A text of a picture and what it covers.
struct PlacedText {
    std::string Text;
    Extent Place;
};

/// The texts of a picture, none of which may be below 8 points.
inline std::vector<PlacedText> TextsOf(const Picture& picture) {
    std::vector<PlacedText> texts;
    for (const auto& text : FiguresOf<TextFigure>(picture)) {
        EXPECT_GE(text.Face.Points, Page::kSmallestPoints) << text.Text;
        texts.push_back({text.Text, ExtentOf(text, *picture.LaidOutFor().Measure)});
    }
    return texts;
}

/// No text of a picture, measured with the letters that it was laid out for, is small, beyond the
/// paper, or on another one.
inline void ExpectLegible(const Picture& picture) {
    const auto texts = TextsOf(picture);
    EXPECT_FALSE(texts.empty());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const Extent& place = texts[i].Place;
        EXPECT_GE(place.Left, 0) << texts[i].Text;
        EXPECT_GE(place.Top, 0) << texts[i].Text;
        EXPECT_LE(place.Right, picture.Width() + 1) << texts[i].Text;
        EXPECT_LE(place.Bottom, picture.Height() + 1) << texts[i].Text;
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            EXPECT_FALSE(Overlap(place, texts[j].Place))
                << "[" << texts[i].Text << "] and [" << texts[j].Text << "]";
        }
    }
}

}  // namespace quarnel02::test
