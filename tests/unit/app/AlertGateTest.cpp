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
    const CommandReply refused{.result = CommandResult::refused,
                               .error = "a question on the screen has to be answered first"};
    EXPECT_EQ(platform.commandEndpoint().replies, std::vector(2, refused));
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

TEST_F(AlertGateTest, APickerThatReceivesNothingMeanwhileGoesOnAfterwards) {
    platform.overlayWindows().deafUnder = &platform.alerts();
    delegate->selectZone();
    platform.mainQueue().turnUntilIdle();
    const auto picker = platform.overlayWindows().visible().front();
    const auto drag = [&picker] {
        picker->mouseDown({100, 200});
        picker->mouseUp({400, 350});
    };
    whileAskingForAName(drag);
    EXPECT_EQ(state().status, ClickStatus::pickingZone);
    drag();
    platform.mainQueue().turnUntilIdle();
    EXPECT_EQ(state().status, ClickStatus::idle);
    EXPECT_TRUE(state().config.zoneRect);
}

TEST_F(AlertGateTest, TheProgramEndsUnderTheAlert) {
    whileAskingForAName([this] {
        startRunning();
        platform.commandEndpoint().send({"quit"});
        platform.mainQueue().turn();
        ASSERT_EQ(platform.application().terminations, 1);
        delegate->applicationWillTerminate();
        shared.clickerService.awaitEnd();
    });
    EXPECT_EQ(platform.commandEndpoint().replies,
              std::vector{CommandReply{.output = "Corvane ends.\n"}});
    EXPECT_TRUE(platform.hotKeys().registered().empty());
    EXPECT_FALSE(platform.mouseEvents().isButtonPressed());
}

TEST_F(AlertGateTest, AnEndThatTheSystemRefusesIsMadeUpForByTheNextOne) {
    platform.application().refusesEndUnder = &platform.alerts();
    whileAskingForAName([this] {
        platform.commandEndpoint().send({"quit"});
        platform.mainQueue().turn();
        statusItem().choose("Quit Corvane");
        EXPECT_EQ(platform.application().terminations, 0);
        platform.hotKeys().press();
        platform.mainQueue().turn();
        EXPECT_EQ(state().status, ClickStatus::running);
    });
    EXPECT_TRUE(platform.commandEndpoint().replies.empty());
    EXPECT_TRUE(platform.commandEndpoint().isListening());
    statusItem().choose("Quit Corvane");
    EXPECT_EQ(platform.application().terminations, 1);
    delegate->applicationWillTerminate();
    EXPECT_EQ(platform.commandEndpoint().replies,
              std::vector{CommandReply{.output = "Corvane ends.\n"}});
}

} // namespace
} // namespace corvane
