#include "DesktopTest.h"
#include "harness/servers/LoginManager.h"

namespace corvane::desktop {

namespace {

/// Clicks must not reach a login screen; a screen that merely shows nothing takes them.
class SessionStateTest : public DesktopTest {
  protected:
    SessionStateTest() { keepWindowManagerOut(); }

    std::unique_ptr<CorvaneProcess> startInSession(const Settings &settings) {
        auto corvane = start(settings, {.environment = {login_.environment()}});
        EXPECT_TRUE(login_.waitForProgram()) << corvane->story();
        return corvane;
    }

    /// Runs `corvane start` to its end; what it says to standard error.
    std::string errorOfStart() {
        CorvaneProcess command(desktop_, {.arguments = {"start"}});
        const auto end = command.process().waitForEnd();
        EXPECT_TRUE(end.has_value()) << command.story();
        return command.standardError();
    }

    LoginManager login_{desktop_};
};

TEST_F(SessionStateTest, ALockEndsTheRunAndTheLogSaysWhy) {
    const auto corvane = startInSession({.clickRate = 100});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    login_.lock();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_EQ(corvane->logCount("Ending the run: the session is locked"), 1) << corvane->story();
    EXPECT_TRUE(staysQuiet());
    EXPECT_FALSE(pointer_.isLeftButtonDown());
    EXPECT_EQ(errorOfStart(), "corvane: the session is locked\n");
    EXPECT_EQ(corvane->logCount("Cannot start: the session is locked"), 1) << corvane->story();

    login_.unlock();
    EXPECT_TRUE(waitUntil([this] { return errorOfStart().empty(); })) << corvane->story();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
}

TEST_F(SessionStateTest, AnotherUserInFrontEndsTheRunAndTheLogSaysWhy) {
    const auto corvane = startInSession({.clickRate = 100});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    login_.switchAway();
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
    EXPECT_EQ(corvane->logCount("Ending the run: another user's session has the screen"), 1);
    EXPECT_EQ(errorOfStart(), "corvane: another user's session has the screen\n");
}

/// A slow run, whose clicks let the saver come on in between.
TEST_F(SessionStateTest, TheServersScreenSaverEndsNothing) {
    const auto corvane = startInSession({.clickRate = 30, .timeUnit = "m"});
    desktop_.run({"xset", "s", "1"});
    keyboard_.pressHotKey();
    ASSERT_TRUE(client_.waitForClicks(1)) << corvane->story();
    desktop_.run({"xset", "s", "activate"});
    EXPECT_TRUE(client_.waitForClicks(3)) << corvane->story();
    EXPECT_EQ(errorOfStart(), "");
}

TEST_F(SessionStateTest, SleepEndsNothing) {
    const auto corvane = startInSession({.clickRate = 50});
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    login_.prepareForSleep();
    EXPECT_TRUE(waitForMoreClicks(20)) << corvane->story();
    EXPECT_EQ(errorOfStart(), "");
}

} // namespace

} // namespace corvane::desktop
