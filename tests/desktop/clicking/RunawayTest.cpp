#include "DesktopTest.h"
#include "harness/actors/PausedThread.h"
#include "harness/actors/StatusPanel.h"
#include "platform/x11/connection/Xcb.h"

#include <X11/keysym.h>

namespace corvane::desktop {

namespace {

/// The hot key stops a run whatever else goes on.
class RunawayTest : public DesktopTest {
  protected:
    RunawayTest() { keepWindowManagerOut(); }

    std::unique_ptr<CorvaneProcess> startRun(CorvaneProcess::Options options = {}) {
        auto corvane = start({.clickRate = 100}, std::move(options));
        keyboard_.pressHotKey();
        EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
        return corvane;
    }

    void expectStopsByKey(CorvaneProcess &corvane) {
        keyboard_.pressHotKey();
        EXPECT_TRUE(corvane.waitForLogBeginning("Clicker stopped after ")) << corvane.story();
        letGo();
        EXPECT_TRUE(staysQuiet());
        EXPECT_FALSE(pointer_.isLeftButtonDown());
    }

    void grabKeyboard() const {
        const x11::XcbReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(
            other_.get(),
            xcb_grab_keyboard(other_.get(), 0, other_.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                              XCB_GRAB_MODE_ASYNC),
            nullptr));
        ASSERT_TRUE(reply);
        ASSERT_EQ(reply->status, XCB_GRAB_STATUS_SUCCESS);
    }

    /// A grab fails while the button is down.
    void grabPointer(std::uint8_t mode) const {
        ASSERT_TRUE(waitUntil([&] {
            const x11::XcbReply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(
                other_.get(),
                xcb_grab_pointer(other_.get(), 1, other_.root(), XCB_EVENT_MASK_BUTTON_PRESS, mode,
                                 XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
                nullptr));
            return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
        }));
    }

    /// Long enough for many clicks of a run that does not notice.
    void freezePointer() {
        grabPointer(XCB_GRAB_MODE_SYNC);
        const int before = clickCount();
        constexpr std::chrono::milliseconds manyClicks{500};
        EXPECT_FALSE(waitUntil([&] { return clickCount() > before + 1; }, manyClicks));
    }

    /// The other program gives everything back; everybody gets what the server has held back.
    void letGo() const {
        xcb_ungrab_pointer(other_.get(), XCB_CURRENT_TIME);
        xcb_ungrab_keyboard(other_.get(), XCB_CURRENT_TIME);
        other_.synchronize();
    }

    /// Another program.
    const DisplayConnection other_{desktop_.display()};
};

TEST_F(RunawayTest, WhileAMenuOfAnotherProgramIsOpen) {
    const auto corvane = startRun();
    grabPointer(XCB_GRAB_MODE_ASYNC);
    grabKeyboard();
    expectStopsByKey(*corvane);
    EXPECT_EQ(corvane->logCount("Starting clicker: mode=cursor interval=0.01s maxClicks=0"), 1);
}

TEST_F(RunawayTest, WhileItsOwnMenuIsOpen) {
    // The pointer is outside the zone, so that the run does not choose from the menu.
    const auto corvane = start({.clickMode = "zone", .clickRate = 100, .zone = Area{0, 0, 10, 10}});
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker started: ")) << corvane->story();
    CorvaneProcess again(desktop_);
    EXPECT_EQ(again.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << again.story();
    ASSERT_TRUE(waitUntil([this] { return hasMenu(); })) << corvane->story();
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLog("Clicker stopped after 0 clicks")) << corvane->story();
    EXPECT_TRUE(hasMenu());
}

TEST_F(RunawayTest, WhileItsOwnAlertIsOpen) {
    StatusPanel panel(desktop_);
    const auto corvane = start({.clickRate = 100});
    ASSERT_TRUE(panel.waitForItem());
    ASSERT_TRUE(panel.choose("Save current config..."));
    ASSERT_TRUE(waitUntil([this] { return alert() != XCB_WINDOW_NONE; }));
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    expectStopsByKey(*corvane);
    EXPECT_NE(alert(), XCB_WINDOW_NONE);
    EXPECT_TRUE(answerAlert(XK_Escape));
}

TEST_F(RunawayTest, WhileAnotherProgramIsFullscreen) {
    client_.open({.title = "Film", .isFullscreen = true});
    keepWindowManagerOut();
    const auto corvane = startRun();
    expectStopsByKey(*corvane);
}

TEST_F(RunawayTest, WhileTheTargetGrabsThePointer) {
    const auto corvane = startRun();
    grabPointer(XCB_GRAB_MODE_ASYNC);
    expectStopsByKey(*corvane);
}

TEST_F(RunawayTest, AFrozenPointerHoldsTheRunBack) {
    const auto corvane = startRun();
    freezePointer();
    letGo();
    ASSERT_TRUE(waitForMoreClicks(10)) << corvane->story();
    expectStopsByKey(*corvane);
    EXPECT_EQ(corvane->log().back(),
              "Clicker stopped after " + std::to_string(clickCount()) + " clicks");
}

TEST_F(RunawayTest, AStopWhileThePointerIsFrozenLeavesNoBurst) {
    const auto corvane = startRun();
    freezePointer();
    const int before = clickCount();
    keyboard_.pressHotKey();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    letGo();
    EXPECT_TRUE(staysQuiet());
    // The click the run was making when the pointer froze.
    EXPECT_LE(clickCount(), before + 1);
    EXPECT_FALSE(pointer_.isLeftButtonDown());
}

TEST_F(RunawayTest, WhileTheMainThreadIsBusy) {
    const auto corvane = startRun();
    {
        const PausedThread mainThread(corvane->process().pid());
        keyboard_.pressHotKey();
        // Whoever cannot stop does not go on for long.
        int before = -1;
        ASSERT_TRUE(waitUntil([&] {
            const int now = clickCount();
            constexpr std::chrono::milliseconds manyClicks{300};
            const bool isQuiet = !waitUntil([&] { return clickCount() > now; }, manyClicks);
            before = now;
            return isQuiet;
        }));
        EXPECT_EQ(clickCount(), before);
        EXPECT_FALSE(pointer_.isLeftButtonDown());
    }
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_TRUE(staysQuiet());
}

TEST_F(RunawayTest, WhileNeitherFilesNorLogCanBeWritten) {
    CorvaneProcess::Options options;
    options.mounts.makeReadOnly(desktop_.folder());
    StatusPanel panel(desktop_);
    CorvaneProcess corvane(desktop_, std::move(options));
    ASSERT_TRUE(panel.waitForItem());
    ASSERT_TRUE(waitUntil([&] { return panel.choose("Start"); }));
    ASSERT_TRUE(waitForMoreClicks(2)) << corvane.story();
    keyboard_.pressHotKey();
    EXPECT_TRUE(waitUntil([&] { return panel.line("Start").has_value(); })) << corvane.story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_TRUE(corvane.log().empty()) << corvane.story();
}

} // namespace

} // namespace corvane::desktop
