#include "support/AppDelegateTest.h"

namespace corvane {
namespace {

constexpr const char *oneAtATime = "Another alert is open: its question comes first";

/// What else the user and other programs can do while an alert is open.
class AlertGateTest : public testing::AppDelegateTest {
  protected:
    void SetUp() override { launch(); }

    /// Opens the alert that asks for a profile's name, and does that meanwhile.
    void whileAskingForAName(const std::function<void()> &work) {
        platform.alerts().whileShown = [work](const Alert &) { work(); };
        statusItem().choose("Save current config...");
        settle();
        ASSERT_EQ(platform.alerts().shown.size(), 1U);
    }
};

TEST_F(AlertGateTest, NoZoneIsPicked) {
    state().config.clickMode = ClickMode::zone;
    statusItem().perform({ActionID::setModeZone});
    whileAskingForAName([this] {
        EXPECT_FALSE(statusItem().find("Define zone...")->isEnabled);
        delegate->selectZone();
        platform.mainQueue().turnUntilIdle();
        EXPECT_TRUE(platform.overlayWindows().visible().empty());
    });
    EXPECT_EQ(logged("Cannot select a zone: a question on the screen has to be answered first"), 1);
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_TRUE(statusItem().find("Define zone...")->isEnabled);
}

TEST_F(AlertGateTest, NoOtherNameIsAskedFor) {
    whileAskingForAName([this] {
        EXPECT_FALSE(statusItem().find("Save current config...")->isEnabled);
        delegate->saveAsProfile();
    });
    EXPECT_EQ(logged("Cannot save a profile: a question on the screen has to be answered first"),
              1);
    EXPECT_TRUE(statusItem().find("Save current config...")->isEnabled);
}

TEST_F(AlertGateTest, ARunThatNeedsNoQuestionBegins) {
    whileAskingForAName([this] {
        platform.hotKeys().press();
        platform.mainQueue().turn();
        EXPECT_EQ(state().status, ClickStatus::running);
    });
}

TEST_F(AlertGateTest, ARunThatWouldHaveToAskIsRefused) {
    anchorZone();
    platform.applications().runningApplications.clear();
    whileAskingForAName([this] {
        platform.hotKeys().press();
        platform.mainQueue().turn();
        EXPECT_EQ(state().status, ClickStatus::idle);
    });
    EXPECT_EQ(logged(oneAtATime), 1);
}

TEST_F(AlertGateTest, CommandsAreRefusedWithTheReason) {
    anchorZone();
    platform.applications().runningApplications.clear();
    whileAskingForAName([this] {
        for (const char *command : {"start", "select-zone"}) {
            platform.commandEndpoint().send({command});
            platform.mainQueue().turn();
        }
    });
    const CommandAnswer refused{.result = CommandResult::refused,
                                .error = "a question on the screen has to be answered first"};
    EXPECT_EQ(platform.commandEndpoint().answers, std::vector(2, refused));
}

TEST_F(AlertGateTest, AZoneDrawnMeanwhileIsNotAnchored) {
    platform.windowList().windows = {{.bounds = Rectangle{0, 0, 1000, 900},
                                      .ownerProcessIdentifier = 7,
                                      .name = "Report",
                                      .layer = 0}};
    platform.applications().runningApplications = {{7, "org.example.editor"}};
    delegate->selectZone();
    platform.mainQueue().turnUntilIdle();
    whileAskingForAName([this] {
        const auto overlay = platform.overlayWindows().visible().front();
        overlay->mouseDown({100, 200});
        overlay->mouseUp({400, 350});
    });
    EXPECT_EQ(logged(oneAtATime), 1);
    EXPECT_TRUE(state().config.zoneRect);
    EXPECT_FALSE(state().config.windowAnchor);
}

} // namespace
} // namespace corvane
