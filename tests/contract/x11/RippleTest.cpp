#include "OverlayTest.h"
#include "WaitUntil.h"
#include "actors/ClickClient.h"
#include "overlay/RippleWindow.h"
#include "overlay/ZoneOverlayWindow.h"

#include <algorithm>
#include <map>

namespace corvane::contract {

namespace {

constexpr Point click{400, 300};
constexpr Position center{400, 300};

int bluePixels(const Screenshot &screen) { return screen.count(center, 24, isBlue); }

class RippleTest : public EveryOverlayTest {
  protected:
    void ripple(Point point = click) {
        const int number = ++shown_;
        auto window = std::make_unique<RippleWindow>(overlays_, point, screenHeight);
        window->orderFront();
        window->animate([this, number] {
            ++ended_;
            ripples_.erase(number);
        });
        ripples_.emplace(number, std::move(window));
    }

    bool isClean() const {
        const Screenshot screen = screenshot();
        return screen.count(center, 30, [](Pixel pixel) { return pixel != background; }) == 0;
    }

    int shown_ = 0;
    int ended_ = 0;
    std::map<int, std::unique_ptr<RippleWindow>> ripples_;
};

TEST_P(RippleTest, ARippleGrowsAroundTheClickAndIsGone) {
    ripple();
    bool wasSmall = false;
    bool wasLarge = false;
    EXPECT_TRUE(turnUntilScreen([&](const Screenshot &screen) {
        if (ended_ == 0 && wasLarge) {
            return true;
        }
        // Another turn for a machine that was too busy to show the ripple.
        if (ended_ == shown_) {
            ripple();
        }
        const auto isDrawn = [](Pixel pixel) { return pixel != background; };
        const int near = screen.count(center, 8, isDrawn);
        const int all = screen.count(center, 24, isDrawn);
        wasSmall = wasSmall || (near > 0 && near == all);
        wasLarge = wasLarge || (near == 0 && all > 0);
        EXPECT_EQ(screen.at(center), background);
        return wasSmall && wasLarge;
    }));
    EXPECT_TRUE(turnUntil([this] { return ended_ == shown_ && isClean(); }));
    EXPECT_TRUE(shownOverlays().empty());
}

TEST_P(RippleTest, TheRippleIsBlue) {
    ripple();
    EXPECT_TRUE(turnUntilScreen([this](const Screenshot &screen) {
        if (ended_ == shown_) {
            ripple();
        }
        return bluePixels(screen) > 20;
    }));
}

TEST_P(RippleTest, EachEndsByItself) {
    ripple({100, 100});
    ripple();
    ripple({700, 500});
    EXPECT_EQ(shownOverlays().size(), 3U);
    EXPECT_TRUE(turnUntil([this] { return ended_ == 3; }));
    EXPECT_TRUE(shownOverlays().empty());
}

TEST_P(RippleTest, TheRippleGrowsWheneverTheProgramIsAwakeAnyway) {
    ripple();
    EXPECT_TRUE(desktop::waitUntil([this] {
        events_.sender().send();
        return ended_ == 1;
    }));
    EXPECT_TRUE(shownOverlays().empty());
}

TEST_P(RippleTest, ClicksOnTheRippleReachTheWindowBeneath) {
    desktop::ClickClient client(desktop_);
    client.open({.x = 0, .y = 0, .width = 800, .height = 600, .isOverride = true});
    const desktop::Pointer pointer(desktop_.connection());
    pointer.moveTo(center);
    ripple();
    ASSERT_EQ(shownOverlays().size(), 1U);
    pointer.click();
    pointer.moveTo({404, 300});
    pointer.click();
    EXPECT_TRUE(client.waitForClicks(2));
}

TEST_P(RippleTest, ManyRipplesLeaveNoWindowBehind) {
    for (int round = 0; round < 10; ++round) {
        for (int count = 0; count < 50; ++count) {
            ripple({10.0 * count, 20.0 * round});
        }
        EXPECT_EQ(shownOverlays().size(), 50U);
        ASSERT_TRUE(turnUntil([this] { return ended_ == shown_; }));
    }
    EXPECT_TRUE(shownOverlays().empty());
    // A few are kept for the next clicks.
    EXPECT_LE(windowCount(), 8U);
}

TEST_P(RippleTest, RipplesLieAboveTheZone) {
    ripple();
    ZoneOverlayWindow zone(overlays_, {300, 200, 200, 200}, screenHeight);
    zone.orderFront();
    const auto before = shownOverlays();
    ASSERT_EQ(before.size(), 2U);
    ripple();
    const auto after = shownOverlays();
    ASSERT_EQ(after.size(), 3U);
    // The zone came second and is the lowest all the same.
    EXPECT_EQ(after.front(), before.front());
    EXPECT_EQ(after.at(1), before.back());
}

TEST_P(RippleTest, TheCompositorMayGoWhileARippleIsShown) {
    ripple();
    if (GetParam()) {
        desktop_.stopCompositor();
    } else {
        desktop_.startCompositor();
    }
    EXPECT_TRUE(turnUntil([this] { return ended_ == 1 && isClean(); }));
    ripple();
    EXPECT_TRUE(turnUntilScreen([this](const Screenshot &screen) {
        if (ended_ == shown_) {
            ripple();
        }
        return bluePixels(screen) > 20;
    }));
}

INSTANTIATE_TEST_SUITE_P(With, RippleTest, testing::Bool(), compositing);

} // namespace

} // namespace corvane::contract
