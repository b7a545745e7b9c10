#include "WaylandTest.h"
#include "harness/servers/KWinDesktop.h"

#include <filesystem>

namespace corvane::desktop {

namespace {

/// KWin that has been given no desktop file by which it lets Corvane click.
class KWinWithoutPermissionTest : public WaylandTest {
  protected:
    KWinWithoutPermissionTest()
        : WaylandTest(std::make_unique<KWinDesktop>(KWinDesktop::Permission::missing)) {}

    void startClicking() {
        corvane_ = start({.clickRate = 10});
        desktop_.pressHotKey();
        EXPECT_TRUE(client_.waitForClicks(3)) << corvane_->story();
    }

    bool isDesktopFileWritten() const {
        return std::filesystem::exists(desktop_.home() /
                                       ".local/share/applications/corvane-mouse-button.desktop");
    }

  private:
    std::unique_ptr<CorvaneProcess> corvane_;
};

class KWin5Test : public KWinWithoutPermissionTest {};
class KWin6Test : public KWinWithoutPermissionTest {};

TEST_F(KWin5Test, TheFirstStartGetsThePermissionToClick) {
    startClicking();
    EXPECT_TRUE(isDesktopFileWritten());
}

TEST_F(KWin5Test, AProgramThatKWinDoesNotAcceptSaysSoAndDoesNotClick) {
    writeSettings(desktop_, Settings{.clickRate = 10}.text());
    CorvaneProcess corvane(desktop_, {.environment = {{"XDG_DATA_HOME", "/dev/null/nowhere"}}});
    ASSERT_TRUE(corvane.waitUntilReady()) << corvane.story();
    EXPECT_TRUE(corvane.waitForLog("Initial accessibility: false")) << corvane.story();
    CorvaneProcess command(desktop_, {.arguments = {"start"}});
    EXPECT_NE(command.process().waitForEnd(), (ProcessEnd{.exitCode = 0})) << command.story();
    EXPECT_TRUE(staysQuiet());
}

TEST_F(KWin6Test, NoPermissionIsNeededToClick) {
    startClicking();
    EXPECT_FALSE(isDesktopFileWritten());
}

} // namespace

} // namespace corvane::desktop
