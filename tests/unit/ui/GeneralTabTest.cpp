#include "ui/GeneralTab.h"

#include "services/WindowResolver.h"
#include "support/LineCapture.h"
#include "support/ViewUser.h"
#include "support/recorder/RecordingPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace corvane::testing {

namespace {

using ::testing::Contains;
using ::testing::Not;

class GeneralTabTest : public ::testing::Test {
  protected:
    GeneralTab &tab() {
        if (!tab_) {
            tab_ = std::make_shared<GeneralTab>(config, platform.loginItem(), platform.alerts(),
                                                platform.applications(), resolver);
            tab_->onChange = {[this] { ++changes; }};
            tab_->onSave = {[this](const CorvaneConfig &edited) { saved.push_back(edited); }};
            tab_->onSelectZone = {[this] { ++zoneSelections; }};
            tab_->onRemoveAnchor = {[this] { ++anchorRemovals; }};
        }
        return *tab_;
    }

    ViewUser user() { return ViewUser(tab().body()); }

    void putWindowUnderZone() {
        platform.windowList().windows = {{.bounds = Rectangle{100, 50, 640, 480},
                                          .ownerProcessIdentifier = 7,
                                          .name = "Report",
                                          .layer = 0}};
        platform.applications().runningApplications = {{7, "org.example.editor"}};
        platform.applications().names = {{"org.example.editor", "Editor"}};
    }

    LogCapture log;
    RecordingPlatform platform;
    WindowResolver resolver{platform.windowList(), platform.applications(),
                            platform.accessibility()};
    CorvaneConfig config;
    int changes = 0;
    std::vector<CorvaneConfig> saved;
    int zoneSelections = 0;
    int anchorRemovals = 0;

  private:
    std::shared_ptr<GeneralTab> tab_;
};

const WindowAnchor anchor{"org.example.editor", "Report", {20, 30, 300, 200}};

TEST_F(GeneralTabTest, ShowsTheIdentifierOfAnUnknownApplication) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{1, 2, 3, 4};
    config.windowAnchor = anchor;
    EXPECT_THAT(user().texts(), Contains("Anchored to org.example.editor"));
}

TEST_F(GeneralTabTest, SurvivesAZoneBeyondWholeNumbers) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{1e300, 0, -1e300, 9.3e18};
    EXPECT_THAT(user().texts(), Contains("Zone: 1e+300, 0 — -1e+300×9.3e+18"));
}

TEST_F(GeneralTabTest, ChangesTheModeAtOnce) {
    user().choose("Mode", "Defined Zone");
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(user().texts(), Contains("No zone defined"));
    user().choose("Mode", "Free Cursor");
    EXPECT_THAT(user().texts(), Not(Contains("No zone defined")));
}

TEST_F(GeneralTabTest, DerivesTheInterval) {
    const auto interval = [this](std::int64_t rate, const std::string &unit) {
        user().enterNumber("Rate", rate);
        user().choose("clicks per", unit);
        for (const std::string &text : user().texts()) {
            if (text.starts_with("=")) {
                return text;
            }
        }
        return std::string();
    };
    EXPECT_EQ(interval(10, "second"), "= 1 click every 0.10s");
    EXPECT_EQ(interval(3, "minute"), "= 1 click every 20.00s");
    EXPECT_EQ(interval(1, "hour"), "= 1 click every 3600.00s");
    EXPECT_EQ(interval(0, "hour"), "= 1 click every 1.00s");
    EXPECT_EQ(interval(-5, "minute"), "= 1 click every 1.00s");
    EXPECT_EQ(interval(std::numeric_limits<std::int64_t>::max(), "hour"), "= 1 click every 0.00s");
}

TEST_F(GeneralTabTest, SaysUnlimitedForNoLimitOnly) {
    EXPECT_THAT(user().texts(), Contains("(unlimited)"));
    user().enterNumber("Limit", 5);
    EXPECT_THAT(user().texts(), Not(Contains("(unlimited)")));
    user().enterNumber("Limit", -1);
    EXPECT_THAT(user().texts(), Not(Contains("(unlimited)")));
    user().enterNumber("Limit", 0);
    EXPECT_THAT(user().texts(), Contains("(unlimited)"));
}

TEST_F(GeneralTabTest, TakesTypedNumbersAsTypedAndStepsWithinTheRange) {
    user().enterNumber("Rate", 20000);
    user().stepUp("Rate");
    user().pressReturn();
    user().stepDown("Rate");
    user().enterNumber("Limit", 1000000);
    user().pressReturn();
    user().enterNumber("Rate", 0);
    user().stepDown("Rate");
    user().pressReturn();
    user().stepUp("Rate");
    user().pressReturn();
    ASSERT_EQ(saved.size(), 4U);
    EXPECT_EQ(saved[0].clickRate, 20000);
    EXPECT_EQ(saved[1].clickRate, 9999);
    EXPECT_EQ(saved[1].maxClicks, 1000000);
    EXPECT_EQ(saved[2].clickRate, 0);
    EXPECT_EQ(saved[3].clickRate, 1);
}

