#include "shell/PictureBoxes.h"

#include <gtest/gtest.h>

namespace quarnel02 {
namespace {

TEST(PictureBoxes, AreEmptyPicturesOfTheirSizes) {
    const PictureBoxes boxes;
    EXPECT_EQ(boxes.picArc.Width(), 15000);
    EXPECT_GT(boxes.picArc.Height(), 1500);
    EXPECT_TRUE(boxes.picArc.Figures().empty());
    for (const Picture& picture : boxes.picGraph) {
        EXPECT_GT(picture.Width(), 0);
        EXPECT_GT(picture.Height(), 0);
        EXPECT_TRUE(picture.Figures().empty());
    }
    EXPECT_GT(boxes.picLoad.Width(), 0);
    EXPECT_GT(boxes.picLoad.Height(), 0);
    EXPECT_TRUE(boxes.picLoad.Figures().empty());
}

}  // namespace
}  // namespace quarnel02
