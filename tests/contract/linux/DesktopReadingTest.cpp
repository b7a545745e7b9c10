#include "platform/linux/DesktopReading.h"

#include "EnvironmentVariable.h"
#include "platform/x11/connection/XcbEvents.h"
#include "platform/x11/hotkey/HotKeys.h"
#include "servers/VirtualDesktop.h"

#include <gtest/gtest.h>

namespace corvane::contract {

namespace {

using desktop::VirtualDesktop;
using desktop::WindowManager;

constexpr HotKey hotKey{.letter = 'Y', .command = true, .shift = true};

/// Reads a desktop as a program on it would.
class DesktopReadingTest : public testing::Test {
  protected:
    static DesktopFacts read(const VirtualDesktop &desktop) {
        const EnvironmentVariable display("DISPLAY", desktop.display());
        return linux::readDesktopFacts(hotKey);
    }

    EnvironmentVariable wayland_{"WAYLAND_DISPLAY", std::nullopt};
    EnvironmentVariable session_{"XDG_SESSION_TYPE", std::nullopt};
};

TEST_F(DesktopReadingTest, SeesABareServer) {
    const VirtualDesktop desktop({.windowManager = WindowManager::none, .takesStatusIcons = false});
    const DesktopFacts facts = read(desktop);
    EXPECT_EQ(facts.displayServer, DisplayServer::x11);
    EXPECT_EQ(facts.displayName, desktop.display());
    EXPECT_FALSE(facts.isWaylandSession);
    EXPECT_EQ(facts.takesClicks, true);
    EXPECT_EQ(facts.hotKey, HotKeyState::free);
    EXPECT_EQ(facts.hotKeyName, "Super+Shift+Y");
    EXPECT_EQ(facts.statusArea, StatusArea::none);
    EXPECT_EQ(facts.hasCompositor, false);
    EXPECT_EQ(facts.windowManager, "");
}

TEST_F(DesktopReadingTest, SeesAWholeDesktop) {
    const VirtualDesktop desktop({.hasCompositor = true, .hasPanel = true});
    const DesktopFacts facts = read(desktop);
    EXPECT_EQ(facts.statusArea, StatusArea::systemTray);
    EXPECT_EQ(facts.hasCompositor, true);
    EXPECT_EQ(facts.windowManager, "Openbox");
    EXPECT_EQ(facts.missingHints, std::vector<std::string>{});
}

TEST_F(DesktopReadingTest, SeesThatTheServerTakesNoClicks) {
    const VirtualDesktop desktop(
        {.windowManager = WindowManager::none, .withoutExtensions = {"XTEST"}});
    EXPECT_EQ(read(desktop).takesClicks, false);
}

TEST_F(DesktopReadingTest, SeesThatTheHotKeyIsTakenAndLeavesAFreeOneFree) {
    const VirtualDesktop desktop({.windowManager = WindowManager::none});
    EXPECT_EQ(read(desktop).hotKey, HotKeyState::free);
    const EnvironmentVariable display("DISPLAY", desktop.display());
    x11::XcbEvents events(x11::XcbConnection::open().value(), [] {});
    x11::HotKeys others(events);
    const auto key = others.registerHotKey(hotKey);
    ASSERT_TRUE(key.has_value());
    EXPECT_EQ(read(desktop).hotKey, HotKeyState::taken);
}

TEST_F(DesktopReadingTest, BelievesTheEnvironmentAboutWayland) {
    const VirtualDesktop desktop({.windowManager = WindowManager::none});
    const EnvironmentVariable session("XDG_SESSION_TYPE", "wayland");
    const DesktopFacts facts = read(desktop);
    EXPECT_TRUE(facts.isWaylandSession);
    EXPECT_EQ(facts.displayServer, DisplayServer::x11);
    EXPECT_EQ(facts.takesClicks, true);
}

TEST_F(DesktopReadingTest, SeesThatThereIsNoServer) {
    const EnvironmentVariable display("DISPLAY", ":65000");
    EXPECT_EQ(linux::readDesktopFacts(hotKey), (DesktopFacts{.displayName = ":65000"}));
    const EnvironmentVariable wayland("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_EQ(linux::readDesktopFacts(hotKey),
              (DesktopFacts{.displayServer = DisplayServer::waylandOnly,
                            .displayName = ":65000",
                            .isWaylandSession = true}));
}

} // namespace

} // namespace corvane::contract
