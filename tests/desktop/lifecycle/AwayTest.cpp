#include "DesktopTest.h"

namespace corvane::desktop {

namespace {

/// Nothing is clicked that somebody who unlocks the screen would find.
class AwayTest : public DesktopTest {
  protected:
    AwayTest() { keepWindowManagerOut(); }

    void sayLocked(bool isLocked) const {
        desktop_.run({"dbus-send", "--session", "--type=signal", "/org/freedesktop/ScreenSaver",
                      "org.freedesktop.ScreenSaver.ActiveChanged",
                      isLocked ? "boolean:true" : "boolean:false"});
    }
};

TEST_F(AwayTest, aLockedScreenEndsTheRun) {
    const auto corvane = start({.clickRate = 100});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    sayLocked(true);
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_FALSE(pointer_.isLeftButtonDown());

    sayLocked(false);
    EXPECT_TRUE(staysQuiet());
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
}

TEST_F(AwayTest, theServersScreenSaverEndsTheRun) {
    const auto corvane = start({.clickRate = 60, .timeUnit = "m"});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(1)) << corvane->story();
    desktop_.run({"xset", "s", "activate"});
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

} // namespace

} // namespace corvane::desktop
