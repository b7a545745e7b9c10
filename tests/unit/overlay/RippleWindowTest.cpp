#include "overlay/RippleWindow.h"

#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(RippleWindowTest, IsCentredOnTheClickAndLetsClicksThrough) {
    testing::RecordingPlatform platform;
    RippleWindow ripple(platform.overlayWindows(), {300, 100}, 1080);
    const BorderlessWindow expected{.frame = {275, 955, 50, 50},
                                    .level = 1000,
                                    .background = {ColourName::clear},
                                    .ignoresMouseEvents = true,
                                    .joinsAllSpaces = true,
                                    .fullScreenAuxiliary = true};
    EXPECT_EQ(platform.overlayWindows().all().at(0)->window, expected);
}

TEST(RippleWindowTest, WithoutScreensThePointIsNotConverted) {
    EXPECT_EQ(RippleWindow::frameFor({300, 100}, std::nullopt), (Rectangle{275, 75, 50, 50}));
}

TEST(RippleWindowTest, GrowsAndFadesOnceAndThenTellsSo) {
    testing::RecordingPlatform platform;
    RippleWindow ripple(platform.overlayWindows(), {300, 100}, 1080);
    const auto native = platform.overlayWindows().all().at(0);
    int completions = 0;
    ripple.orderFront();
    ripple.animate([&completions] { ++completions; });
    const Animation expected{.key = "ripple",
                             .shape = {.path = {Path::Kind::ellipse, {21, 21, 8, 8}},
                                       .stroke = Colour{ColourName::systemBlue},
                                       .lineWidth = 2},
                             .endPath = {Path::Kind::ellipse, {5, 5, 40, 40}},
                             .startOpacity = 1,
                             .endOpacity = 0,
                             .duration = std::chrono::milliseconds(400),
                             .timing = TimingFunction::easeOut};
    EXPECT_EQ(native->plays, std::vector{expected});
    EXPECT_EQ(completions, 0);
    native->completeAnimations();
    EXPECT_EQ(completions, 1);
}

} // namespace
} // namespace corvane
