#include "DesktopTest.h"
#include "harness/ScreenTaker.h"

#include <algorithm>

namespace corvane::desktop {

namespace {

/// A locker that is started by hand tells nobody.
class SilentLockerTest : public DesktopTest {
  protected:
    SilentLockerTest() { keepWindowManagerOut(); }

    void startRun() {
        corvane_ = start({.clickRate = 100});
        keyboard_.pressHotKey();
        ASSERT_TRUE(waitForMoreClicks(3)) << corvane_->story();
    }

    /// Whether the run still clicks for several times as long as a locker takes to be noticed.
    bool goesOn() {
        constexpr int clicks = 100;
        const int before = other_.seen(XCB_BUTTON_PRESS);
        return waitUntil([&] { return other_.seen(XCB_BUTTON_PRESS) >= before + clicks; }) &&
               !hasStopped();
    }

    bool hasStopped() const {
        return std::ranges::any_of(corvane_->log(), [](const std::string &message) {
            return message.starts_with("Clicker stopped after ");
        });
    }

    bool startByCommand() {
        CorvaneProcess command(desktop_, {.arguments = {"start"}});
        return command.process().waitForEnd() == ProcessEnd{.exitCode = 0};
    }

    std::unique_ptr<CorvaneProcess> corvane_;
    ScreenTaker other_{desktop_};
};

TEST_F(SilentLockerTest, endsTheRunAndNoneBeginsUntilItIsGone) {
    startRun();
    other_.openOverAll(true);
    ASSERT_TRUE(other_.grabKeyboardAndPointer());
    ASSERT_TRUE(corvane_->waitForLogBeginning("Clicker stopped after ")) << corvane_->story();
    EXPECT_TRUE(waitUntil([this] { return !pointer_.isLeftButtonDown(); }));
    const int before = other_.seen(XCB_BUTTON_PRESS);
    EXPECT_FALSE(startByCommand());
    EXPECT_EQ(corvane_->logCount("Cannot start: the user is away from the screen"), 1);
    EXPECT_EQ(other_.seen(XCB_BUTTON_PRESS), before);

    other_.close();
    EXPECT_TRUE(waitUntil([this] { return startByCommand(); })) << corvane_->story();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane_->story();
}

/// Nobody is at the screen whose hot key would be heard, but a script may start a run.
TEST_F(SilentLockerTest, endsARunThatBeginsBelowIt) {
    corvane_ = start({.clickRate = 100});
    other_.openOverAll(true);
    ASSERT_TRUE(other_.grabKeyboardAndPointer());
    startByCommand();
    EXPECT_TRUE(corvane_->waitForLogBeginning("Clicker stopped after ")) << corvane_->story();
}

TEST_F(SilentLockerTest, aFullscreenGameWithGrabsIsNone) {
    startRun();
    other_.openOverAll(false);
    ASSERT_TRUE(other_.goFullscreen());
    ASSERT_TRUE(other_.grabKeyboardAndPointer());
    EXPECT_TRUE(goesOn()) << corvane_->story();
}

TEST_F(SilentLockerTest, aMenuWithGrabsIsNone) {
    startRun();
    other_.openOver({200, 150, 600, 500}, true);
    ASSERT_TRUE(other_.grabKeyboardAndPointer());
    EXPECT_TRUE(goesOn()) << corvane_->story();
}

/// Such as one that shows the volume, dims the screen or belongs to the compositor.
TEST_F(SilentLockerTest, anOverlayWithoutGrabsIsNone) {
    startRun();
    other_.openOverAll(true);
    EXPECT_TRUE(goesOn()) << corvane_->story();
}

/// A wallpaper, for one, may cover the screen too.
TEST_F(SilentLockerTest, aMenuOverAManagedWindowOverAnOverlayIsNone) {
    ScreenTaker wallpaper(desktop_);
    wallpaper.openOverAll(true);
    wallpaper.lower();
    client_.open({.x = 10, .y = 10, .width = 1200, .height = 700});
    startRun();
    other_.openOver({200, 150, 600, 500}, true);
    ASSERT_TRUE(other_.grabKeyboardAndPointer());
    EXPECT_TRUE(goesOn()) << corvane_->story();
}

TEST_F(SilentLockerTest, theQuestionTakesTheKeyboardFromNobody) {
    startRun();
    other_.openOverAll(false);
    ASSERT_TRUE(waitUntil([this] { return other_.seen(XCB_FOCUS_IN) > 0; }));
    // The window that gets the clicks lies over this one.
    EXPECT_TRUE(waitForMoreClicks(100)) << corvane_->story();
    EXPECT_EQ(other_.seen(XCB_FOCUS_OUT), 0);
}

} // namespace

} // namespace corvane::desktop
