#include "picture/Icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "basic/Numbers.h"

namespace quarnel02 {
namespace {

constexpr ResourceType kTypes[] = {ResourceType::Manual, ResourceType::Fixed,
                                   ResourceType::Programmable, ResourceType::Automated};

bool InUnit(double from, double to) {
    return from >= 0 && to <= 1;
}

std::string OutlineOf(ResourceType type) {
    std::string outline;
    for (const IconShape& shape : IconShapes(type)) {
        for (const IconPoint& point : shape.Points) {
            outline += NumberText(point.X) + "," + NumberText(point.Y) + " ";
        }
        outline += "r" + NumberText(shape.Radius) + ";";
    }
    return outline;
}

TEST(IconShapes, LieInTheUnitSquare) {
    for (const ResourceType type : kTypes) {
        for (const IconShape& shape : IconShapes(type)) {
            for (const IconPoint& point : shape.Points) {
                EXPECT_TRUE(InUnit(point.X - shape.Radius, point.X + shape.Radius)) << point.X;
                EXPECT_TRUE(InUnit(point.Y - shape.Radius, point.Y + shape.Radius)) << point.Y;
            }
        }
    }
}

TEST(IconShapes, AreDiscsOrPolygons) {
    for (const ResourceType type : kTypes) {
        EXPECT_GE(IconShapes(type).size(), 3U);
        for (const IconShape& shape : IconShapes(type)) {
            if (shape.Radius > 0) {
                EXPECT_EQ(shape.Points.size(), 1U);
            } else {
                EXPECT_GE(shape.Points.size(), 3U);
            }
        }
    }
}

TEST(IconShapes, DifferFromTypeToType) {
    for (const ResourceType one : kTypes) {
        for (const ResourceType other : kTypes) {
            EXPECT_EQ(OutlineOf(one) == OutlineOf(other), one == other);
        }
    }
}

TEST(IconShapes, FillMostOfTheSquare) {
    for (const ResourceType type : kTypes) {
        double left = 1;
        double right = 0;
        double top = 1;
        double bottom = 0;
        for (const IconShape& shape : IconShapes(type)) {
            for (const IconPoint& point : shape.Points) {
                left = std::min(left, point.X - shape.Radius);
                right = std::max(right, point.X + shape.Radius);
                top = std::min(top, point.Y - shape.Radius);
                bottom = std::max(bottom, point.Y + shape.Radius);
            }
        }
        EXPECT_GT(right - left, 0.7);
        EXPECT_GT(bottom - top, 0.7);
    }
}

}  // namespace
}  // namespace quarnel02
