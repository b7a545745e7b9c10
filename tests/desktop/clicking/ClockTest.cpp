#include "PickTest.h"

#include <X11/keysym.h>

#include <array>

namespace corvane::desktop {

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

/// The X server's clock steps, by days in either direction and over its end: it counts 49.7 days in
/// milliseconds and begins again.
class ClockTest : public PickTest {
  protected:
    ClockTest() : PickTest({.hasClockToSet = true}) {
        keepWindowManagerOut();
        // It would take the step for a month without input and blank the screen.
        desktop_.run({"xset", "s", "off"});
    }

    static constexpr std::array offsets{hours(24 * 30), hours(24 * 60), hours(-24 * 20), hours(-1)};

    /// Whether the last click came at a time far from that one.
    bool hasSteppedFrom(milliseconds time) const {
        const milliseconds now(client_.events().back().milliseconds);
        return std::chrono::abs(now - time) > hours(1) / 2;
    }
};

TEST_F(ClockTest, RunsGoOnAndTheHotKeyStopsThem) {
    const auto corvane = start({.clickRate = 50});
    int runs = 0;
    for (const hours offset : offsets) {
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
        const milliseconds before(client_.events().back().milliseconds);
        desktop_.setServerClock(offset);
        ASSERT_TRUE(waitUntil([&] { return hasSteppedFrom(before); })) << corvane->story();
        EXPECT_TRUE(waitForMoreClicks(5)) << corvane->story();
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ", ++runs))
            << corvane->story();
        EXPECT_TRUE(staysQuiet());
        EXPECT_FALSE(pointer_.isLeftButtonDown());
    }
}

TEST_F(ClockTest, ZonesArePickedAndMenusWork) {
    const auto corvane = start({.clickMode = "zone"});
    for (const hours offset : offsets) {
        desktop_.setServerClock(offset);
        openPicker();
        keyboard_.tap(keyboard_.keyOf(XK_Escape));
        ASSERT_TRUE(waitUntilIdle()) << corvane->story();
        openPicker();
        pointer_.drag({900, 100}, {1100, 180});
        ASSERT_TRUE(waitUntilIdle()) << corvane->story();
    }
    EXPECT_EQ(corvane->logCount("Zone picker cancelled"), int{offsets.size()});
    EXPECT_EQ(corvane->logCount("Zone selected: (900.0, 100.0, 200.0, 80.0)"), int{offsets.size()});
}

} // namespace

} // namespace corvane::desktop
