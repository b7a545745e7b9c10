#include "harness/TextFile.h"
#include "harness/actors/ClickClient.h"
#include "harness/actors/Keyboard.h"
#include "harness/actors/Pointer.h"
#include "harness/probes/Screenshot.h"
#include "harness/servers/PrivateMounts.h"
#include "harness/servers/VirtualDesktop.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <optional>

namespace corvane::desktop {

namespace {

TEST(HarnessTest, ClickClientNotesTheClicksOfTheMouse) {
    const VirtualDesktop desktop;
    ClickClient client(desktop);
    const int window = client.open({.x = 200, .y = 150});
    const Pointer pointer(desktop.connection());
    pointer.moveTo({300, 250});
    // A window manager holds the mouse for a moment at every press; what happens meanwhile may get
    // lost.
    pointer.click();
    ASSERT_TRUE(client.waitForClicks(1));
    pointer.click();
    ASSERT_TRUE(client.waitForClicks(2));
    const auto events = client.events();
    ASSERT_EQ(events.size(), 4);
    EXPECT_TRUE(events[0].isPress);
    EXPECT_FALSE(events[1].isPress);
    EXPECT_EQ(events[0].window, window);
    EXPECT_EQ(events[0].button, 1);
    EXPECT_EQ(events[0].position, (Position{300, 250}));
    EXPECT_LE(events[0].nanoseconds, events[3].nanoseconds);
}

TEST(HarnessTest, ProcessesEndWithTheTest) {
    std::optional<pid_t> pid;
    {
        const VirtualDesktop desktop({.windowManager = WindowManager::none});
        pid = desktop.start({"sleep", "1000"})->pid();
    }
    EXPECT_NE(kill(*pid, 0), 0);
}

TEST(HarnessTest, WindowsMoveOnCommand) {
    const VirtualDesktop desktop;
    ClickClient client(desktop);
    const int window = client.open({.x = 200, .y = 150});
    const Position before = client.position(window);
    client.move(window, {before.x + 123, before.y + 45});
    EXPECT_EQ(client.position(window), (Position{before.x + 123, before.y + 45}));
}

TEST(HarnessTest, ScreenshotShowsTheDesktop) {
    VirtualDesktop desktop({.windowManager = WindowManager::none});
    const auto isWhite = [](Pixel pixel) { return pixel == Pixel{255, 255, 255}; };
    EXPECT_EQ(Screenshot(desktop.connection()).count({200, 200}, 10, isWhite), 0);
    ClickClient client(desktop);
    client.open({.x = 100, .y = 100});
    EXPECT_TRUE(waitUntil([&] {
        return Screenshot(desktop.connection()).count({200, 200}, 10, isWhite) == 21 * 21;
    }));
    const std::filesystem::path picture = desktop.folder() / "picture.png";
    EXPECT_TRUE(Screenshot(desktop.connection()).savePng(picture));
    EXPECT_GT(std::filesystem::file_size(picture), 100);
}

TEST(HarnessTest, CompositorAndPanelStart) {
    VirtualDesktop desktop({.hasCompositor = true, .hasPanel = true});
    desktop.stopCompositor();
    desktop.startCompositor();
}

TEST(HarnessTest, ServerDoesWithoutAnExtension) {
    const VirtualDesktop desktop(
        {.windowManager = WindowManager::none, .withoutExtensions = {"XTEST"}});
    EXPECT_EQ(desktop.run({"xdpyinfo"}).find("XTEST"), std::string::npos);
}

TEST(HarnessTest, KeyboardFollowsTheLayout) {
    const VirtualDesktop desktop({.windowManager = WindowManager::none});
    const Keyboard keyboard(desktop.connection());
    EXPECT_EQ(keyboard.keyOf(XK_y), Keyboard::physicalY);
    desktop.run({"setxkbmap", "de"});
    EXPECT_EQ(keyboard.keyOf(XK_y), Keyboard::physicalZ);
}

TEST(HarnessTest, MountsAreSeenByTheProgramAlone) {
    const VirtualDesktop desktop({.windowManager = WindowManager::none});
    const std::filesystem::path place = desktop.folder() / "place.txt";
    const std::filesystem::path instead = desktop.folder() / "instead.txt";
    writeFile(place, "outside");
    writeFile(instead, "inside");
    const std::filesystem::path locked = desktop.folder() / "locked";
    std::filesystem::create_directory(locked);
    const std::filesystem::path tiny = desktop.folder() / "tiny";
    std::filesystem::create_directory(tiny);
    PrivateMounts mounts;
    mounts.replace(place, instead);
    mounts.makeReadOnly(locked);
    mounts.putSmallFileSystem(tiny, 8192);

    const auto seen = desktop.start({"cat", place}, &mounts);
    EXPECT_EQ(seen->waitForEnd(), (ProcessEnd{.exitCode = 0}));
    EXPECT_EQ(seen->standardOutput(), "inside");
    EXPECT_EQ(readFile(place), "outside");
    EXPECT_EQ(desktop.start({"touch", locked / "file"}, &mounts)->waitForEnd(),
              (ProcessEnd{.exitCode = 1}));
    EXPECT_EQ(desktop.start({"cp", "/usr/bin/env", tiny}, &mounts)->waitForEnd(),
              (ProcessEnd{.exitCode = 1}));
    EXPECT_TRUE(std::filesystem::is_empty(tiny));
}

TEST(HarnessTest, ProcessesTellHowTheyEnded) {
    const VirtualDesktop desktop({.windowManager = WindowManager::none});
    const auto sleeper = desktop.start({"sleep", "1000"});
    EXPECT_TRUE(sleeper->isRunning());
    sleeper->signal(SIGINT);
    EXPECT_EQ(sleeper->waitForEnd(), (ProcessEnd{.signal = SIGINT}));
    EXPECT_EQ(desktop.start({"no-such-program"})->waitForEnd(), (ProcessEnd{.exitCode = 127}));
}

} // namespace

} // namespace corvane::desktop
