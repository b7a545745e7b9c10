#include "DesktopTest.h"

#include <X11/keysym.h>

namespace corvane::desktop {

namespace {

constexpr const char *registered = "Hotkey (Cmd+Shift+Y) registered via X11";

class HotKeyTest : public DesktopTest {
  protected:
    /// Starts a run and stops it again with the key.
    void expectToggles(CorvaneProcess &corvane, xcb_keycode_t key) {
        keyboard_.pressHotKey(key);
        ASSERT_TRUE(waitForMoreClicks(1)) << corvane.story();
        keyboard_.pressHotKey(key);
        ASSERT_TRUE(corvane.waitForLogBeginning("Clicker stopped after ", ++stops_))
            << corvane.story();
        waitForEverything();
    }

    /// Turns a lock on.
    void lock(xcb_keysym_t symbol, std::uint16_t modifier) {
        keyboard_.tap(keyboard_.keyOf(symbol));
        ASSERT_TRUE(waitUntil([&] { return (keyboard_.state() & modifier) != 0; }));
    }

    int stops_ = 0;
};

TEST_F(HotKeyTest, WorksWithLocksOn) {
    const auto corvane = start({.clickRate = 20});
    EXPECT_EQ(corvane->logCount(registered), 1);
    lock(XK_Caps_Lock, XCB_MOD_MASK_LOCK);
    expectToggles(*corvane, Keyboard::physicalY);
    lock(XK_Num_Lock, XCB_MOD_MASK_2);
    expectToggles(*corvane, Keyboard::physicalY);
}

TEST_F(HotKeyTest, IsWhereTheLayoutHasY) {
    desktop_.run({"setxkbmap", "de"});
    const auto corvane = start({.clickRate = 20});
    expectToggles(*corvane, Keyboard::physicalZ);
    keyboard_.pressHotKey(Keyboard::physicalY);
    EXPECT_TRUE(staysQuiet());
}

TEST_F(HotKeyTest, IsThePhysicalKeyWhereTheLayoutHasNoY) {
    desktop_.run({"setxkbmap", "ru"});
    const auto corvane = start({.clickRate = 20});
    expectToggles(*corvane, Keyboard::physicalY);
}

TEST_F(HotKeyTest, FollowsANewLayout) {
    const auto corvane = start({.clickRate = 20});
    expectToggles(*corvane, Keyboard::physicalY);
    desktop_.run({"setxkbmap", "de"});
    ASSERT_TRUE(waitUntil([this] {
        keyboard_.pressHotKey(Keyboard::physicalZ);
        constexpr std::chrono::milliseconds aMoment{500};
        return waitUntil([this] { return clickCount() > 1; }, aMoment);
    })) << corvane->story();
    keyboard_.pressHotKey(Keyboard::physicalZ);
    ASSERT_TRUE(corvane->waitForLogBeginning("Clicker stopped after ", 2));
    keyboard_.pressHotKey(Keyboard::physicalY);
    EXPECT_TRUE(staysQuiet());
}

TEST_F(HotKeyTest, WorksInEveryGroupOfAKeyboardWithTwoLayouts) {
    desktop_.run({"setxkbmap", "-layout", "us,ru", "-option", "grp:menu_toggle"});
    const auto corvane = start({.clickRate = 20});
    expectToggles(*corvane, Keyboard::physicalY);
    constexpr std::uint16_t secondGroup = 1U << 13U;
    lock(XK_ISO_Next_Group, secondGroup);
    expectToggles(*corvane, Keyboard::physicalY);
}

TEST_F(HotKeyTest, AHeldKeyTogglesOnce) {
    desktop_.run({"xset", "r", "rate", "150", "50"});
    const auto corvane = start({.clickRate = 50});
    keyboard_.holdHotKey();
    ASSERT_TRUE(waitForMoreClicks(30)) << corvane->story();
    keyboard_.releaseHotKey();
    ASSERT_TRUE(waitForMoreClicks(2));
    EXPECT_EQ(corvane->logCount("Starting clicker: mode=cursor interval=0.02s maxClicks=0"), 1);
}

TEST_F(HotKeyTest, OtherCombinationsDoNothing) {
    const auto corvane = start({.clickRate = 50});
    keyboard_.press(keyboard_.keyOf(XK_Control_L));
    keyboard_.pressHotKey();
    keyboard_.release(keyboard_.keyOf(XK_Control_L));
    keyboard_.tap(Keyboard::physicalY);
    EXPECT_TRUE(staysQuiet());
    EXPECT_FALSE(corvane->waitForLogBeginning("Starting clicker", 1, std::chrono::seconds::zero()));
}

TEST_F(HotKeyTest, SaysWhenAnotherProgramOwnsTheKey) {
    const DisplayConnection other(desktop_.display());
    xcb_grab_key(other.get(), 0, other.root(), XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT,
                 Keyboard::physicalY, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    other.synchronize();
    const auto corvane = start({.clickRate = 20});
    EXPECT_TRUE(corvane->waitForLogBeginning("Failed to register hotkey: ")) << corvane->story();
    EXPECT_EQ(corvane->logCount(registered), 0);
    EXPECT_TRUE(corvane->process().isRunning());
}

} // namespace

} // namespace corvane::desktop
