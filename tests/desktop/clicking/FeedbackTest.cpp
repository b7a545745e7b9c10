#include "DesktopTest.h"
#include "Marks.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

constexpr Area zone{400, 320, 200, 160};

/// What a run draws on the screen; with a compositor or without.
class FeedbackTest : public DesktopTest, public testing::WithParamInterface<bool> {
  protected:
    FeedbackTest() : DesktopTest({.hasCompositor = GetParam()}) {}

    Screenshot screenshot() const { return Screenshot(desktop_.connection()); }

    /// Waits until the desktop looks as it did.
    bool looksLike(const Screenshot &before) const {
        return waitUntil([&] { return screenshot() == before; });
    }

    bool isWindowDrawn() const {
        return waitUntil([this] { return isWhite(screenshot().at(target)); });
    }
};

TEST_P(FeedbackTest, TheZoneIsOutlinedWhileTheRunLasts) {
    ASSERT_TRUE(isWindowDrawn());
    const auto corvane =
        start({.clickMode = "zone", .clickRate = 1, .timeUnit = "h", .zone = zone});
    pointer_.moveTo({350, 500});
    const Screenshot before = screenshot();
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitUntil([&] { return isOutlined(screenshot(), zone); })) << corvane->story();
    const Screenshot during = screenshot();
    EXPECT_TRUE(hasBadge(during, zone));
    EXPECT_TRUE(isWhite(during.at({zone.x + 100, zone.y - 12})));
    if (GetParam()) {
        EXPECT_TRUE(isFaintlyGreen(during.at({zone.x + 100, zone.y + 80})));
    }
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(looksLike(before));
}

TEST_P(FeedbackTest, EveryClickShowsARippleThatGoesAway) {
    ASSERT_TRUE(isWindowDrawn());
    const auto corvane = start({.clickRate = 10, .maxClicks = 10});
    const Screenshot before = screenshot();
    keyboard_.pressHotKey();
    constexpr int radiusOfTheRing = 25;
    EXPECT_TRUE(waitUntil([&] { return screenshot().count(target, radiusOfTheRing, isBlue) > 20; }))
        << corvane->story();
    ASSERT_TRUE(corvane->waitForLog("Clicker finished after 10 clicks (limit reached)"));
    EXPECT_TRUE(looksLike(before));
    EXPECT_TRUE(client_.waitForClicks(10));
}

TEST_P(FeedbackTest, ClicksGoThroughOutlineBadgeAndRipple) {
    const auto corvane = start({.clickMode = "zone", .clickRate = 50, .zone = zone});
    // So far inside that no ripple lies over the badge.
    pointer_.moveTo({zone.x + 60, zone.y + 60});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(10)) << corvane->story();
    // The user's own click on the badge too.
    const Position badge{zone.x + 4, zone.y - 12};
    ASSERT_TRUE(waitUntil([&] { return isGreen(screenshot().at(badge)); }));
    pointer_.moveTo(badge);
    pointer_.click(2);
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::any_of(client_.events(), [&](const ButtonEvent &event) {
            return event.button == 2 && event.position == badge;
        });
    }));
}

TEST_P(FeedbackTest, TheOutlineLiesOverAFullscreenWindow) {
    client_.open({.isFullscreen = true});
    const auto corvane = start({.clickMode = "zone", .clickRate = 50, .zone = zone});
    pointer_.moveTo({zone.x + 100, zone.y + 80});
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_TRUE(waitUntil([&] { return isGreen(screenshot().at({zone.x + 100, zone.y})); }));
}

INSTANTIATE_TEST_SUITE_P(Compositor, FeedbackTest, testing::Bool(), [](const auto &each) {
    return std::string(each.param ? "with" : "without");
});

class CompositorChangeTest : public DesktopTest {};

TEST_F(CompositorChangeTest, TheOutlineStaysWhenACompositorComesAndGoes) {
    // Inside the zone, where no ring comes.
    constexpr Position corner{zone.x + 20, zone.y + 20};
    const auto corvane = start({.clickMode = "zone", .clickRate = 50, .zone = zone});
    pointer_.moveTo({zone.x + 100, zone.y + 80});
    keyboard_.pressHotKey();
    // Nothing is black where the zone and the rings show the window beneath.
    const auto isClean = [this] {
        const Screenshot seen(desktop_.connection());
        return isOutlined(seen, zone) && hasBadge(seen, zone) &&
               seen.count({zone.x + 100, zone.y + 80}, 79, isBlack) == 0;
    };
    ASSERT_TRUE(waitUntil(isClean)) << corvane->story();
    for (int round = 0; round < 2; ++round) {
        desktop_.startCompositor();
        EXPECT_TRUE(waitUntil([&] {
            return isClean() && isFaintlyGreen(Screenshot(desktop_.connection()).at(corner));
        }));
        EXPECT_TRUE(waitForMoreClicks(3));
        desktop_.stopCompositor();
        EXPECT_TRUE(waitUntil(
            [&] { return isClean() && isWhite(Screenshot(desktop_.connection()).at(corner)); }));
        EXPECT_TRUE(waitForMoreClicks(3));
    }
}

} // namespace

} // namespace corvane::desktop
