#include "DesktopTest.h"

#include <algorithm>
#include <vector>

namespace corvane::desktop {

namespace {

class ClickRunTest : public DesktopTest {
  protected:
    ClickRunTest() { keepWindowManagerOut(); }
};

std::int64_t median(std::vector<std::int64_t> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

std::vector<ButtonEvent> leftButtonOf(const std::vector<ButtonEvent> &events) {
    std::vector<ButtonEvent> left;
    std::ranges::copy_if(events, std::back_inserter(left),
                         [](const ButtonEvent &event) { return event.button == 1; });
    return left;
}

TEST_F(ClickRunTest, ClicksUntilTheLimit) {
    const auto corvane = start({.clickRate = 20, .maxClicks = 15});
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLog("Clicker finished after 15 clicks (limit reached)"))
        << corvane->story();
    waitForEverything();

    const auto events = leftButtonOf(client_.events());
    ASSERT_EQ(events.size(), 30);
    for (std::size_t index = 0; index < events.size(); ++index) {
        EXPECT_EQ(events[index].isPress, index % 2 == 0);
        EXPECT_EQ(events[index].position, target);
        EXPECT_EQ(events[index].window, window_);
    }
    EXPECT_EQ(corvane->logCount("Starting clicker: mode=cursor interval=0.05s maxClicks=15"), 1);
    EXPECT_EQ(corvane->logCount("Clicker started: mode=cursor interval=0.05s maxClicks=15"), 1);
    EXPECT_TRUE(staysQuiet());
}

TEST_F(ClickRunTest, KeepsRateAndHold) {
    const auto corvane = start({.clickRate = 20, .maxClicks = 15});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(15)) << corvane->story();

    const auto events = leftButtonOf(client_.events());
    std::vector<std::int64_t> holds;
    std::vector<std::int64_t> periods;
    for (std::size_t index = 0; index + 1 < events.size(); index += 2) {
        holds.push_back(events[index + 1].milliseconds - events[index].milliseconds);
        if (index >= 2) {
            periods.push_back(events[index].milliseconds - events[index - 2].milliseconds);
        }
    }
    // 10 ms, and the interval of 50 ms with the hold; more where the machine is busy.
    EXPECT_GE(median(holds), 9);
    EXPECT_LE(median(holds), 20);
    EXPECT_GE(median(periods), 58);
    EXPECT_LE(median(periods), 120);
}

TEST_F(ClickRunTest, StopsBeforeTheNextClick) {
    const auto corvane = start({.clickRate = 60, .timeUnit = "m"});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(2)) << corvane->story();
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLog("Clicker stopped after 2 clicks")) << corvane->story();
    waitForEverything();
    EXPECT_EQ(clickCount(), 2);
}

TEST_F(ClickRunTest, RunsAgainAfterAStop) {
    const auto corvane = start({.clickRate = 50, .maxClicks = 5});
    for (int run = 1; run <= 3; ++run) {
        keyboard_.pressHotKey();
        ASSERT_TRUE(corvane->waitForLog("Clicker finished after 5 clicks (limit reached)", run))
            << corvane->story();
        // The program is idle again a moment after the engine has finished.
        ASSERT_TRUE(staysQuiet());
        EXPECT_EQ(clickCount(), 5 * run);
    }
}

TEST_F(ClickRunTest, PressesTheLogicalLeftButtonOfALeftHandedMouse) {
    const auto corvane = start({.clickRate = 20, .maxClicks = 3});
    desktop_.run({"xmodmap", "-e", "pointer = 3 2 1"});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(3)) << corvane->story();
    EXPECT_EQ(clickCount(), 3);
}

TEST_F(ClickRunTest, LeavesThePointerToTheUser) {
    const auto corvane = start({.clickRate = 50});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane->story();
    const Position elsewhere{target.x + 60, target.y + 40};
    pointer_.moveTo(elsewhere);
    ASSERT_TRUE(waitForMoreClicks(3));
    EXPECT_EQ(pointer_.position(), elsewhere);
    EXPECT_EQ(client_.events().back().position, elsewhere);
}

} // namespace

} // namespace corvane::desktop
