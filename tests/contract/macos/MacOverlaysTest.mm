#import "MacBackEnd.h"
#import "Pictures.h"
#include "overlay/RippleWindow.h"
#include "overlay/ZoneOverlayWindow.h"
#import "platform/macos/overlay/MacOverlayWindow.h"

#import <AppKit/AppKit.h>

#include <memory>
#include <vector>

namespace corvane::contract {

namespace {

enum class Which { all, shown };

NSUInteger overlayCount(Which which) {
    NSUInteger count = 0;
    for (NSWindow *window in NSApp.windows) {
        const bool counts = [window isKindOfClass:MacOverlayWindow.class] &&
                            (which == Which::all || window.visible);
        count += counts ? 1 : 0;
    }
    return count;
}

TEST(MacOverlaysTest, AZoneIsOutlinedAndGoes) {
    MacBackEnd backEnd;
    {
        ZoneOverlayWindow outline(backEnd.platform().overlayWindows(), {200, 200, 400, 250},
                                  NSHeight(NSScreen.screens.firstObject.frame));
        outline.orderFront();
        EXPECT_EQ(overlayCount(Which::shown), 1U);
        keepPicture("zone");
    }
    EXPECT_EQ(overlayCount(Which::shown), 0U);
}

TEST(MacOverlaysTest, TwoThousandRipplesLeaveAFewWindowsBehind) {
    constexpr int ripples = 2000;
    constexpr std::size_t atOnce = 50;
    MacBackEnd backEnd;
    int ended = 0;
    std::vector<std::unique_ptr<RippleWindow>> shown;
    for (int ripple = 0; ripple < ripples; ++ripple) {
        shown.push_back(std::make_unique<RippleWindow>(backEnd.platform().overlayWindows(),
                                                       Point{200, 200}, std::nullopt));
        shown.back()->orderFront();
        shown.back()->animate([&ended] { ++ended; });
        if (shown.size() == atOnce) {
            const int expected = ripple + 1;
            ASSERT_TRUE(backEnd.turnUntil([&] { return ended == expected; }));
            shown.clear();
        }
    }
    EXPECT_LE(overlayCount(Which::all), 64U);
}

} // namespace

} // namespace corvane::contract
