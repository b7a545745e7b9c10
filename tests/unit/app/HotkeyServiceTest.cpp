#include "app/HotkeyService.h"

#include "support/LineCapture.h"
#include "support/recorder/RecordingPlatform.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using Lines = std::vector<std::string>;

class HotkeyServiceTest : public ::testing::Test {
  protected:
    void pressAndTurn() {
        platform.hotKeys().press();
        platform.mainQueue().turnUntilIdle();
    }

    testing::LogCapture log;
    testing::RecordingPlatform platform;
    HotkeyService service{platform.hotKeys(), platform.mainQueue()};
    int presses = 0;
};

TEST_F(HotkeyServiceTest, RegistersCommandShiftY) {
    service.registerHotkey([this] { ++presses; });
    const HotKey expected{.letter = 'Y', .command = true, .shift = true};
    EXPECT_EQ(platform.hotKeys().registered(), std::vector{expected});
    EXPECT_EQ(log.lines(), Lines{"Hotkey (Cmd+Shift+Y) registered via Carbon"});
}

TEST_F(HotkeyServiceTest, TheLogNamesTheMechanism) {
    platform.hotKeys().mechanismName = "X11";
    service.registerHotkey([] {});
    EXPECT_EQ(log.lines(), Lines{"Hotkey (Cmd+Shift+Y) registered via X11"});
}

TEST_F(HotkeyServiceTest, APressIsNeverHandledInline) {
    service.registerHotkey([this] { ++presses; });
    platform.hotKeys().press();
    EXPECT_EQ(presses, 0);
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(presses, 1);
}

TEST_F(HotkeyServiceTest, RegisteringTwiceLeavesOneHotKeyAndOneHandler) {
    int earlier = 0;
    service.registerHotkey([&earlier] { ++earlier; });
    service.registerHotkey([this] { ++presses; });
    EXPECT_EQ(platform.hotKeys().registered().size(), 1U);
    EXPECT_EQ(platform.hotKeys().handlerCount(), 1U);
    EXPECT_EQ(log.lines().size(), 2U);
    pressAndTurn();
    EXPECT_EQ(earlier, 0);
    EXPECT_EQ(presses, 1);
}

TEST_F(HotkeyServiceTest, TheFormerRegistrationIsGivenBackBeforeTheNextIsMade) {
    service.registerHotkey([] {});
    service.registerHotkey([] {});
    EXPECT_EQ(platform.hotKeys().mostHotKeys, 1U);
    EXPECT_EQ(platform.hotKeys().mostHandlers, 1U);
}

TEST_F(HotkeyServiceTest, TheHotKeyIsGivenBackBeforeItsHandler) {
    service.registerHotkey([] {});
    std::vector<std::string> givenBack;
    platform.hotKeys().whileGivingBack = [&](const std::string &what) {
        givenBack.push_back(what);
    };
    service.unregister();
    EXPECT_EQ(givenBack, (std::vector<std::string>{"hot key", "handler"}));
}

TEST_F(HotkeyServiceTest, UnregisteringNothingDoesNothing) {
    service.unregister();
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(HotkeyServiceTest, APressAfterUnregisteringHasNoEffect) {
    service.registerHotkey([this] { ++presses; });
    const auto pressUnderWay = platform.hotKeys().pressUnderWay();
    service.unregister();
    EXPECT_TRUE(platform.hotKeys().registered().empty());
    EXPECT_EQ(platform.hotKeys().handlerCount(), 0U);
    pressUnderWay();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(presses, 0);
}

TEST_F(HotkeyServiceTest, APressStillQueuedWhenUnregisteringHasNoEffect) {
    service.registerHotkey([this] { ++presses; });
    platform.hotKeys().press();
    service.unregister();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(presses, 0);
}

TEST_F(HotkeyServiceTest, WithoutHandlerNoHotKeyIsRegistered) {
    platform.hotKeys().installFailure = -9878;
    service.registerHotkey([this] { ++presses; });
    EXPECT_EQ(platform.hotKeys().registrations, 0);
    EXPECT_EQ(log.lines(), Lines{"Failed to install Carbon event handler: -9878"});
}

TEST_F(HotkeyServiceTest, ARefusedHotKeyIsLoggedWithItsStatus) {
    platform.hotKeys().registerFailure = -9878;
    service.registerHotkey([this] { ++presses; });
    EXPECT_TRUE(platform.hotKeys().registered().empty());
    EXPECT_EQ(log.lines(), Lines{"Failed to register hotkey: -9878"});
}

TEST_F(HotkeyServiceTest, IsRegisteredOnlyWhileAPressWouldBeNoticed) {
    EXPECT_FALSE(service.isRegistered());
    service.registerHotkey([] {});
    EXPECT_TRUE(service.isRegistered());
    platform.hotKeys().isHeard = false;
    EXPECT_FALSE(service.isRegistered());
    platform.hotKeys().isHeard = true;
    service.unregister();
    EXPECT_FALSE(service.isRegistered());
}

} // namespace
} // namespace corvane
