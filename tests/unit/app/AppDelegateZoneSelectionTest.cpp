#include "support/AppDelegateTest.h"

namespace corvane {
namespace {

class AppDelegateZoneSelectionTest : public testing::AppDelegateTest {
  protected:
    void SetUp() override { launch(); }

    void openPicker() {
        delegate->selectZone();
        platform.mainQueue().turnUntilIdle();
        ASSERT_EQ(platform.overlayWindows().visible().size(), 1U);
    }

    void drag(Point from, Point to) {
        const auto overlay = platform.overlayWindows().visible().front();
        overlay->mouseDown(from);
        overlay->mouseDragged(to);
        overlay->mouseUp(to);
        settle();
    }
};

TEST_F(AppDelegateZoneSelectionTest, APickedZoneIsKeptSavedAndShown) {
    state().config.windowAnchor = WindowAnchor{"org.example.editor", "Old", {}};
    openPicker();
    EXPECT_EQ(state().status, ClickStatus::pickingZone);
    EXPECT_EQ(statusItem().titles().front(), "Picking zone...");

    drag({100, 200}, {400, 350});
    EXPECT_EQ(state().config.zoneRect, (CodableRect{100, 730, 300, 150}));
    EXPECT_FALSE(state().config.windowAnchor);
    EXPECT_EQ(state().config.clickMode, ClickMode::zone);
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_NE(statusItem().find("Defined Zone (300×150)"), nullptr);
    EXPECT_NE(configFile().find("\"zoneRect\""), std::string::npos);
    EXPECT_EQ(configFile().find("\"windowAnchor\""), std::string::npos);
}

TEST_F(AppDelegateZoneSelectionTest, ACancelledPickChangesNothing) {
    const CorvaneConfig before = state().config;
    const auto writes = platform.fileSystem().writes();
    openPicker();
    platform.overlayWindows().visible().front()->keyDown(platform::Key::escape);
    settle();
    EXPECT_EQ(state().config, before);
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_EQ(statusItem().titles().front(), "Idle");
    EXPECT_EQ(platform.fileSystem().writes(), writes);
}

TEST_F(AppDelegateZoneSelectionTest, APickStopsTheRunFirst) {
    startRunning();
    delegate->selectZone();
    platform.mainQueue().turnUntilIdle();
    shared.clickerService.awaitEnd();
    EXPECT_EQ(state().status, ClickStatus::pickingZone);
    EXPECT_EQ(logged("Clicker stopped after 1 clicks"), 1);
    platform.overlayWindows().completeAnimations();
    EXPECT_EQ(platform.overlayWindows().visible().size(), 1U);
}

TEST_F(AppDelegateZoneSelectionTest, TheHotKeyStartsARunOverTheOpenPickerAndThePickLeavesItAlone) {
    openPicker();
    platform.hotKeys().press();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(state().status, ClickStatus::running);
    platform.overlayWindows().all().front()->keyDown(platform::Key::escape);
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(state().status, ClickStatus::running);
    delegate->stopClicking();
    awaitIdle();
}

TEST_F(AppDelegateZoneSelectionTest, APickThatSucceedsUnderARunOfTheHotKeyIsStoredAndTheRunGoesOn) {
    openPicker();
    platform.hotKeys().press();
    platform.mainQueue().turnUntilIdle();
    ASSERT_TRUE(platform.clock().awaitBlocked());
    const auto overlay = platform.overlayWindows().all().front();
    overlay->mouseDown({100, 200});
    overlay->mouseUp({400, 350});
    settle();
    EXPECT_EQ(state().config.zoneRect, (CodableRect{100, 730, 300, 150}));
    EXPECT_NE(configFile().find("\"zoneRect\""), std::string::npos);
    EXPECT_EQ(state().status, ClickStatus::running);
    EXPECT_EQ(logged("Clicker stopped after 1 clicks"), 0);
    delegate->stopClicking();
    awaitIdle();
}

} // namespace
} // namespace corvane