TEST_F(GeneralTabTest, HandsOverTheEditedConfiguration) {
    config.zoneRect = CodableRect{1, 2, 3, 4};
    config.windowAnchor = anchor;
    user().choose("Mode", "Defined Zone");
    user().enterNumber("Rate", 7);
    user().choose("clicks per", "hour");
    user().stepUp("Limit");
    EXPECT_TRUE(saved.empty());
    user().press("OK");
    EXPECT_EQ(saved, (std::vector{CorvaneConfig{.clickMode = ClickMode::zone,
                                                .zoneRect = CodableRect{1, 2, 3, 4},
                                                .windowAnchor = anchor,
                                                .clickRate = 7,
                                                .timeUnit = TimeUnit::hours,
                                                .maxClicks = 1}}));
}

TEST_F(GeneralTabTest, AsksForAZone) {
    config.clickMode = ClickMode::zone;
    user().press("Define zone...");
    EXPECT_EQ(zoneSelections, 1);
}

TEST_F(GeneralTabTest, StaysWithoutAnchorWhereThereIsNoZone) {
    config.clickMode = ClickMode::zone;
    putWindowUnderZone();
    user().turn("Relative to a window", true);
    EXPECT_FALSE(user().isToggleOn("Relative to a window"));
    EXPECT_TRUE(platform.alerts().shown.empty());
    EXPECT_EQ(anchorRemovals, 0);
}

TEST_F(GeneralTabTest, AnchorsToTheWindowUnderTheZone) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{120, 80, 300, 200};
    putWindowUnderZone();
    user().turn("Relative to a window", true);
    EXPECT_TRUE(user().isToggleOn("Relative to a window"));
    EXPECT_EQ(changes, 1);
    user().press("OK");
    ASSERT_EQ(saved.size(), 1U);
    EXPECT_EQ(saved.front().windowAnchor, anchor);
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(GeneralTabTest, SaysWhenThereIsNoWindowUnderTheZone) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{120, 80, 300, 200};
    user().turn("Relative to a window", true);
    EXPECT_EQ(platform.alerts().shown,
              (std::vector{Alert{.style = AlertStyle::warning,
                                 .messageText = "No window found",
                                 .informativeText =
                                     "No window was detected under the current zone. Make sure the "
                                     "target window is visible behind the zone area.",
                                 .buttons = {"OK"}}}));
    EXPECT_FALSE(user().isToggleOn("Relative to a window"));
}

TEST_F(GeneralTabTest, RemovesTheAnchorAtOnce) {
    config.clickMode = ClickMode::zone;
    config.zoneRect = CodableRect{120, 80, 300, 200};
    config.windowAnchor = anchor;
    user().turn("Relative to a window", false);
    EXPECT_EQ(anchorRemovals, 1);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(user().isToggleOn("Relative to a window"));
    EXPECT_THAT(user().texts(), Not(Contains("(Report)")));
}

TEST_F(GeneralTabTest, StartsAtLoginAtOnce) {
    user().turn("Start at Login", true);
    EXPECT_TRUE(platform.loginItem().enabled);
    EXPECT_TRUE(user().isToggleOn("Start at Login"));
    user().turn("Start at Login", false);
    EXPECT_FALSE(platform.loginItem().enabled);
    EXPECT_FALSE(user().isToggleOn("Start at Login"));
    EXPECT_EQ(platform.loginItem().registrations, 1);
    EXPECT_EQ(platform.loginItem().unregistrations, 1);
    EXPECT_TRUE(saved.empty());
}

TEST_F(GeneralTabTest, FlipsTheLoginToggleBackWhenTheSystemRefuses) {
    platform.loginItem().failure = Failure{"refused"};
    user().turn("Start at Login", true);
    EXPECT_FALSE(user().isToggleOn("Start at Login"));
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(platform.alerts().shown.empty());
}

TEST_F(GeneralTabTest, StaysOnWhenTheSystemKeepsTheLoginItem) {
    platform.loginItem().enabled = true;
    platform.loginItem().failure = Failure{"refused"};
    user().turn("Start at Login", false);
    EXPECT_TRUE(user().isToggleOn("Start at Login"));
}

TEST_F(GeneralTabTest, DoesNothingOnceItIsGone) {
    auto gone = std::make_shared<GeneralTab>(config, platform.loginItem(), platform.alerts(),
                                             platform.applications(), resolver);
    gone->onSave = {[this](const CorvaneConfig &edited) { saved.push_back(edited); }};
    const ViewUser late(gone->body());
    gone.reset();
    late.press("OK");
    late.enterNumber("Rate", 3);
    late.turn("Start at Login", true);
    EXPECT_TRUE(saved.empty());
    EXPECT_EQ(platform.loginItem().registrations, 0);
}

} // namespace

} // namespace corvane::testing
