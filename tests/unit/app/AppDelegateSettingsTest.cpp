#include "support/AppDelegateTest.h"
#include "support/ViewUser.h"

#include <gmock/gmock.h>

namespace corvane::testing {

namespace {

using ::testing::Contains;
using ::testing::Not;

class AppDelegateSettingsTest : public AppDelegateTest {
  protected:
    void SetUp() override { launch(); }

    RecordedSettingsWindow &window() { return platform.settingsWindows().window(); }
    ViewUser user() { return ViewUser(window().content.value()); }

    void open(const std::string &tab = "general") {
        delegate->showConfig();
        if (tab != "general") {
            window().chooseToolbarItem(tab);
        }
    }

    void saveProfile(const std::string &name) {
        state().saveCurrentAsProfile(name);
        settle();
    }
};

TEST_F(AppDelegateSettingsTest, OpensOnTheGeneralTab) {
    statusItem().choose("Settings...");
    EXPECT_EQ(
        window().created,
        (SettingsWindow{
            .title = "General",
            .width = 540,
            .toolbar = {.identifier = "ConfigToolbar",
                        .items = {{"general", "General", {.name = "gearshape"}},
                                  {"profiles", "Profiles", {.name = "person.crop.rectangle.stack"}},
                                  {"about", "About", {.name = "info.circle"}}},
                        .selectedItem = "general"}}));
    EXPECT_EQ(window().title, "General");
    EXPECT_TRUE(window().isVisible);
    EXPECT_EQ(window().centerings, 1);
    EXPECT_EQ(window().ordersFront, 1);
    EXPECT_EQ(platform.application().activations, 1);
    EXPECT_THAT(user().texts(), Contains("Mode"));
}

TEST_F(AppDelegateSettingsTest, BringsAnOpenWindowToTheFrontOnItsTab) {
    open("profiles");
    delegate->showConfig();
    EXPECT_EQ(platform.settingsWindows().windows().size(), 1U);
    EXPECT_EQ(window().ordersFront, 2);
    EXPECT_EQ(window().centerings, 1);
    EXPECT_EQ(window().selectedToolbarItem, "profiles");
    EXPECT_EQ(window().title, "Profiles");
    EXPECT_EQ(platform.application().activations, 2);
}

TEST_F(AppDelegateSettingsTest, ReplacesAClosedWindowByANewOne) {
    open("about");
    window().closeByUser();
    delegate->showConfig();
    ASSERT_EQ(platform.settingsWindows().windows().size(), 2U);
    EXPECT_TRUE(platform.settingsWindows().windows().front()->isDestroyed);
    EXPECT_TRUE(window().isVisible);
    EXPECT_EQ(window().centerings, 1);
    EXPECT_EQ(window().selectedToolbarItem, "general");
    EXPECT_EQ(window().title, "General");
}

TEST_F(AppDelegateSettingsTest, ShowsTheChosenTab) {
    open();
    window().chooseToolbarItem("profiles");
    EXPECT_EQ(window().title, "Profiles");
    EXPECT_EQ(window().selectedToolbarItem, "profiles");
    EXPECT_THAT(user().texts(), Contains("No profiles"));
    window().chooseToolbarItem("about");
    EXPECT_EQ(window().title, "About");
    EXPECT_EQ(window().selectedToolbarItem, "about");
    EXPECT_THAT(user().texts(), Contains("Version 2.1 (37)"));
}

TEST_F(AppDelegateSettingsTest, ChangesNoContentForAnUnknownTab) {
    open("about");
    const int shown = window().contentsSet;
    window().chooseToolbarItem("General");
    EXPECT_EQ(window().title, "About");
    EXPECT_EQ(window().contentsSet, shown);
}

TEST_F(AppDelegateSettingsTest, IgnoresATabWithoutAWindow) {
    delegate->toolbarTabSelected("about");
    EXPECT_TRUE(platform.settingsWindows().windows().empty());
}

TEST_F(AppDelegateSettingsTest, DropsUnsavedEditsAndShowsFreshValues) {
    open();
    user().enterNumber("Rate", 20);
    EXPECT_THAT(user().texts(), Contains("= 1 click every 0.05s"));
    EXPECT_EQ(window().contentUpdates, 1);
    window().chooseToolbarItem("about");
    state().config.maxClicks = 5;
    platform.loginItem().enabled = true;
    window().chooseToolbarItem("general");
    EXPECT_THAT(user().texts(), Contains("= 1 click every 1.00s"));
    EXPECT_THAT(user().texts(), Not(Contains("(unlimited)")));
    EXPECT_TRUE(user().isToggleOn("Start at Login"));
}

TEST_F(AppDelegateSettingsTest, SavesAndClosesWithOK) {
    open();
    user().choose("Mode", "Defined Zone");
    user().enterNumber("Rate", 50);
    user().choose("clicks per", "minute");
    user().enterNumber("Limit", 9);
    user().pressReturn();
    settle();
    EXPECT_EQ(state().config, (CorvaneConfig{.clickMode = ClickMode::zone,
                                             .clickRate = 50,
                                             .timeUnit = TimeUnit::minutes,
                                             .maxClicks = 9}));
    EXPECT_FALSE(window().isVisible);
    EXPECT_NE(statusItem().find("Rate: 50/m — 9x"), nullptr);
    EXPECT_NE(configFile().find("\"clickRate\" : 50"), std::string::npos);
}

TEST_F(AppDelegateSettingsTest, RemovesTheAnchorFromTheLiveConfiguration) {
    anchorZone();
    state().config.clickMode = ClickMode::zone;
    open();
    user().enterNumber("Rate", 50);
    user().turn("Relative to a window", false);
    settle();
    EXPECT_FALSE(state().config.windowAnchor);
    EXPECT_EQ(state().config.clickRate, 1);
    EXPECT_NE(statusItem().find("Defined Zone (200×80)"), nullptr);
    EXPECT_NE(configFile().find("zoneRect"), std::string::npos);
    EXPECT_EQ(configFile().find("windowAnchor"), std::string::npos);
    EXPECT_TRUE(window().isVisible);
    EXPECT_FALSE(user().isToggleOn("Relative to a window"));
}

TEST_F(AppDelegateSettingsTest, HidesWhileAZoneIsPickedAndComesBackNew) {
    state().config.clickMode = ClickMode::zone;
    open();
    user().press("Define zone...");
    EXPECT_FALSE(window().isVisible);
    platform.mainQueue().turnUntilIdle();
    ASSERT_EQ(platform.overlayWindows().visible().size(), 1U);
    const auto overlay = platform.overlayWindows().visible().front();
    overlay->mouseDown({100, 200});
    overlay->mouseDragged({400, 350});
    overlay->mouseUp({400, 350});
    settle();
    ASSERT_EQ(platform.settingsWindows().windows().size(), 2U);
    EXPECT_TRUE(platform.settingsWindows().windows().front()->isDestroyed);
    EXPECT_TRUE(window().isVisible);
    EXPECT_THAT(user().texts(), Contains("Zone: 100, 730 — 300×150"));
}

TEST_F(AppDelegateSettingsTest, ComesBackAfterACancelledPick) {
    open("about");
    delegate->selectZone();
    platform.mainQueue().turnUntilIdle();
    platform.overlayWindows().visible().front()->keyDown(platform::Key::escape);
    settle();
    ASSERT_EQ(platform.settingsWindows().windows().size(), 2U);
    EXPECT_TRUE(window().isVisible);
    EXPECT_EQ(window().selectedToolbarItem, "general");
}

TEST_F(AppDelegateSettingsTest, ComesBackAlsoWhenASecondPickTakesTheFirstOnesPlace) {
    open();
    for (int pick = 0; pick < 2; ++pick) {
        delegate->selectZone();
        platform.mainQueue().turnUntilIdle();
    }
    platform.overlayWindows().visible().back()->keyDown(platform::Key::escape);
    settle();
    EXPECT_TRUE(platform.overlayWindows().visible().empty());
    ASSERT_EQ(platform.settingsWindows().windows().size(), 2U);
    EXPECT_TRUE(window().isVisible);

    window().closeByUser();
    delegate->selectZone();
    platform.mainQueue().turnUntilIdle();
    platform.overlayWindows().visible().back()->keyDown(platform::Key::escape);
    settle();
    EXPECT_EQ(platform.settingsWindows().windows().size(), 2U);
}

TEST_F(AppDelegateSettingsTest, StaysClosedAfterAPickWhenItWasClosed) {
    open();
    window().closeByUser();
    delegate->selectZone();
    platform.mainQueue().turnUntilIdle();
    platform.overlayWindows().visible().front()->keyDown(platform::Key::escape);
    settle();
    EXPECT_EQ(platform.settingsWindows().windows().size(), 1U);
    EXPECT_FALSE(window().isVisible);
}

TEST_F(AppDelegateSettingsTest, SavesTheConfigurationAsAProfile) {
    state().config.clickRate = 8;
    open("profiles");
    user().type("Profile name", "  Fishing ");
    user().press("Save");
    settle();
    ASSERT_EQ(state().profiles.size(), 1U);
    EXPECT_EQ(state().profiles.front().name, "Fishing");
    EXPECT_TRUE(window().isVisible);
    EXPECT_EQ(window().title, "Profiles");
    EXPECT_THAT(user().inside("Fishing").texts(),
                ::testing::ElementsAre("Fishing", "Active", "Free Cursor · 8/s"));
    EXPECT_FALSE(user().isButtonEnabled("Save"));
    EXPECT_NE(statusItem().find("Fishing"), nullptr);
}

TEST_F(AppDelegateSettingsTest, LoadsAProfileAndStaysOpen) {
    saveProfile("One");
    state().config.clickRate = 30;
    saveProfile("Two");
    open("profiles");
    user().inside("One").press("Load");
    settle();
    EXPECT_EQ(state().config.clickRate, 1);
    EXPECT_EQ(platform.settingsWindows().windows().size(), 1U);
    EXPECT_TRUE(window().isVisible);
    EXPECT_THAT(user().inside("One").texts(), Contains("Active"));
    EXPECT_THAT(user().inside("Two").texts(), Not(Contains("Active")));
    EXPECT_TRUE(statusItem().find("One")->isOn);
    EXPECT_FALSE(statusItem().find("Two")->isOn);
}

TEST_F(AppDelegateSettingsTest, RenamesAProfile) {
    saveProfile("One");
    open("profiles");
    platform.alerts().answers = {{.button = 0, .fieldText = " Uno "}};
    user().inside("One").chooseMenuItem("More", "Rename...");
    settle();
    EXPECT_EQ(state().profiles.front().name, "Uno");
    EXPECT_THAT(user().inside("Uno").texts(), Contains("Active"));
    EXPECT_NE(statusItem().find("Uno"), nullptr);
}

TEST_F(AppDelegateSettingsTest, DeletesTheActiveProfile) {
    saveProfile("One");
    saveProfile("Two");
    open("profiles");
    user().inside("Two").chooseMenuItem("More", "Delete");
    settle();
    EXPECT_FALSE(state().activeProfileID);
    EXPECT_THAT(user().texts(), Not(Contains("Active")));
    EXPECT_THAT(user().texts(), Not(Contains("Two")));
    EXPECT_EQ(statusItem().find("Two"), nullptr);
}

TEST_F(AppDelegateSettingsTest, ShowsTheProfilesWhenADialogOutlivesItsWindow) {
    saveProfile("One");
    open("profiles");
    platform.alerts().answers = {{.button = 0, .fieldText = "Uno"}};
    platform.alerts().whileShown = [this](const Alert &) {
        delegate->loadProfile(state().profiles.front().id.text());
    };
    user().inside("One").chooseMenuItem("More", "Rename...");
    settle();
    EXPECT_EQ(platform.settingsWindows().windows().size(), 2U);
    EXPECT_EQ(window().title, "Profiles");
    EXPECT_EQ(window().selectedToolbarItem, "profiles");
    EXPECT_THAT(user().inside("Uno").texts(), Contains("Active"));
}

TEST_F(AppDelegateSettingsTest, LeavesNothingBehindAfterTheDelegate) {
    open();
    const ViewUser late = user();
    const auto handOff = platform.settingsWindows().windows().front();
    delegate.reset();
    EXPECT_TRUE(handOff->isDestroyed);
    handOff->chooseToolbarItem("about");
    late.press("OK");
    EXPECT_EQ(platform.settingsWindows().windows().size(), 1U);
}

} // namespace

} // namespace corvane::testing
