#include "support/Geometry.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(GeometryTest, MinimumEdgesAreInsideAndMaximumEdgesOutside) {
    const Rectangle zone{10, 20, 30, 40};
    EXPECT_TRUE(zone.contains({10, 20}));
    EXPECT_TRUE(zone.contains({39.9, 59.9}));
    EXPECT_FALSE(zone.contains({40, 30}));
    EXPECT_FALSE(zone.contains({20, 60}));
    EXPECT_FALSE(zone.contains({9.9, 30}));
}

TEST(GeometryTest, AnEmptyRectangleContainsNothing) {
    EXPECT_FALSE((Rectangle{10, 20, 0, 40}).contains({10, 20}));
    EXPECT_FALSE((Rectangle{10, 20, 30, 0}).contains({10, 20}));
}

TEST(GeometryTest, ANegativeSizeMeansTheMirroredArea) {
    const Rectangle zone{40, 60, -30, -40};
    EXPECT_TRUE(zone.contains({10, 20}));
    EXPECT_FALSE(zone.contains({40, 60}));
}

TEST(GeometryTest, TheStandardFormOfARectangleIsTheSameAreaWithAPositiveSize) {
    EXPECT_EQ((Rectangle{40, 60, -30, -40}).standardised(), (Rectangle{10, 20, 30, 40}));
    EXPECT_EQ((Rectangle{0.1, 0.2, 0.3, 0}).standardised(), (Rectangle{0.1, 0.2, 0.3, 0}));
}

TEST(GeometryTest, FlipsBetweenTheSpacesEitherWay) {
    const Rectangle onScreen{100, 200, 300, 150};
    const Rectangle global = flipped(onScreen, 1080);
    EXPECT_EQ(global, (Rectangle{100, 730, 300, 150}));
    EXPECT_EQ(flipped(global, 1080), onScreen);
    EXPECT_EQ(flipped(Point{300, 100}, 1080), (Point{300, 980}));
}

TEST(GeometryTest, SpansTwoPointsInAnyOrder) {
    const Rectangle expected{1, 2, 3, 4};
    EXPECT_EQ(Rectangle::spanning({1, 2}, {4, 6}), expected);
    EXPECT_EQ(Rectangle::spanning({4, 6}, {1, 2}), expected);
    EXPECT_EQ(Rectangle::spanning({1, 6}, {4, 2}), expected);
}

} // namespace
} // namespace corvane
