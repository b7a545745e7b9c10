#include "support/AppDelegateTest.h"
#include "support/ViewUser.h"

#include <gmock/gmock.h>

namespace corvane::testing {

namespace {

class AppDelegateProfilesTest : public AppDelegateTest {
  protected:
    void SetUp() override { launch(); }

    void load(const std::string &id) {
        statusItem().perform({.action = ActionID::loadProfile, .representedObject = id});
        settle();
    }

    void saveAs(AlertResponse answer) {
        platform.alerts().answers = {std::move(answer)};
        statusItem().choose("Save current config...");
        settle();
    }

    std::string profilesFile() {
        return platform.fileSystem()
            .content(shared.profileService.profilesFileURL())
            .value_or(std::string());
    }
};

TEST_F(AppDelegateProfilesTest, AsksForANameAndSavesUnderIt) {
    state().config.clickRate = 10;
    saveAs({.button = 0, .fieldText = " \t\u00A0Fishing\u3000 "});
    EXPECT_EQ(platform.alerts().shown,
              (std::vector{
                  Alert{.messageText = "Save Profile",
                        .informativeText = "Enter a name for this profile:",
                        .buttons = {"Save", "Cancel"},
                        .field = AlertField{.size = {260, 24}, .placeholder = "Profile name"}}}));
    ASSERT_EQ(state().profiles.size(), 1U);
    EXPECT_EQ(state().profiles.front().name, "Fishing");
    EXPECT_EQ(state().profiles.front().config, state().config);
    EXPECT_EQ(state().activeProfileID, state().profiles.front().id);
    ASSERT_NE(statusItem().find("Fishing"), nullptr);
    EXPECT_TRUE(statusItem().find("Fishing")->isOn);
    EXPECT_NE(profilesFile().find("\"name\" : \"Fishing\""), std::string::npos);
}

TEST_F(AppDelegateProfilesTest, SavesNothingWithoutANameOrWhenCancelled) {
    saveAs({.button = 0, .fieldText = " \t "});
    saveAs({.button = 0, .fieldText = ""});
    saveAs({.button = 1, .fieldText = "Fishing"});
    EXPECT_EQ(platform.alerts().shown.size(), 3U);
    EXPECT_TRUE(state().profiles.empty());
    EXPECT_EQ(profilesFile(), "");
}

TEST_F(AppDelegateProfilesTest, KeepsLineBreaksOfANameSavedFromTheMenu) {
    saveAs({.button = 0, .fieldText = " \nFishing"});
    ASSERT_EQ(state().profiles.size(), 1U);
    EXPECT_EQ(state().profiles.front().name, "\nFishing");
}

TEST_F(AppDelegateProfilesTest, KeepsTwoProfilesOfOneName) {
    saveAs({.button = 0, .fieldText = "Fishing"});
    saveAs({.button = 0, .fieldText = "Fishing"});
    ASSERT_EQ(state().profiles.size(), 2U);
    EXPECT_NE(state().profiles[0].id, state().profiles[1].id);
    EXPECT_EQ(state().activeProfileID, state().profiles[1].id);
}

TEST_F(AppDelegateProfilesTest, LoadsAProfileWithItsAnchor) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    const CorvaneConfig anchored = state().config;
    saveAs({.button = 0, .fieldText = "Anchored"});
    state().config = {};
    statusItem().choose("Anchored");
    settle();
    EXPECT_EQ(state().config, anchored);
    EXPECT_TRUE(statusItem().find("Anchored")->isOn);
    EXPECT_NE(configFile().find("\"bundleID\" : \"org.example.editor\""), std::string::npos);
    EXPECT_TRUE(platform.settingsWindows().windows().empty());

    startRunning();
    EXPECT_EQ(logged("Resolved window anchor: zone at (130.0, 260.0, 200.0, 80.0)"), 1);
}

TEST_F(AppDelegateProfilesTest, LoadingDoesNotTouchTheRunUnderWay) {
    saveAs({.button = 0, .fieldText = "Fast"});
    startRunning();
    state().profiles.front().config.clickRate = 100;
    load(state().profiles.front().id.text());
    EXPECT_EQ(state().status, ClickStatus::running);
    EXPECT_EQ(state().config.clickRate, 100);
}

TEST_F(AppDelegateProfilesTest, LoadsNothingForWhatIsNoProfile) {
    saveAs({.button = 0, .fieldText = "Fishing"});
    const std::string id = state().profiles.front().id.text();
    delegate->showConfig();
    state().config.clickRate = 77;
    const CorvaneConfig before = state().config;
    const auto writes = platform.fileSystem().writes().size();
    state().deleteProfile(state().profiles.front().id);
    settle();
    ASSERT_EQ(platform.fileSystem().writes().size(), writes + 1);
    for (const std::string &text : {id, std::string("not an id"), std::string()}) {
        load(text);
    }
    EXPECT_EQ(state().config, before);
    EXPECT_EQ(platform.fileSystem().writes().size(), writes + 1);
    EXPECT_EQ(platform.settingsWindows().windows().size(), 1U);
}

TEST_F(AppDelegateProfilesTest, LoadingReplacesAnOpenSettingsWindow) {
    state().config.clickRate = 42;
    saveAs({.button = 0, .fieldText = "Fast"});
    state().config.clickRate = 1;
    delegate->showConfig();
    platform.settingsWindows().window().chooseToolbarItem("about");
    statusItem().choose("Fast");
    settle();
    ASSERT_EQ(platform.settingsWindows().windows().size(), 2U);
    EXPECT_TRUE(platform.settingsWindows().windows().front()->isDestroyed);
    const RecordedSettingsWindow &window = platform.settingsWindows().window();
    EXPECT_TRUE(window.isVisible);
    EXPECT_EQ(window.selectedToolbarItem, "general");
    ASSERT_TRUE(window.content);
    EXPECT_THAT(ViewUser(*window.content).texts(), ::testing::Contains("= 1 click every 0.02s"));
}

TEST_F(AppDelegateProfilesTest, LoadingRebuildsTheMenuBeforeItReplacesTheWindow) {
    saveAs({.button = 0, .fieldText = "Slow"});
    saveAs({.button = 0, .fieldText = "Fast"});
    delegate->showConfig();
    platform.settingsWindows().whileCreating = [this] {
        EXPECT_TRUE(statusItem().find("Slow")->isOn);
    };
    statusItem().choose("Slow");
    EXPECT_EQ(platform.settingsWindows().windows().size(), 2U);
}

TEST_F(AppDelegateProfilesTest, LoadingLeavesAClosedSettingsWindowClosed) {
    saveAs({.button = 0, .fieldText = "Fast"});
    delegate->showConfig();
    platform.settingsWindows().window().closeByUser();
    statusItem().choose("Fast");
    settle();
    EXPECT_EQ(platform.settingsWindows().windows().size(), 1U);
    EXPECT_FALSE(platform.settingsWindows().window().isVisible);
}

} // namespace

} // namespace corvane::testing
