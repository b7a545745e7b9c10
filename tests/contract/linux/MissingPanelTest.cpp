#include "platform/linux/MissingPanel.h"

#include "support/AppDelegateTest.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

/// A desktop whose panel shows no status items, or that has no panel.
class MissingPanelTest : public testing::AppDelegateTest {
  protected:
    void SetUp() override { platform.statusBar().isPresent = false; }

    void launch(LaunchCause cause = LaunchCause::user) {
        panel = std::make_unique<linux::MissingPanel>(platform, shared, *delegate);
        delegate->applicationDidFinishLaunching([this, cause] { panel->await(cause); });
        ASSERT_TRUE(platform.mainQueue().turnUntil(
            [this] { return platform.hotKeys().registrations > 0; }));
    }

    void start() {
        launch();
        platform.advance(std::chrono::seconds(2));
        settle();
    }

    std::unique_ptr<linux::MissingPanel> panel;

    bool areSettingsOpen() {
        const auto &windows = platform.settingsWindows().windows();
        return !windows.empty() && windows.back()->isVisible;
    }
};

TEST_F(MissingPanelTest, TheSettingsOpenAndTheUserIsTold) {
    start();
    EXPECT_TRUE(areSettingsOpen());
    ASSERT_EQ(platform.alerts().shown.size(), 1U);
    const Alert &alert = platform.alerts().shown.front();
    EXPECT_EQ(alert.style, AlertStyle::informational);
    EXPECT_EQ(alert.messageText, "No panel shows Corvane here");
    EXPECT_THAT(alert.informativeText, ::testing::HasSubstr("Super+Shift+Y"));
    EXPECT_EQ(alert.buttons, std::vector<std::string>{"OK"});
}

TEST_F(MissingPanelTest, TheUserIsToldOnlyOnce) {
    start();
    delegate = std::make_shared<AppDelegate>(platform, shared);
    platform.hotKeys().registrations = 0;
    start();
    EXPECT_TRUE(areSettingsOpen());
    EXPECT_EQ(platform.alerts().shown.size(), 1U);
}

TEST_F(MissingPanelTest, APanelInTimeIsEnough) {
    launch();
    platform.advance(std::chrono::seconds(1));
    platform.statusBar().isPresent = true;
    platform.advance(std::chrono::seconds(10));
    settle();
    EXPECT_FALSE(areSettingsOpen());
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(MissingPanelTest, AtLoginAPanelMayComeLate) {
    launch(LaunchCause::login);
    platform.advance(std::chrono::seconds(29));
    settle();
    EXPECT_FALSE(areSettingsOpen());
    platform.statusBar().isPresent = true;
    platform.advance(std::chrono::minutes(2));
    settle();
    EXPECT_FALSE(areSettingsOpen());
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(MissingPanelTest, AtLoginTooTheUserIsToldInTheEnd) {
    launch(LaunchCause::login);
    platform.advance(std::chrono::seconds(30));
    settle();
    EXPECT_TRUE(areSettingsOpen());
    EXPECT_EQ(platform.alerts().shown.size(), 1U);
}

TEST_F(MissingPanelTest, ARunIsNotDisturbed) {
    launch();
    startRunning();
    platform.advance(std::chrono::seconds(2));
    settle();
    EXPECT_FALSE(areSettingsOpen());
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(MissingPanelTest, WhereNothingCanBeClickedTheUserHasHeardOfThat) {
    platform.accessibility().isTrusted = false;
    start();
    EXPECT_TRUE(areSettingsOpen());
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(MissingPanelTest, AnotherStartBringsClosedSettingsBack) {
    start();
    platform.settingsWindows().window().closeByUser();
    delegate->applicationShouldHandleReopen();
    EXPECT_TRUE(areSettingsOpen());
    EXPECT_EQ(statusItem().menusOpened, 0);
}

TEST_F(MissingPanelTest, AnotherStartOpensTheMenuWhileClicking) {
    start();
    platform.settingsWindows().window().closeByUser();
    startRunning();
    delegate->applicationShouldHandleReopen();
    EXPECT_FALSE(areSettingsOpen());
    EXPECT_EQ(statusItem().menusOpened, 1);
}

TEST_F(MissingPanelTest, AnotherStartOpensTheMenuOncePanelsAreThere) {
    start();
    platform.settingsWindows().window().closeByUser();
    platform.statusBar().isPresent = true;
    delegate->applicationShouldHandleReopen();
    EXPECT_FALSE(areSettingsOpen());
    EXPECT_EQ(statusItem().menusOpened, 1);
}

} // namespace
} // namespace corvane
