#include "SettingsDesktopTest.h"
#include "harness/ProfilesText.h"
#include "harness/TextFile.h"

#include <X11/keysym.h>
#include <gmock/gmock.h>

namespace corvane::desktop {

namespace {

using testing::SizeIs;

/// The tab "Profiles" of the real program, and the profiles of its menu.
class ProfilesTabOnDesktopTest : public SettingsDesktopTest {
  protected:
    /// Waits until the profiles file holds exactly that text; what it holds in the end.
    std::string savedProfilesAre(const std::string &expected) const {
        waitUntil([&] { return savedProfiles() == expected; });
        return savedProfiles();
    }

    /// The identifiers in the file, once there are so many.
    std::vector<std::string> waitForIDs(std::size_t count) const {
        waitUntil([&] { return profileIDs(savedProfiles()).size() == count; });
        return profileIDs(savedProfiles());
    }

    void typeName(const std::string &name) {
        ASSERT_TRUE(tabTo("text 'Profile name' = ''"));
        type(name);
        ASSERT_TRUE(waitForFocus("text 'Profile name' = '" + name + "'"));
    }

    bool isChecked(const std::string &title) {
        const auto line = panel_.line(title);
        return line && line->isChecked;
    }
};

constexpr const char *firstID = "0F8FAD5B-D9CB-469F-A165-70867728950E";
constexpr const char *secondID = "7C9E6679-7425-40DE-944B-E07FC1F90AE7";

TEST_F(ProfilesTabOnDesktopTest, IsReadInItsOrder) {
    writeFile(profilesFile(desktop_),
              profilesText({{.id = firstID, .name = "A & B_c"}, {.id = secondID, .name = "Two"}},
                           secondID));
    launch({});
    openTab("Profiles");
    const std::vector<std::string> expected = {"frame 'Profiles'",
                                               "page tab 'General'",
                                               "page tab 'Profiles' selected",
                                               "page tab 'About'",
                                               "label 'Profiles'",
                                               "panel 'A & B_c'",
                                               "label 'A & B_c'",
                                               "label 'Free Cursor · 1/s'",
                                               "push button 'Load'",
                                               "button menu 'More'",
                                               "panel 'Two'",
                                               "label 'Two'",
                                               "label 'Active'",
                                               "label 'Free Cursor · 1/s'",
                                               "push button 'Load'",
                                               "button menu 'More'",
                                               "label 'Save current config'",
                                               "text 'Profile name' = ''",
                                               "push button 'Save' disabled"};
    EXPECT_EQ(said("Profiles", expected), expected);

    const std::vector<std::string> stops = {"page tab 'Profiles' selected", "page tab 'About'",
                                            "push button 'Load'",           "button menu 'More'",
                                            "push button 'Load'",           "button menu 'More'",
                                            "text 'Profile name' = ''",     "page tab 'General'"};
    for (const std::string &stop : stops) {
        ASSERT_TRUE(waitForFocus(stop)) << stop << " but " << reader_.focus();
        strike(XK_Tab);
    }
}

TEST_F(ProfilesTabOnDesktopTest, ProfilesAreSavedLoadedRenamedAndDeletedByKeyboard) {
    launch({.clickRate = 20});
    openTab("Profiles");
    typeName("fishing");
    strike(XK_Tab);
    ASSERT_TRUE(waitForFocus("push button 'Save'"));
    strike(XK_space);
    // Ready for the next name.
    ASSERT_TRUE(waitForFocus("text 'Profile name' = ''"));
    auto ids = waitForIDs(1);
    ASSERT_THAT(ids, SizeIs(1));
    StoredProfile first{.id = ids[0], .name = "fishing", .clickRate = "20"};
    EXPECT_EQ(savedProfilesAre(profilesText({first}, first.id)), profilesText({first}, first.id));
    EXPECT_TRUE(waitUntil([this] { return isChecked("fishing"); }));

    typeName("hunting");
    ASSERT_TRUE(tabTo("push button 'Save'"));
    strike(XK_Return);
    ids = waitForIDs(2);
    ASSERT_THAT(ids, SizeIs(2));
    const StoredProfile second{.id = ids[1], .name = "hunting", .clickRate = "20"};
    std::string expected = profilesText({first, second}, second.id);
    EXPECT_EQ(savedProfilesAre(expected), expected);

    ASSERT_TRUE(tabTo("push button 'Load'"));
    strike(XK_Return);
    expected = profilesText({first, second}, first.id);
    EXPECT_EQ(savedProfilesAre(expected), expected);
    EXPECT_TRUE(waitUntil([this] { return isChecked("fishing") && !isChecked("hunting"); }));
    EXPECT_TRUE(waitForFocus("push button 'Load'"));

    strike(XK_Tab);
    ASSERT_TRUE(waitForFocus("button menu 'More'"));
    strike(XK_space);
    ASSERT_TRUE(waitForFocus("menu item 'Rename...'")) << reader_.focus();
    strike(XK_Return);
    ASSERT_TRUE(waitForActive("Rename Profile"));
    ASSERT_TRUE(waitForFocus("text 'Enter a new name:' = 'fishing'")) << reader_.focus();
    type("  angling ");
    strike(XK_Return);
    first.name = "angling";
    expected = profilesText({first, second}, first.id);
    EXPECT_EQ(savedProfilesAre(expected), expected);
    EXPECT_TRUE(waitUntil([this] { return isChecked("angling"); }));

    ASSERT_TRUE(waitForActive("Profiles"));
    ASSERT_TRUE(waitForFocus("button menu 'More'")) << reader_.focus();
    strike(XK_space);
    ASSERT_TRUE(waitForFocus("menu item 'Rename...'"));
    strike(XK_Down);
    ASSERT_TRUE(waitForFocus("menu item 'Delete'"));
    strike(XK_Return);
    expected = profilesText({second});
    EXPECT_EQ(savedProfilesAre(expected), expected);
    EXPECT_TRUE(waitUntil([this] { return !panel_.line("angling"); }));
    EXPECT_FALSE(isChecked("hunting"));
    EXPECT_TRUE(waitForFocus("push button 'Load'")) << reader_.focus();
    EXPECT_TRUE(active("Profiles").has_value());

    quit();
    EXPECT_EQ(savedProfiles(), expected);
    corvane_ = std::make_unique<CorvaneProcess>(desktop_);
    ASSERT_TRUE(corvane_->waitUntilReady()) << corvane_->story();
    openTab("Profiles");
    EXPECT_TRUE(says("Profiles", "panel 'hunting'"));
    EXPECT_EQ(savedProfiles(), expected);
}

TEST_F(ProfilesTabOnDesktopTest, ARenamingIsCancelledByKeyboard) {
    const std::string text = profilesText({{.id = firstID, .name = "One"}});
    writeFile(profilesFile(desktop_), text);
    launch({});
    openTab("Profiles");
    for (const bool isCancelled : {true, false}) {
        ASSERT_TRUE(tabTo("button menu 'More'"));
        strike(XK_space);
        ASSERT_TRUE(waitForFocus("menu item 'Rename...'"));
        strike(XK_Return);
        ASSERT_TRUE(waitForFocus("text 'Enter a new name:' = 'One'"));
        const std::vector<std::string> dialog = {
            "dialog 'Rename Profile'",   "label 'Rename Profile'",
            "label 'Enter a new name:'", "text 'Enter a new name:' = 'One'",
            "push button 'Rename'",      "push button 'Cancel'"};
        EXPECT_EQ(said("Rename Profile", dialog), dialog);
        // Blank is no name.
        type("  ");
        strike(isCancelled ? XK_Escape : XK_Return);
        ASSERT_TRUE(waitForActive("Profiles"));
    }
    EXPECT_TRUE(says("Profiles", "panel 'One'"));
    quit();
    EXPECT_EQ(savedProfiles(), text);
}

TEST_F(ProfilesTabOnDesktopTest, AProfileIsSavedFromTheMenuByKeyboard) {
    launch({.clickRate = 30});
    ASSERT_TRUE(panel_.choose("Save current config..."));
    ASSERT_TRUE(waitForActive("Save Profile"));
    const std::vector<std::string> dialog = {
        "dialog 'Save Profile'",
        "label 'Save Profile'",
        "label 'Enter a name for this profile:'",
        "text 'Enter a name for this profile:' = '' for 'Profile name'",
        "push button 'Save'",
        "push button 'Cancel'"};
    EXPECT_EQ(said("Save Profile", dialog), dialog);
    ASSERT_TRUE(waitForFocus("text 'Enter a name for this profile:' = '' for 'Profile name'"));
    type("fishing");
    strike(XK_Return);
    const auto ids = waitForIDs(1);
    ASSERT_THAT(ids, SizeIs(1));
    const std::string expected =
        profilesText({{.id = ids[0], .name = "fishing", .clickRate = "30"}}, ids[0]);
    EXPECT_EQ(savedProfilesAre(expected), expected);
    EXPECT_TRUE(waitUntil([this] { return isChecked("fishing"); }));
}

TEST_F(ProfilesTabOnDesktopTest, VeryManyOddProfilesStayUsable) {
    auto profiles = manyOddProfiles();
    writeFile(profilesFile(desktop_), profilesText(profiles));
    launch({.clickRate = 20});
    openTab("Profiles");
    ASSERT_TRUE(tabTo("push button 'Load'"));
    strike(XK_Return);
    std::string expected = profilesText(profiles, profiles.front().id);
    EXPECT_EQ(savedProfilesAre(expected) == expected, true);
    EXPECT_TRUE(waitUntil([this] { return panel_.line("Rate: 1/s — unlimited").has_value(); }));

    // Backwards from the first tab to the last control.
    ASSERT_TRUE(waitForFocus("push button 'Load'"));
    strikeWithShift(XK_Tab);
    strikeWithShift(XK_Tab);
    strikeWithShift(XK_Tab);
    ASSERT_TRUE(waitForFocus("page tab 'General'")) << reader_.focus();
    strikeWithShift(XK_Tab);
    ASSERT_TRUE(waitForFocus("text 'Profile name' = ''")) << reader_.focus();
    type("last");
    ASSERT_TRUE(waitForFocus("text 'Profile name' = 'last'"));
    strike(XK_Tab);
    ASSERT_TRUE(waitForFocus("push button 'Save'"));
    strike(XK_space);
    const auto ids = waitForIDs(profiles.size() + 1);
    ASSERT_EQ(ids.size(), profiles.size() + 1);
    profiles.push_back({.id = ids.back(), .name = "last"});
    expected = profilesText(profiles, ids.back());
    EXPECT_EQ(savedProfilesAre(expected) == expected, true);
    quit();
    EXPECT_EQ(savedProfiles() == expected, true);
}

TEST_F(ProfilesTabOnDesktopTest, LoadingFromTheMenuReplacesAnOpenWindow) {
    writeFile(profilesFile(desktop_),
              profilesText({{.id = firstID, .name = "Fast", .clickRate = "90"}}));
    launch({.clickRate = 20});
    openTab("Profiles");
    const xcb_window_t former = active("Profiles").value().id;
    ASSERT_TRUE(panel_.choose("Fast"));
    ASSERT_TRUE(waitForActive("General"));
    EXPECT_NE(active("General").value().id, former);
    EXPECT_TRUE(says("General", "text 'Rate' = '90'"));
}

} // namespace

} // namespace corvane::desktop
