#include "platform/drawing/AnimationFrames.h"

#include <gtest/gtest.h>

#include <chrono>

namespace corvane::contract {

namespace {

using namespace std::chrono_literals;
using drawing::AnimationFrames;
using drawing::FrameTimes;
using drawing::OverlayScene;
using Blending = OverlayScene::Blending;

/// A disc that grows to the whole of a window of 20 by 20 pixels while it fades out.
const Animation growingDisc{.key = "disc",
                            .shape = {.path = {.kind = Path::Kind::ellipse, .bounds = {8, 8, 4, 4}},
                                      .fill = Colour{ColourName::systemBlue}},
                            .endPath = {.kind = Path::Kind::ellipse, .bounds = {0, 0, 20, 20}},
                            .startOpacity = 1,
                            .endOpacity = 0,
                            .duration = 100ms};

class AnimationFramesTest : public testing::Test {
  protected:
    AnimationFrames frames(Blending blending, Drawing drawing = {}) const {
        return {painter_,
                {.size = {20, 20},
                 .part = {0, 0, 20, 20},
                 .blending = blending,
                 .background = {ColourName::clear},
                 .drawing = std::move(drawing)},
                growingDisc};
    }

    static int visiblePixels(const QImage &image) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
            }
        }
        return count;
    }

    drawing::SymbolImages symbols_;
    drawing::OverlayPainter painter_{symbols_};
};

TEST(FrameTimesTest, SixtyASecondOfWhichTheLastComesWithTheEndOnly) {
    const FrameTimes times(100ms);
    EXPECT_EQ(times.count(), 7U);
    EXPECT_EQ(times.indexAt(-1ms), 0U);
    EXPECT_EQ(times.indexAt(16ms), 0U);
    EXPECT_EQ(times.indexAt(17ms), 1U);
    EXPECT_EQ(times.indexAt(99ms), 5U);
    EXPECT_FALSE(times.isOverAt(99ms));
    EXPECT_EQ(times.indexAt(100ms), 6U);
    EXPECT_TRUE(times.isOverAt(100ms));
    EXPECT_EQ(times.indexAt(1h), 6U);

    const FrameTimes uneven(105ms);
    EXPECT_EQ(uneven.count(), 7U);
    EXPECT_EQ(uneven.indexAt(104ms), 5U);
}

TEST_F(AnimationFramesTest, TheShapeMovesAndFadesWhereItIsBlended) {
    const AnimationFrames disc = frames(Blending::translucent);
    EXPECT_EQ(disc.paint(0).pixelColor(10, 10).alpha(), 255);
    EXPECT_EQ(disc.paint(0).pixelColor(10, 3).alpha(), 0);
    EXPECT_NEAR(disc.paint(3).pixelColor(10, 10).alpha(), 128, 2);
    EXPECT_NEAR(disc.paint(5).pixelColor(10, 3).alpha(), 43, 2);
    EXPECT_EQ(visiblePixels(disc.paint(6)), 0);
    EXPECT_EQ(disc.onlyColour(), std::nullopt);
}

TEST_F(AnimationFramesTest, WithoutBlendingTheShapeStaysOpaqueUntilItIsGone) {
    const AnimationFrames disc = frames(Blending::cutOut);
    EXPECT_EQ(disc.paint(5).pixelColor(10, 10).alpha(), 255);
    EXPECT_GT(visiblePixels(disc.paint(5)), visiblePixels(disc.paint(0)));
    EXPECT_EQ(visiblePixels(disc.paint(6)), 0);
    EXPECT_EQ(disc.onlyColour(), disc.paint(5).pixel(10, 10));
}

TEST_F(AnimationFramesTest, ADrawingBeneathIsInEveryFrame) {
    const Rectangle corner{0, 0, 2, 2};
    const AnimationFrames disc =
        frames(Blending::cutOut,
               {Shape{.path = {.bounds = corner}, .fill = Colour{ColourName::systemGreen}}});
    EXPECT_EQ(visiblePixels(disc.paint(6)), 4);
    EXPECT_EQ(disc.onlyColour(), std::nullopt);
}

} // namespace

} // namespace corvane::contract
