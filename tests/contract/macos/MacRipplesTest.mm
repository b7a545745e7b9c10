#import "MacBackEnd.h"
#include "overlay/RippleWindow.h"
#import "platform/macos/overlay/MacOverlayWindow.h"

#import <AppKit/AppKit.h>

#include <memory>
#include <vector>

namespace corvane::contract {

namespace {

NSUInteger overlayCount() {
    NSUInteger count = 0;
    for (NSWindow *window in NSApp.windows) {
        count += [window isKindOfClass:MacOverlayWindow.class] ? 1 : 0;
    }
    return count;
}

TEST(MacRipplesTest, TwoThousandRipplesLeaveAFewWindowsBehind) {
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
    EXPECT_LE(overlayCount(), 64U);
}

} // namespace

} // namespace corvane::contract
