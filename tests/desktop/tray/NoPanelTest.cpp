#include "DesktopTest.h"
#include "harness/actors/StatusPanel.h"
#include "harness/probes/WindowTree.h"

#include <X11/keysym.h>

#include <algorithm>

namespace corvane::desktop {

namespace {

/// A desktop that shows no status icons.
class NoPanelTest : public DesktopTest {
  protected:
    NoPanelTest() : DesktopTest({.takesStatusIcons = false}) {}

    /// Windows of the program, its popup menus and overlays left out.
    static int windowCount(const VirtualDesktop &desktop) {
        constexpr int leastWidth = 100;
        return static_cast<int>(std::ranges::count_if(
            corvaneWindows(desktop.connection()), [](const SeenWindow &window) {
                return !window.isOverride && window.area.width > leastWidth;
            }));
    }

    int windowCount() const { return windowCount(desktop_); }

    bool waitForWindows(int count) {
        return waitUntil([&] { return windowCount() == count; });
    }

    /// Closes one window after the other by Escape. The key is pressed again and again, because the
    /// next window gets the keyboard some time after it is seen.
    bool closeAllWindows() {
        return waitUntil([this] {
            keyboard_.tap(keyboard_.keyOf(XK_Escape));
            return windowCount() == 0;
        });
    }

    /// Starts the program a second time and waits for the end of that.
    void startAgain() {
        CorvaneProcess second(desktop_);
        EXPECT_EQ(second.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << second.story();
    }
};

TEST_F(NoPanelTest, AtLoginAPanelMayComeLate) {
    const auto corvane = start({}, {.arguments = {"--at-login"}});
    // By the time one that the user has started gives up, this one has not.
    const VirtualDesktop beside({.takesStatusIcons = false});
    CorvaneProcess impatient(beside);
    ASSERT_TRUE(waitUntil([&] { return windowCount(beside) > 0; })) << impatient.story();
    EXPECT_EQ(windowCount(), 0) << corvane->story();
    StatusPanel panel(desktop_);
    EXPECT_TRUE(panel.waitForItem()) << corvane->story();
    EXPECT_EQ(windowCount(), 0) << corvane->story();
}

TEST_F(NoPanelTest, StaysWithinReach) {
    const auto corvane = start({});
    // The settings, and once the notice over them.
    ASSERT_TRUE(waitForWindows(2)) << corvane->story();
    ASSERT_TRUE(closeAllWindows()) << corvane->story();
    EXPECT_TRUE(corvane->process().isRunning());
    startAgain();
    ASSERT_TRUE(waitForWindows(1)) << corvane->story();

    // A panel that comes later takes the item.
    StatusPanel panel(desktop_);
    EXPECT_TRUE(panel.waitForItem()) << corvane->story();
    EXPECT_TRUE(panel.line("Settings...").has_value());
}

} // namespace

} // namespace corvane::desktop
