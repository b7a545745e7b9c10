#include "support/AppDelegateTest.h"

namespace corvane {
namespace {

class AppDelegateLaunchTest : public testing::AppDelegateTest {};

TEST_F(AppDelegateLaunchTest, TheStatusItemIsThereBeforeTheFilesAreRead) {
    delegate->applicationDidFinishLaunching();
    EXPECT_EQ(statusItem().titles().front(), "Idle");
    EXPECT_EQ(statusItem().iconsSet, 1);
    EXPECT_TRUE(platform.hotKeys().registered().empty());
}

TEST_F(AppDelegateLaunchTest, TheLoadedSettingsAreShown) {
    platform.fileSystem().put(shared.configService.configFileURL(),
                              R"({"clickRate":7,"timeUnit":"m","maxClicks":3})");
    launch();
    EXPECT_NE(statusItem().find("Rate: 7/m — 3x"), nullptr);
    EXPECT_EQ(platform.hotKeys().registered().size(), 1U);
}

TEST_F(AppDelegateLaunchTest, WithoutPermissionTheUserIsAskedOnceAndTheHotKeyStillRegistered) {
    platform.accessibility().isTrusted = false;
    launch();
    EXPECT_EQ(platform.accessibility().prompts, 1);
    EXPECT_EQ(logged("Initial accessibility: false"), 1);
    EXPECT_EQ(platform.hotKeys().registered().size(), 1U);
    EXPECT_NE(statusItem().find("Open Accessibility Settings..."), nullptr);
    platform.advance(std::chrono::seconds(9));
    EXPECT_EQ(platform.accessibility().prompts, 1);
}

TEST_F(AppDelegateLaunchTest, ASessionThatIsLockedAtTheLaunchRefusesAStart) {
    platform.userSession().become(platform::SessionState::locked);
    launch();
    delegate->startClicking();
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_EQ(logged("Cannot start: the session is locked"), 1);
}

TEST_F(AppDelegateLaunchTest, WithPermissionThatIsLogged) {
    launch();
    EXPECT_EQ(logged("Initial accessibility: true"), 1);
    EXPECT_TRUE(state().isAccessibilityGranted);
}

TEST_F(AppDelegateLaunchTest, EveryGrantIsNoticedWithinThreeSecondsAndRegistersOnce) {
    platform.accessibility().isTrusted = false;
    launch();
    const char *const grantLine = "Accessibility granted — registering hotkey";

    platform.accessibility().isTrusted = true;
    platform.advance(std::chrono::seconds(3));
    EXPECT_EQ(logged(grantLine), 1);
    EXPECT_EQ(platform.hotKeys().registrations, 2);
    EXPECT_EQ(statusItem().find("Open Accessibility Settings..."), nullptr);
    platform.advance(std::chrono::seconds(9));
    EXPECT_EQ(logged(grantLine), 1);

    platform.accessibility().isTrusted = false;
    platform.advance(std::chrono::seconds(3));
    EXPECT_NE(statusItem().find("Open Accessibility Settings..."), nullptr);
    EXPECT_EQ(platform.hotKeys().registered().size(), 1U);
    platform.accessibility().isTrusted = true;
    platform.advance(std::chrono::seconds(3));
    EXPECT_EQ(logged(grantLine), 2);
    EXPECT_EQ(platform.hotKeys().registrations, 3);
    EXPECT_EQ(platform.hotKeys().registered().size(), 1U);
}

TEST_F(AppDelegateLaunchTest, AnAnnouncedChangeOfThePermissionShowsAtOnce) {
    platform.accessibility().isTrusted = false;
    launch();
    platform.accessibility().isTrusted = true;
    delegate->permissionChanged();
    EXPECT_EQ(logged("Accessibility granted — registering hotkey"), 1);
    EXPECT_EQ(statusItem().find("Open Accessibility Settings..."), nullptr);

    startRunning();
    platform.accessibility().isTrusted = false;
    delegate->permissionChanged();
    EXPECT_NE(statusItem().find("Open Accessibility Settings..."), nullptr);
    awaitIdle();
    EXPECT_EQ(state().status, ClickStatus::idle);
}

TEST_F(AppDelegateLaunchTest, APermissionGivenDuringTheLaunchRegistersTheHotKeyOnce) {
    platform.accessibility().whilePrompting = [this] { delegate->permissionChanged(); };
    launch();
    EXPECT_EQ(platform.hotKeys().registrations, 1);
}

TEST_F(AppDelegateLaunchTest, TheSettingsAreReadBeforeTheProfiles) {
    const auto &settings = shared.configService.configFileURL();
    const auto &profiles = shared.profileService.profilesFileURL();
    platform.fileSystem().put(settings, "{}");
    platform.fileSystem().put(profiles, R"({"profiles":[]})");
    launch();
    EXPECT_EQ(platform.fileSystem().reads(), (std::vector{settings, profiles}));
}

TEST_F(AppDelegateLaunchTest, ThePermissionIsAskedForWhenTheFilesAreLoaded) {
    platform.fileSystem().put(shared.configService.configFileURL(), R"({"clickRate":7})");
    platform.fileSystem().put(shared.profileService.profilesFileURL(), R"({"profiles":[]})");
    platform.accessibility().whilePrompting = [this] {
        EXPECT_EQ(state().config.clickRate, 7);
        EXPECT_EQ(platform.fileSystem().reads().size(), 2U);
    };
    launch();
    EXPECT_EQ(platform.accessibility().prompts, 1);
}

TEST_F(AppDelegateLaunchTest, TheHotKeyIsRegisteredLast) {
    platform.fileSystem().put(shared.configService.configFileURL(), R"({"clickRate":7})");
    platform.hotKeys().whileRegistering = [this] {
        EXPECT_EQ(logged("Initial accessibility: true"), 1);
        EXPECT_EQ(platform.mainQueue().timerCount(), 1U) << "the permission is not polled yet";
        EXPECT_NE(statusItem().find("Rate: 7/s — unlimited"), nullptr);
    };
    launch();
    EXPECT_EQ(platform.hotKeys().registrations, 1);
}

TEST_F(AppDelegateLaunchTest, ThePermissionIsPolledEveryThreeSeconds) {
    launch();
    platform.advance(std::chrono::milliseconds(2999));
    EXPECT_EQ(platform.accessibility().checks, 0);
    platform.advance(std::chrono::milliseconds(1));
    EXPECT_EQ(platform.accessibility().checks, 1);
    platform.advance(std::chrono::seconds(6));
    EXPECT_EQ(platform.accessibility().checks, 3);
}

TEST_F(AppDelegateLaunchTest, TheGrantIsLoggedBeforeTheRegistration) {
    platform.accessibility().isTrusted = false;
    launch();
    platform.accessibility().isTrusted = true;
    platform.hotKeys().whileRegistering = [this] {
        EXPECT_EQ(logged("Accessibility granted — registering hotkey"), 1);
    };
    platform.advance(std::chrono::seconds(3));
    EXPECT_EQ(platform.hotKeys().registrations, 2);
}

TEST_F(AppDelegateLaunchTest, AtTheEndPollingStopsFirstThenTheHotKeyGoesAndThenTheRun) {
    launch();
    startRunning();
    bool isHotKeyGivenBack = false;
    platform.hotKeys().whileGivingBack = [&](const std::string &) {
        isHotKeyGivenBack = true;
        EXPECT_EQ(platform.mainQueue().timerCount(), 0U) << "the permission is still polled";
        EXPECT_EQ(platform.clock().blockedCount(), 1U) << "the run has been stopped already";
    };
    delegate->applicationWillTerminate();
    EXPECT_TRUE(isHotKeyGivenBack);
    platform.hotKeys().whileGivingBack = nullptr;
    shared.clickerService.awaitEnd();
    EXPECT_EQ(logged("Clicker stopped after 1 clicks"), 1);
}

TEST_F(AppDelegateLaunchTest, ARefusedHotKeyDoesNotEndTheLaunch) {
    platform.hotKeys().registerFailure = 10;
    launch();
    EXPECT_EQ(logged("Failed to register hotkey: 10"), 1);
    statusItem().choose("Start");
    EXPECT_EQ(state().status, ClickStatus::running);
}

TEST_F(AppDelegateLaunchTest, DamagedFilesLeaveTheDefaultsAndTheFilesAlone) {
    const auto &file = shared.configService.configFileURL();
    platform.fileSystem().put(file, "[]");
    ::testing::internal::CaptureStdout();
    launch();
    settle();
    const std::string output = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(output.rfind("[Corvane] Failed to load config: ", 0), 0U) << output;
    EXPECT_EQ(state().config, CorvaneConfig{});
    EXPECT_EQ(configFile(), "[]");
    EXPECT_EQ(platform.hotKeys().registered().size(), 1U);
}

TEST_F(AppDelegateLaunchTest, TheMenuOpensTheAccessibilitySettings) {
    platform.accessibility().isTrusted = false;
    launch();
    statusItem().choose("Open Accessibility Settings...");
    EXPECT_EQ(platform.accessibility().settingsOpened, 1);
}

TEST_F(AppDelegateLaunchTest, QuittingIsTheApplicationsOwnBusiness) {
    launch();
    statusItem().choose("Quit Corvane");
    EXPECT_EQ(platform.application().terminations, 1);
}

TEST_F(AppDelegateLaunchTest, AnItemWithoutAnActionDoesNothing) {
    launch();
    const int menusSet = statusItem().menusSet;
    statusItem().perform({});
    EXPECT_EQ(statusItem().menusSet, menusSet);
    EXPECT_EQ(state().status, ClickStatus::idle);
}

TEST_F(AppDelegateLaunchTest, TerminatingStopsTheRunAndGivesEverythingBack) {
    launch();
    startRunning();
    settle();
    const auto writes = platform.fileSystem().writes();
    delegate->applicationWillTerminate();
    shared.clickerService.awaitEnd();
    EXPECT_TRUE(platform.hotKeys().registered().empty());
    EXPECT_FALSE(platform.commandEndpoint().isListening());
    EXPECT_EQ(platform.mainQueue().timerCount(), 0U);
    EXPECT_FALSE(platform.mouseEvents().isButtonPressed());
    EXPECT_EQ(logged("Clicker stopped after 1 clicks"), 1);
    EXPECT_EQ(platform.fileSystem().writes(), writes);
}

TEST_F(AppDelegateLaunchTest, TheEndMayComeBeforeTheFilesAreRead) {
    delegate->applicationDidFinishLaunching();
    delegate->applicationWillTerminate();
    EXPECT_FALSE(platform.commandEndpoint().isListening());
}

TEST_F(AppDelegateLaunchTest, NothingReachesADelegateThatIsGone) {
    launch();
    startRunning();
    const auto item = platform.statusBar().items().back();
    delegate.reset();
    EXPECT_TRUE(item->isDestroyed);
    platform.hotKeys().press();
    shared.clickerService.stop();
    shared.clickerService.awaitEnd();
    platform.advance(std::chrono::seconds(3));
    EXPECT_EQ(state().status, ClickStatus::running);
}

TEST_F(AppDelegateLaunchTest, StartingTheProgramAgainShowsTheMenu) {
    launch();
    delegate->applicationShouldHandleReopen();
    EXPECT_EQ(statusItem().menusOpened, 1);
}

TEST_F(AppDelegateLaunchTest, StartingTheProgramAgainShowsTheMenuOfARunAlsoWithoutAPanel) {
    platform.statusBar().isPresent = false;
    launch();
    startRunning();
    delegate->applicationShouldHandleReopen();
    EXPECT_EQ(statusItem().menusOpened, 1);
    delegate->stopClicking();
    awaitIdle();
}

TEST_F(AppDelegateLaunchTest, ARefusedHotKeyIsSaidInTheToolTipAndNotTriedAgain) {
    platform.hotKeys().registerFailure = 10;
    launch();
    settle();
    EXPECT_EQ(statusItem().toolTip, "The shortcut that starts and stops clicking is not available");
    platform.hotKeys().registerFailure.reset();
    platform.advance(std::chrono::seconds(9));
    EXPECT_EQ(platform.hotKeys().registrations, 1);
    EXPECT_EQ(logged("Failed to register hotkey: 10"), 1);
    EXPECT_EQ(logged("Hotkey (Cmd+Shift+Y) registered via Carbon"), 0);
}

TEST_F(AppDelegateLaunchTest, TheToolTipFollowsAKeyThatTheKeyboardLosesAndGetsBack) {
    launch();
    settle();
    EXPECT_EQ(statusItem().toolTip, "");
    platform.hotKeys().isHeard = false;
    platform.advance(std::chrono::seconds(3));
    EXPECT_NE(statusItem().toolTip, "");
    platform.hotKeys().isHeard = true;
    platform.advance(std::chrono::seconds(3));
    EXPECT_EQ(statusItem().toolTip, "");
    EXPECT_EQ(platform.hotKeys().registrations, 1);
}

} // namespace
} // namespace corvane
