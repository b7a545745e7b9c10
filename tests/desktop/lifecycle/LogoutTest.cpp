#include "PickTest.h"
#include "harness/TextFile.h"
#include "harness/servers/SessionManager.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

#include <csignal>

namespace corvane::desktop {

namespace {

using testing::HasSubstr;

/// The user logs out: the session manager makes the program save and end.
class LogoutTest : public PickTest {
  protected:
    LogoutTest() { keepWindowManagerOut(); }

    std::unique_ptr<CorvaneProcess> startInSession(const Settings &settings) {
        auto corvane = start(settings, {.environment = {{"SESSION_MANAGER", session_.address()}}});
        EXPECT_TRUE(session_.waitForSaves(1)) << corvane->story();
        EXPECT_TRUE(panel_.waitForItem()) << corvane->story();
        return corvane;
    }

    void logOut(CorvaneProcess &corvane) {
        EXPECT_TRUE(session_.logOut()) << corvane.story();
        EXPECT_EQ(corvane.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << corvane.story();
        EXPECT_TRUE(waitUntil([this] { return session_.members().empty(); }));
    }

    SessionManager session_{desktop_};
};

TEST_F(LogoutTest, EndsTheRunAndSavesWhatWasChanged) {
    const auto corvane = startInSession({.clickRate = 100});
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    ASSERT_TRUE(panel_.choose("Free Cursor"));
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    logOut(*corvane);
    expectRunEnded(*corvane);
    EXPECT_THAT(readFile(settingsFile(desktop_)), HasSubstr("\"clickMode\" : \"cursor\""));
}

TEST_F(LogoutTest, EndsAnIdleProgramAndDrainsItsSaves) {
    const auto corvane = startInSession({});
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    logOut(*corvane);
    EXPECT_THAT(readFile(settingsFile(desktop_)), HasSubstr("\"clickMode\" : \"zone\""));
}

TEST_F(LogoutTest, AnOpenAlertDoesNotHoldItUp) {
    const auto corvane = startInSession({});
    ASSERT_TRUE(panel_.choose("Save current config..."));
    ASSERT_TRUE(waitUntil([this] { return alert() != XCB_WINDOW_NONE; })) << corvane->story();
    logOut(*corvane);
}

TEST_F(LogoutTest, OpenSettingsDoNotHoldItUp) {
    const auto corvane = startInSession({});
    ASSERT_TRUE(panel_.choose("Settings..."));
    ASSERT_TRUE(waitUntil([this] { return alert() != XCB_WINDOW_NONE; })) << corvane->story();
    logOut(*corvane);
}

TEST_F(LogoutTest, AnOpenPickerDoesNotHoldItUp) {
    const auto corvane = startInSession({.clickMode = "zone"});
    openPicker();
    logOut(*corvane);
    EXPECT_FALSE(isPickerOpen());
}

/// What ends with the session is not started with the next one beside the login item.
TEST_F(LogoutTest, TheNextSessionStartsItOnlyAsTheUserHasSet) {
    const auto corvane = startInSession({});
    constexpr int never = 3;
    EXPECT_THAT(session_.members(),
                testing::ElementsAre(testing::Field(&SessionMember::restartStyle, never)));
}

TEST_F(LogoutTest, ASaveWithoutALogoutDisturbsNothing) {
    const auto corvane = startInSession({.clickRate = 50});
    ASSERT_TRUE(panel_.choose("Settings..."));
    ASSERT_TRUE(waitUntil([this] { return alert() != XCB_WINDOW_NONE; })) << corvane->story();
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    session_.save();
    ASSERT_TRUE(session_.waitForSaves(2)) << corvane->story();
    EXPECT_TRUE(waitForMoreClicks(3)) << corvane->story();
    EXPECT_NE(alert(), XCB_WINDOW_NONE);
    keyboard_.pressHotKey();
    EXPECT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ")) << corvane->story();
}

TEST_F(LogoutTest, ASessionManagerThatCrashesEndsItInOrder) {
    const auto corvane = startInSession({.clickRate = 100});
    ASSERT_TRUE(panel_.choose("Defined Zone"));
    keyboard_.pressHotKey();
    ASSERT_TRUE(waitForMoreClicks(3)) << corvane->story();
    session_.process().signal(SIGKILL);
    EXPECT_EQ(corvane->process().waitForEnd(), (ProcessEnd{.exitCode = 1})) << corvane->story();
    expectRunEnded(*corvane);
    EXPECT_THAT(readFile(settingsFile(desktop_)), HasSubstr("\"clickMode\" : \"zone\""));
}

} // namespace

} // namespace corvane::desktop
