#include "overlay/ZoneOverlayWindow.h"

#include "overlay/ZoneOverlayView.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvane {
namespace {

TEST(ZoneOverlayWindowTest, LiesOverTheZoneWithAStripForTheBadge) {
    testing::RecordingPlatform platform;
    ZoneOverlayWindow overlay(platform.overlayWindows(), {100, 200, 300, 150}, 1080);
    const auto native = platform.overlayWindows().all().at(0);
    const BorderlessWindow expected{.frame = {100, 730, 300, 174},
                                    .level = 25,
                                    .background = {ColourName::clear},
                                    .ignoresMouseEvents = true,
                                    .joinsAllSpaces = true,
                                    .fullScreenAuxiliary = true};
    EXPECT_EQ(native->window, expected);
    EXPECT_FALSE(native->isVisible);
    overlay.orderFront();
    EXPECT_TRUE(native->isVisible);
    EXPECT_FALSE(native->isKey);
    overlay.moveTo({0, 0, 300, 150}, 1080);
    EXPECT_EQ(native->frame, (Rectangle{0, 930, 300, 174}));
    overlay.orderOut();
    EXPECT_FALSE(native->isVisible);
}

TEST(ZoneOverlayWindowTest, IsLeftAloneWhileTheZoneStandsStill) {
    testing::RecordingPlatform platform;
    ZoneOverlayWindow overlay(platform.overlayWindows(), {100, 200, 300, 150}, 1080);
    const auto native = platform.overlayWindows().all().at(0);
    for (int pass = 0; pass < 3; ++pass) {
        overlay.moveTo({100, 200, 300, 150}, 1080);
    }
    EXPECT_TRUE(native->framesSet.empty());
    overlay.moveTo({101, 200, 300, 150}, 1080);
    overlay.moveTo({100, 200, 300, 150}, 1080);
    EXPECT_EQ(native->framesSet,
              (std::vector<Rectangle>{{101, 730, 300, 174}, {100, 730, 300, 174}}));
    EXPECT_EQ(native->drawingsSet, 1);
}

TEST(ZoneOverlayWindowTest, DrawsAZoneOfAnotherSizeAfresh) {
    testing::RecordingPlatform platform;
    ZoneOverlayWindow overlay(platform.overlayWindows(), {100, 200, 300, 150}, 1080);
    const auto native = platform.overlayWindows().all().at(0);
    EXPECT_EQ(native->drawing, ZoneOverlayView::drawing({300, 174}));
    overlay.moveTo({100, 200, 60, 50}, 1080);
    EXPECT_EQ(native->frame, (Rectangle{100, 830, 60, 74}));
    EXPECT_EQ(native->drawing, ZoneOverlayView::drawing({60, 74}));
}

TEST(ZoneOverlayWindowTest, LiesWhereAZoneOfNegativeSizeTakesClicks) {
    EXPECT_EQ(ZoneOverlayWindow::frameFor({400, 350, -300, -150}, 1080),
              (Rectangle{100, 730, 300, 174}));
}

TEST(ZoneOverlayWindowTest, WithoutScreensTheZoneIsNotConverted) {
    EXPECT_EQ(ZoneOverlayWindow::frameFor({100, 200, 300, 150}, std::nullopt),
              (Rectangle{100, 176, 300, 174}));
}

TEST(ZoneOverlayViewTest, FillsOutlinesAndMarksTheZone) {
    const Drawing expected = {Shape{.path = {Path::Kind::rectangle, {0, 0, 300, 150}},
                                    .fill = Colour{ColourName::systemGreen, 0.15}},
                              Shape{.path = {Path::Kind::rectangle, {0.75, 0.75, 298.5, 148.5}},
                                    .stroke = Colour{ColourName::systemGreen},
                                    .lineWidth = 1.5},
                              Shape{.path = {Path::Kind::roundedRectangle, {0, 150, 22, 22}, 5},
                                    .fill = Colour{ColourName::systemGreen, 0.85}},
                              SymbolDrawing{.symbol = {.name = "cursorarrow.click.2",
                                                       .pointSize = 12,
                                                       .weight = FontWeight::medium},
                                            .colour = {ColourName::white},
                                            .frame = {5, 155, 12, 12}}};
    EXPECT_EQ(ZoneOverlayView::drawing({300, 174}), expected);
}

TEST(ZoneOverlayViewTest, ANarrowZoneKeepsTheWholeBadge) {
    const Drawing drawing = ZoneOverlayView::drawing({15, 54});
    EXPECT_EQ(std::get<Shape>(drawing.at(2)).path.bounds, (Rectangle{0, 30, 22, 22}));
}

} // namespace
} // namespace corvane
